// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "controls/Form.h"
#include "core/Application.h"

namespace tonvale {

// The general preferences. A hidden window from the first reference to one of its controls on;
// these controls, not the store, are what the running system reads.
class Settings : public Form {
public:
    explicit Settings(Application &app);

    CheckBox Check1{"Allow Multiple Program Instances"};
    CheckBox Check2{"Save Tonvale's Position"};
    CheckBox Check3{"Tonvale is Always On Top"};
    CheckBox Check4{"Confirm File Deletion"};
    CheckBox Check6{"Loop Media Play"};
    Label Label3{"Temporary Files Location..."};
    Label Label2; // the location itself
    ComboBox DevCombo;

private:
    void Form_Load() override;
    void Form_Unload(std::int16_t &cancel) override;
    void Check3_Click();

    Application &app_;
    bool readable_ = false; // the store could be read at load
};

} // namespace tonvale

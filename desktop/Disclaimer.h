// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "controls/Form.h"
#include "core/Application.h"

#include <cstdint>

namespace tonvale {

class Disclaimer : public Form {
public:
    explicit Disclaimer(Application &app);

    CommandButton Command1{"&Okay"};
    Image Image1;
    TextBox Text1;

private:
    void Form_KeyPress(std::int16_t &keyAscii) override;
};

} // namespace tonvale

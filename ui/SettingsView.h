// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "desktop/Settings.h"
#include "ui/DialogView.h"

namespace tonvale {

class SettingsView : public DialogView {
public:
    explicit SettingsView(Settings &form);
};

} // namespace tonvale

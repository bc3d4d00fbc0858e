// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "desktop/Disclaimer.h"
#include "ui/DialogView.h"

namespace tonvale {

class DisclaimerView : public DialogView {
public:
    explicit DisclaimerView(Disclaimer &form);
};

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

namespace tonvale {

class QtMessageBoxes : public MessageBoxes {
public:
    BoxResult show(const MessageBox &box) override;
};

} // namespace tonvale

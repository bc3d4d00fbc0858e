// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

namespace tonvale {

// The settings program of the running desktop, else the first of the common ones that is there.
class DesktopProperties : public SystemProperties {
public:
    explicit DesktopProperties(Shell &shell) : shell_(shell) {}
    void show(PropertySheets sheets) override;

private:
    Shell &shell_;
};

} // namespace tonvale

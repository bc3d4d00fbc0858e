// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <string>

namespace tonvale {

enum class PropertySheets : std::int32_t { psAll = 0, psAudio = 1, psVideo = 2, psMIDI = 3, psCD = 4 };

// The desktop's own settings of sound and picture.
class SystemProperties {
public:
    virtual ~SystemProperties() = default;
    // Shows the settings nearest to the sheet. Throws RuntimeError where the desktop has none.
    virtual void show(PropertySheets sheets) = 0;
};

class MMPropertiesX {
public:
    explicit MMPropertiesX(SystemProperties &properties) : properties_(properties) {}

    PropertySheets Sheets = PropertySheets::psAll;
    std::string Title = "Audio Properties";
    void Execute() { properties_.show(Sheets); }

private:
    SystemProperties &properties_;
};

} // namespace tonvale

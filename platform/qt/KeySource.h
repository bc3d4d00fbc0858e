// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <functional>

namespace tonvale {

// Tells the keys that are pressed with Control held, as virtual key codes, while it exists.
class KeySource {
public:
    using Tell = std::function<void(std::int32_t keyCode)>;

    KeySource() = default;
    virtual ~KeySource() = default;
    KeySource(const KeySource &) = delete;
    KeySource &operator=(const KeySource &) = delete;
};

} // namespace tonvale

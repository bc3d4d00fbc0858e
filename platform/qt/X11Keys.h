// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/qt/KeySource.h"
#include "platform/qt/xcb.h"

#include <QSocketNotifier>

#include <bitset>
#include <memory>
#include <optional>
#include <vector>

namespace tonvale {

// Sees the keys of the whole display, whichever window has the focus. The focused window gets them
// just the same.
class X11Keys : public KeySource {
public:
    // Null where the display does not tell raw keys.
    [[nodiscard]] static std::unique_ptr<X11Keys> open(const Tell &tell);

    X11Keys(XcbConnection connection, std::uint8_t extension, const Tell &tell);

private:
    static constexpr std::size_t kKeys = 256;

    [[nodiscard]] bool selectKeys();
    void readMapping();
    void readControlKeys();
    void readHeldKeys();
    void serve();
    void handle(const xcb_generic_event_t &event);
    void press(std::uint32_t key);
    [[nodiscard]] std::optional<std::int32_t> virtualKeyOf(std::uint32_t key) const;

    XcbConnection connection_;
    std::uint8_t extension_;
    Tell tell_;
    std::vector<std::optional<std::int32_t>> codes_; // by key
    std::bitset<kKeys> held_, controls_;
    std::optional<QSocketNotifier> notifier_;
};

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"
#include "platform/machine/base/UniqueFd.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// How instances talk: one request on each connection, every message one packet whose first byte
// tells its kind.

namespace tonvale::instances {

inline constexpr std::size_t kLongestPath = 8192; // without the quotes around it
inline constexpr std::size_t kLongestPacket = 1 + 1 + kLongestPath + 1;
inline constexpr std::size_t kMostWindows = 64;

enum class Kind : char {
    // requests
    Execute = 'X', // the command text follows
    List = 'L',
    Close = 'C', // a handle in decimal follows
    // answers
    Accepted = 'A', // the end of an Execute; of a Close when the process goes on
    Window = 'W',   // handle, class and title follow, separated by zero characters
    End = 'E',      // the end of a List
    Leaving = 'G',  // the process is about to end, and the connection with it
};

struct Message {
    Kind kind{};
    std::string text;
};

// What a packet that somebody sent says, or nothing when it breaks a rule.
[[nodiscard]] std::optional<Message> parseRequest(std::string_view packet);

[[nodiscard]] std::optional<WindowHandle> parseHandle(std::string_view text);
[[nodiscard]] std::string packWindow(const WindowInfo &window);
[[nodiscard]] std::optional<WindowInfo> unpackWindow(std::string_view text);

// Both never block. A packet that does not fit the peer's buffer counts as not sent.
[[nodiscard]] bool sendMessage(int socket, Kind kind, std::string_view text = {});
enum class Received { Packet, Nothing, Gone };
[[nodiscard]] Received receivePacket(int socket, std::string &packet);

// The point in time at which waiting ends.
class Deadline {
public:
    using Clock = std::chrono::steady_clock;
    explicit Deadline(std::chrono::milliseconds span) : end_(Clock::now() + span) {}
    [[nodiscard]] bool isOver() const { return Clock::now() >= end_; }
    // For poll(): rounded up, so that it never spins in the last millisecond.
    [[nodiscard]] int milliseconds() const;

private:
    Clock::time_point end_;
};

} // namespace tonvale::instances

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <mpv/client.h>

#include <cstdint>
#include <span>
#include <string>

namespace tonvale {

// A value of the library's that we own.
class MpvNode {
public:
    MpvNode() = default;
    ~MpvNode() { mpv_free_node_contents(&node_); }
    MpvNode(MpvNode &&other) noexcept : node_(other.node_) { other.node_ = {}; }
    MpvNode &operator=(MpvNode &&) = delete;
    MpvNode(const MpvNode &) = delete;
    MpvNode &operator=(const MpvNode &) = delete;

    [[nodiscard]] mpv_node *put() { return &node_; }
    [[nodiscard]] const mpv_node &get() const { return node_; }

private:
    mpv_node node_{};
};

namespace node {

// The values of a list; none where it is no list.
[[nodiscard]] std::span<const mpv_node> items(const mpv_node &list);
// A member of a map; null where there is none.
[[nodiscard]] const mpv_node *find(const mpv_node &map, const char *key);
// A member's value, or what stands for none.
[[nodiscard]] std::int64_t number(const mpv_node &map, const char *key);
[[nodiscard]] std::string text(const mpv_node &map, const char *key);
[[nodiscard]] bool flag(const mpv_node &map, const char *key);

} // namespace node

} // namespace tonvale

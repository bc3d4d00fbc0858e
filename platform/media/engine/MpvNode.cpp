// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MpvNode.h"

#include <string_view>

namespace tonvale::node {

std::span<const mpv_node> items(const mpv_node &list) {
    if (list.format != MPV_FORMAT_NODE_ARRAY) return {};
    return {list.u.list->values, static_cast<std::size_t>(list.u.list->num)};
}

const mpv_node *find(const mpv_node &map, const char *key) {
    if (map.format != MPV_FORMAT_NODE_MAP) return nullptr;
    const mpv_node_list &list = *map.u.list;
    for (int i = 0; i < list.num; ++i)
        if (std::string_view(list.keys[i]) == key) return &list.values[i];
    return nullptr;
}

std::int64_t number(const mpv_node &map, const char *key) {
    const mpv_node *value = find(map, key);
    return value && value->format == MPV_FORMAT_INT64 ? value->u.int64 : 0;
}

std::string text(const mpv_node &map, const char *key) {
    const mpv_node *value = find(map, key);
    return value && value->format == MPV_FORMAT_STRING ? value->u.string : "";
}

bool flag(const mpv_node &map, const char *key) {
    const mpv_node *value = find(map, key);
    return value && value->format == MPV_FORMAT_FLAG && value->u.flag != 0;
}

} // namespace tonvale::node

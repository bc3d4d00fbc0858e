// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/registry/KeyPath.h"

#include "controls/Text.h"

namespace tonvale {

KeyPath KeyPath::of(std::string_view key) {
    KeyPath result;
    key = untilZero(key);
    while (!key.empty()) {
        const std::size_t end = key.find('\\');
        if (end != 0) {
            result.parent = result.text();
            result.name = key.substr(0, end);
        }
        key.remove_prefix(end == std::string_view::npos ? key.size() : end + 1);
    }
    return result;
}

} // namespace tonvale

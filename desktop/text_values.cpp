// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/text_values.h"

#include "controls/Text.h"

namespace tonvale {

std::string RegistryGetKeyValue(Registry &registry, RootKey root, const std::string &key,
                                const std::string &valueName) {
    const auto value = registry.query(root, key, valueName);
    if (!value || value->type != ValueType::String) return {};
    return std::string(untilZero(value->data));
}

void RegistrySetKeyValue(Registry &registry, RootKey root, const std::string &key, const std::string &valueName,
                         const std::string &value) {
    registry.set(root, key, valueName, {ValueType::String, value});
}

std::string keyBelow(const std::string &path, const std::string &subKey) {
    return subKey.empty() ? path : path + "\\" + subKey;
}

} // namespace tonvale

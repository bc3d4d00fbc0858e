// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <string>

namespace tonvale {

// The text that a registry value holds: empty when it is missing or no text, cut at the first zero.
[[nodiscard]] std::string RegistryGetKeyValue(Registry &registry, RootKey root, const std::string &key,
                                              const std::string &valueName);
void RegistrySetKeyValue(Registry &registry, RootKey root, const std::string &key, const std::string &valueName,
                         const std::string &value);

// `path`, and below it `subKey` unless that is empty.
[[nodiscard]] std::string keyBelow(const std::string &path, const std::string &subKey);

} // namespace tonvale

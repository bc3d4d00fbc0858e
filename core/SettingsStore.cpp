// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/SettingsStore.h"

namespace tonvale {

namespace {

// The fixed key of the runtime that all applications' settings lie below.
constexpr const char *kParentKey = "Software\\Program Settings";

std::string keyPath(const std::string &application, const std::string &section) {
    return std::string(kParentKey) + "\\" + application + "\\" + section;
}

} // namespace

std::string SettingsStore::GetSetting(const std::string &application, const std::string &section,
                                      const std::string &key, const std::string &fallback) const {
    const auto value = registry_.query(RootKey::CurrentUser, keyPath(application, section), key);
    return value ? value->data : fallback;
}

void SettingsStore::SaveSetting(const std::string &application, const std::string &section, const std::string &key,
                                const std::string &value) {
    registry_.set(RootKey::CurrentUser, keyPath(application, section), key, {ValueType::String, value});
}

} // namespace tonvale

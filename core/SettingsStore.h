// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <string>

namespace tonvale {

// Text values by application, section and key, for this user. Both operations throw RuntimeError
// when the store fails.
class SettingsStore {
public:
    explicit SettingsStore(Registry &registry) : registry_(registry) {}

    // The default is for a missing key only; a key that holds the empty text yields it.
    [[nodiscard]] std::string GetSetting(const std::string &application, const std::string &section,
                                         const std::string &key, const std::string &fallback = {}) const;
    void SaveSetting(const std::string &application, const std::string &section, const std::string &key,
                     const std::string &value);

private:
    Registry &registry_;
};

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/Application.h"

#include "core/setting_keys.h"

#include <utility>

namespace tonvale {

Application::Application(Services machine) : services(std::move(machine)) {}

std::string Application::setting(const std::string &key, const std::string &fallback) const {
    return store.GetSetting(services.program.title, setting::kSection, key, fallback);
}

void Application::saveSetting(const std::string &key, const std::string &value) {
    store.SaveSetting(services.program.title, setting::kSection, key, value);
}

BoxResult Application::box(const std::string &text, BoxIcon icon, BoxPlace place, BoxButtons buttons,
                           const std::string &title) {
    return services.boxes.show({text, icon, buttons, place, title.empty() ? services.program.title : title});
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/Settings.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "core/setting_keys.h"
#include "desktop/StayOnTop.h"

#include <array>

namespace tonvale {

namespace {

struct BoxSetting {
    CheckBox Settings::*box;
    const char *key;
    const char *fallback;
};

constexpr std::array kBoxSettings{
    BoxSetting{&Settings::Check1, setting::kMultiInstances, "0"},
    BoxSetting{&Settings::Check2, setting::kPosition, "0"},
    BoxSetting{&Settings::Check3, setting::kAlwaysOntop, "0"},
    BoxSetting{&Settings::Check4, setting::kConfirmDelete, "1"},
    BoxSetting{&Settings::Check6, setting::kLoopOther, "0"},
};

std::int16_t boxValue(const std::string &text) {
    const std::int16_t value = textToInt16(text);
    if (value < 0 || value > 2) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    return value;
}

} // namespace

Settings::Settings(Application &app) : Form(app.forms, "Settings"), app_(app) {
    Caption = "General Settings";
    Check4.Value = 1; // where the settings cannot be read, nothing is deleted unasked
    Check3.Click = handler([this] { Check3_Click(); });
}

void Settings::Form_Load() {
    std::array<std::string, kBoxSettings.size()> texts;
    readable_ = attempt([&] {
        const std::string temporary = lowerCase(app_.services.files.temporaryDirectory());
        Label2.Caption = app_.setting(setting::kTempLocation, temporary);
        for (std::size_t i = 0; i < texts.size(); ++i)
            texts[i] = app_.setting(kBoxSettings[i].key, kBoxSettings[i].fallback);
    });
    if (!readable_) return;
    // The first text that is no box's state ends the handler; what was set until then stays.
    attempt([&] {
        for (std::size_t i = 0; i < texts.size(); ++i) (this->*kBoxSettings[i].box).Value = boxValue(texts[i]);
    });
}

void Settings::Form_Unload(std::int16_t & /*cancel*/) {
    if (!readable_) return; // what could not be read is not to be written over
    attempt([&] {
        app_.saveSetting(setting::kTempLocation, Label2.Caption);
        for (const BoxSetting &entry : kBoxSettings)
            app_.saveSetting(entry.key, std::to_string((this->*entry.box).Value.get()));
    });
}

void Settings::Check3_Click() {
    if (!app_.form1.isLoaded()) return;
    if (Check3.Value == 1)
        StayOnTop(app_.form1.form());
    else
        NotOnTop(app_.form1.form());
}

} // namespace tonvale

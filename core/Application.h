// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"
#include "controls/Form.h"
#include "core/PathParser.h"
#include "core/Services.h"
#include "core/SettingsStore.h"

#include <string>

namespace tonvale {

class Form1;
class ListWindow;
class Settings;
class VivoWindow;

// What all windows share: the services, the holders of the windows, and what the last split path
// and the last error were.
class Application {
public:
    explicit Application(Services machine);
    Application(const Application &) = delete;
    Application &operator=(const Application &) = delete;

    Services services;
    ErrObject Err;
    Forms forms{services.loop, Err};
    SettingsStore store{services.registry};
    PathParser paths;
    // From the start of the main window's load until its last step.
    bool MainLoadInProgress = false;

    FormHolder<Settings> settings{forms};
    FormHolder<VivoWindow> VivoPlayer{forms};
    FormHolder<ListWindow> frmPlayList{forms};
    FormHolder<ListWindow> frmVivoPlayList{forms};
    FormHolder<Form1> form1{forms}; // last, so that it goes first

    // The section "Settings" of this program's own application.
    [[nodiscard]] std::string setting(const std::string &key, const std::string &fallback) const;
    void saveSetting(const std::string &key, const std::string &value);

    BoxResult box(const std::string &text, BoxIcon icon, BoxPlace place, BoxButtons buttons = BoxButtons::Ok,
                  const std::string &title = {});
};

} // namespace tonvale

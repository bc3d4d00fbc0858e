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

class Disclaimer;
class Form1;
class ListWindow;
class MediaOptionsWindow;
class MediaStatisticsWindow;
class Settings;
class VideoWindow;
class VivoWindow;
class frmAbout;

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
    FormHolder<VideoWindow> frmVideoPlay{forms};
    FormHolder<ListWindow> frmPlayList{forms}, frmVivoPlayList{forms}, frmVideoPlayList{forms};
    FormHolder<tonvale::frmAbout> frmAbout{forms};
    FormHolder<tonvale::Disclaimer> Disclaimer{forms};
    // The dialogs of the media player control.
    FormHolder<MediaOptionsWindow> MediaOptions{forms};
    FormHolder<MediaStatisticsWindow> MediaStatistics{forms};
    FormSlot frmAssociate{forms}, frmCDDBMain{forms};
    FormSlot frmCDPlayer{forms}, frmVideoCDPlayer{forms}, frmCD2WAV{forms}, frmCD2MP3{forms};
    FormSlot frmEncode{forms}, frmDecode{forms};
    FormHolder<Form1> form1{forms}; // last, so that it goes first

    // The section "Settings" of this program's own application.
    [[nodiscard]] std::string setting(const std::string &key, const std::string &fallback) const;
    void saveSetting(const std::string &key, const std::string &value);

    BoxResult box(const std::string &text, BoxIcon icon, BoxPlace place, BoxButtons buttons = BoxButtons::Ok,
                  const std::string &title = {});
};

} // namespace tonvale

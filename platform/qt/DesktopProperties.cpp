// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/DesktopProperties.h"

#include "controls/Errors.h"

#include <QFile>
#include <QStandardPaths>
#include <QStringList>

#include <array>

namespace tonvale {

namespace {

constexpr std::int32_t kLastFailure = 32, kShowNormal = 1;
enum class Subject { Sound, Display };

struct SettingsProgram {
    const char *desktop; // as in XDG_CURRENT_DESKTOP; empty: any
    Subject subject;
    const char *program, *parameters;
};

constexpr std::array<SettingsProgram, 27> kPrograms{{
    {"GNOME", Subject::Sound, "gnome-control-center", "sound"},
    {"GNOME", Subject::Display, "gnome-control-center", "display"},
    {"Unity", Subject::Sound, "unity-control-center", "sound"},
    {"Unity", Subject::Display, "unity-control-center", "display"},
    {"Budgie", Subject::Sound, "budgie-control-center", "sound"},
    {"Budgie", Subject::Display, "budgie-control-center", "display"},
    {"KDE", Subject::Sound, "systemsettings", "kcm_pulseaudio"},
    {"KDE", Subject::Sound, "systemsettings5", "kcm_pulseaudio"},
    {"KDE", Subject::Sound, "kcmshell6", "kcm_pulseaudio"},
    {"KDE", Subject::Sound, "kcmshell5", "kcm_pulseaudio"},
    {"KDE", Subject::Display, "systemsettings", "kcm_kscreen"},
    {"KDE", Subject::Display, "systemsettings5", "kcm_kscreen"},
    {"KDE", Subject::Display, "kcmshell6", "kcm_kscreen"},
    {"KDE", Subject::Display, "kcmshell5", "kcm_kscreen"},
    {"MATE", Subject::Sound, "mate-volume-control", ""},
    {"MATE", Subject::Display, "mate-display-properties", ""},
    {"X-Cinnamon", Subject::Sound, "cinnamon-settings", "sound"},
    {"X-Cinnamon", Subject::Display, "cinnamon-settings", "display"},
    {"XFCE", Subject::Display, "xfce4-display-settings", ""},
    {"LXQt", Subject::Sound, "pavucontrol-qt", ""},
    {"LXQt", Subject::Display, "lxqt-config-monitor", ""},
    {"", Subject::Sound, "pavucontrol", ""},
    {"", Subject::Sound, "pavucontrol-qt", ""},
    {"", Subject::Sound, "pwvucontrol", ""},
    {"", Subject::Display, "wdisplays", ""},
    {"", Subject::Display, "arandr", ""},
    {"", Subject::Display, "lxrandr", ""},
}};

// MIDI and CD are sound here, and so is what this desktop has no page for.
Subject subjectOf(PropertySheets sheets) {
    return sheets == PropertySheets::psVideo ? Subject::Display : Subject::Sound;
}

bool runsOn(const QStringList &desktops, const char *desktop) {
    return *desktop == '\0' || desktops.contains(QLatin1String(desktop), Qt::CaseInsensitive);
}

} // namespace

void DesktopProperties::show(PropertySheets sheets) {
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    for (const SettingsProgram &entry : kPrograms) {
        if (entry.subject != subjectOf(sheets) || !runsOn(desktops, entry.desktop)) continue;
        const QString program = QStandardPaths::findExecutable(QLatin1String(entry.program));
        if (program.isEmpty()) continue;
        const std::string path = QFile::encodeName(program).toStdString();
        if (shell_.execute("open", path, entry.parameters, "", kShowNormal).code > kLastFailure) return;
    }
    throw RuntimeError(ErrorNumber::FileNotFound);
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Errors.h"
#include "platform/qt/DesktopProperties.h"
#include "tests/backend/qt/Session.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tonvale {
namespace {

using namespace test;

class NotingShell : public Shell {
public:
    Launch execute(const std::string &, const std::string &file, const std::string &parameters, const std::string &,
                   std::int32_t) override {
        started.push_back(file.substr(file.rfind('/') + 1) + " " + parameters);
        return {file.ends_with(broken) ? 5 : 33};
    }
    bool isRunning(std::uint64_t) override { return false; }
    std::vector<std::string> started;
    std::string broken = "none is";
};

class Properties : public SessionTest<Display::None> {
protected:
    Properties() {
        std::filesystem::create_directory(session.directory() + "/bin");
        EXPECT_EQ(::setenv("PATH", (session.directory() + "/bin").c_str(), 1), 0);
    }
    void install(const std::string &name) {
        const std::string path = session.directory() + "/bin/" + name;
        std::ofstream(path) << "#!/bin/sh\n";
        ASSERT_EQ(::chmod(path.c_str(), 0755), 0);
    }
    std::string shown(const char *desktop, PropertySheets sheets) {
        EXPECT_EQ(::setenv("XDG_CURRENT_DESKTOP", desktop, 1), 0);
        shell.started.clear();
        try {
            DesktopProperties(shell).show(sheets);
        } catch (const RuntimeError &error) {
            return "error " + std::to_string(error.number());
        }
        return shell.started.back();
    }

    NotingShell shell;
};

TEST_F(Properties, WhereThereIsNoneItIsAnError) {
    EXPECT_EQ(shown("GNOME", PropertySheets::psAudio), "error 53");
    install("gnome-control-center"); // which runs on its own desktop alone
    EXPECT_EQ(shown("XFCE", PropertySheets::psAudio), "error 53");
    install("pavucontrol");
    EXPECT_EQ(shown("XFCE", PropertySheets::psVideo), "error 53");
}

TEST_F(Properties, TheDesktopsOwnComesFirst) {
    for (const char *name : {"pavucontrol", "gnome-control-center", "systemsettings", "mate-volume-control"})
        install(name);
    EXPECT_EQ(shown("ubuntu:GNOME", PropertySheets::psAll), "gnome-control-center sound");
    EXPECT_EQ(shown("GNOME", PropertySheets::psVideo), "gnome-control-center display");
    EXPECT_EQ(shown("KDE", PropertySheets::psMIDI), "systemsettings kcm_pulseaudio");
    EXPECT_EQ(shown("MATE", PropertySheets::psCD), "mate-volume-control ");
    EXPECT_EQ(shown("XFCE", PropertySheets::psAudio), "pavucontrol ");
    EXPECT_EQ(shown("", PropertySheets::psAudio), "pavucontrol ");
}

TEST_F(Properties, OneThatDoesNotStartIsPassedOver) {
    for (const char *name : {"pavucontrol", "gnome-control-center"}) install(name);
    shell.broken = "gnome-control-center";
    EXPECT_EQ(shown("GNOME", PropertySheets::psAudio), "pavucontrol ");
}

} // namespace
} // namespace tonvale

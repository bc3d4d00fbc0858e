// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/shared_windows.h"
#include "tests/unit/fakes/CallLog.h"

#include <string>

namespace tonvale::test {

class FakeVvWeb : public VvWeb {
public:
    explicit FakeVvWeb(CallLog &log) : log_(log) {}
    void LoadFile(const std::string &path) override { log_.add("vivo.LoadFile " + path); }
    void Start() override { log_.add("vivo.Start"); }
    void Suspend() override { log_.add("vivo.Suspend"); }
    void Resume() override { log_.add("vivo.Resume"); }

private:
    CallLog &log_;
};

class FakeVivoWindow : public VivoWindow {
public:
    FakeVivoWindow(Forms &forms, CallLog &log) : VivoWindow(forms, "VivoPlayer"), log_(log), engine_(log) {
        shown_ = Visible.onChange([this] {
            if (Visible) log_.add("vivo.shown");
        });
    }
    VvWeb &VvWeb1() override { return engine_; }
    void SetFullScreen() override {
        log_.add(FullScreenMenu.Checked ? "vivo.leaves full screen" : "vivo.enters full screen");
        FullScreenMenu.Checked = !FullScreenMenu.Checked;
    }

private:
    void Form_Unload(std::int16_t & /*cancel*/) override { log_.add("vivo.unloaded"); }

    CallLog &log_;
    FakeVvWeb engine_;
    Connection shown_;
};

class FakeListWindow : public ListWindow {
public:
    FakeListWindow(Forms &forms, const std::string &name, CallLog &log) : ListWindow(forms, name), log_(log) {
        shown_ = Visible.onChange([this] {
            if (Visible) log_.add(Name + ".shown with " + std::to_string(List1.ListCount()));
        });
    }

private:
    CallLog &log_;
    Connection shown_;
};

} // namespace tonvale::test

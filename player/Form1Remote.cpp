// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1Remote.h"

#include "controls/Numbers.h"
#include "core/PathParser.h"
#include "player/Form1.h"
#include "player/captions.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tonvale {

namespace {

constexpr double kPercent = 100;
constexpr std::int32_t kStep = 1; // seconds that the slider moves by itself

// Whether the file that runs is the media engine's, not a CD's or a Vivo viewer's.
bool isInEngine(const Form1 &window) {
    const std::string &file = window.ActiveMovie1.FileName();
    return window.isRunning() && !file.empty() && window.Text1.Text == file;
}

} // namespace

Form1Remote::Form1Remote(Application &app) : app_(app), self_(std::make_shared<Form1Remote *>(this)) {
    loading_ = app.forms.formLoading.connect([this](const Form &form) {
        if (Form1 *const loaded = window(); &form == loaded) follow(*loaded);
    });
    unloaded_ = app.forms.formUnloaded.connect([this](const Form &form) {
        if (form.Name != "Form1") return;
        following_.clear();
        tellChange();
    });
    if (Form1 *const loaded = window()) follow(*loaded);
}

Form1Remote::~Form1Remote() { *self_ = nullptr; }

Form1 *Form1Remote::window() const { return app_.form1.isLoaded() ? &*app_.form1 : nullptr; }

void Form1Remote::follow(Form1 &window) {
    const auto tell = [this] { tellChange(); };
    lastPosition_ = window.slidTracker.Value();
    following_.clear();
    following_.push_back(window.playmenu.Caption.onChange(tell));
    following_.push_back(window.MMLEDX1.LEDColor.onChange(tell));
    following_.push_back(window.Label3.Caption.onChange(tell));
    following_.push_back(window.Text1.Text.onChange(tell));
    following_.push_back(window.slidTracker.Max.onChange(tell));
    following_.push_back(window.MMLEDSpinX1.onValueChange(tell));
    following_.push_back(window.slidTracker.onValueChange([this] { followSlider(); }));
}

// Once, when the handler that changes one thing after the other has come to its end.
void Form1Remote::tellChange() {
    if (std::exchange(changeWaits_, true)) return;
    app_.services.loop.post([self = self_] {
        if (*self == nullptr) return;
        (*self)->changeWaits_ = false;
        (*self)->changed();
    });
}

void Form1Remote::followSlider() {
    const Form1 *const form = window();
    if (form == nullptr) return;
    const std::int32_t before = std::exchange(lastPosition_, form->slidTracker.Value());
    const std::int64_t moved = std::int64_t{lastPosition_} - before;
    if (moved < 0 || moved > kStep) seeked(lastPosition_); // the engine follows the slider
}

void Form1Remote::later(std::function<void(Form1 &)> command) {
    app_.services.loop.post([&app = app_, command = std::move(command)] {
        if (!app.form1.isLoaded()) return;
        const Forms::HandlerScope scope(app.forms);
        resumeNext(app.Err, [&] { command(*app.form1); });
    });
}

// ---- what the panel shows -----------------------------------------------------------------------

// The lamp, not the caption of the pause entry, tells a pause: that one outlives a stop.
RemotePlayer::Status Form1Remote::status() const {
    const Form1 *const form = window();
    if (form == nullptr || !form->isRunning()) return Status::Stopped;
    return form->MMLEDX1.LEDColor == lamp::kPaused ? Status::Paused : Status::Playing;
}

std::string Form1Remote::path() const {
    const Form1 *const form = window();
    return form == nullptr ? std::string() : form->Text1.Text.get();
}

std::string Form1Remote::title() const {
    const Form1 *const form = window();
    if (form == nullptr || form->Text1.Text.get().empty()) return {};
    const std::string &shown = form->Label3.Caption;
    // A splitter of its own: others may be about to read the shared one's parts.
    return shown.empty() ? PathParser().ParsePath(form->Text1.Text, "f") : shown;
}

double Form1Remote::length() const {
    const Form1 *const form = window();
    return form == nullptr || form->Text1.Text.get().empty() ? 0 : form->slidTracker.Max.get();
}

double Form1Remote::position() const {
    const Form1 *const form = window();
    if (form == nullptr) return 0;
    double seconds = form->slidTracker.Value();
    if (isInEngine(*form)) resumeNext(app_.Err, [&] { seconds = form->ActiveMovie1.CurrentPosition(); });
    return seconds;
}

double Form1Remote::volume() const {
    const Form1 *const form = window();
    return form == nullptr ? 0 : form->MMLEDSpinX1.Value() / kPercent;
}

bool Form1Remote::canSeek() const {
    const Form1 *const form = window();
    return form != nullptr && isInEngine(*form) && form->slidTracker.Max > 0;
}

// ---- commands -----------------------------------------------------------------------------------

void Form1Remote::play() {
    later([self = self_](Form1 &form) {
        if (*self == nullptr) return;
        switch ((*self)->status()) {
        case Status::Playing: break;
        case Status::Paused:
            form.PauseMenu.Caption = caption::kResume;
            form.PauseMenu.Click();
            break;
        case Status::Stopped:
            if (!form.Text1.Text.get().empty()) form.playcurrentmenu.Click();
            break;
        }
    });
}

void Form1Remote::pause() {
    later([self = self_](Form1 &form) {
        if (*self == nullptr || (*self)->status() != Status::Playing) return;
        // After a stop in a pause the entry reads "Resume" while the next file plays.
        form.PauseMenu.Caption = caption::kPause;
        form.PauseMenu.Click();
    });
}

void Form1Remote::playPause() { status() == Status::Playing ? pause() : play(); }

// The panel's own stop, which takes the loop and the Vivo viewer with it.
void Form1Remote::stop() {
    later([](Form1 &form) {
        if (form.isRunning()) form.playmenu.Click();
    });
}

void Form1Remote::seek(double position) {
    Form1 *const form = window();
    if (form == nullptr || !canSeek() || !std::isfinite(position)) return;
    const double target = std::clamp(position, 0.0, static_cast<double>(form->slidTracker.Max.get()));
    lastPosition_ = toInt32(target); // told below, exactly
    form->slidTracker.Value(lastPosition_);
    if (resumeNext(app_.Err, [&] { form->ActiveMovie1.CurrentPosition(target); })) seeked(target);
}

void Form1Remote::setVolume(double volume) {
    Form1 *const form = window();
    if (form != nullptr && std::isfinite(volume))
        form->MMLEDSpinX1.Value(toInt32(std::clamp(volume, 0.0, 1.0) * kPercent));
}

// The road of a path that the desktop sends, which takes one pair of quotes away.
void Form1Remote::open(const std::string &path) {
    if (path.empty()) return;
    later([command = "\"" + path + "\""](Form1 &form) {
        std::string text = command;
        std::int16_t cancel = 0;
        form.Form_LinkExecute(text, cancel);
    });
}

// A window that has taken the main window's place comes to the front for it.
void Form1Remote::raise() {
    later([&app = app_](Form1 &form) {
        if (form.TrayX1.Visible) form.showpop.Click();
        if (form.State == WindowState::Minimized) form.State = WindowState::Normal;
        const std::vector<Form *> loaded = app.forms.loaded();
        for (Form *window : loaded)
            if (form.Visible ? window == &form : window->Visible.get()) window->ZOrder();
    });
}

void Form1Remote::quit() {
    later([](Form1 &form) { form.Unload(); });
}

} // namespace tonvale

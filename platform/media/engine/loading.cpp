// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Opening and closing files.

#include "platform/media/engine/MpvEngine.h"

#include "controls/Errors.h"
#include "platform/media/engine/plain_number.h"

#include <algorithm>

namespace tonvale {

namespace {

constexpr double kFramePatience = 0.01; // seconds that a frame may wait to be taken

[[noreturn]] void throwLoadError(const std::string &description) {
    throw RuntimeError(ErrorNumber::AutomationError, description);
}

std::string nameIn(const std::string &path) { return path.substr(path.rfind('/') + 1); }

} // namespace

MpvCore &MpvEngine::core() {
    if (core_) return *core_;
    core_ = std::make_unique<MpvCore>(loop_, options_.outputs, [this] { drain(); });
    core_->observe(static_cast<std::uint64_t>(Request::Idle), "core-idle", MPV_FORMAT_FLAG);
    core_->observe(static_cast<std::uint64_t>(Request::Output), "current-ao", MPV_FORMAT_STRING);
    setVolume(volume_);
    picture_->connect(*core_);
    return *core_;
}

void MpvEngine::dropCore() {
    picture_->disconnect();
    core_.reset();
    settings_ = {};
}

// The next open or seek, so that what is still to come for this one is told by its number.
void MpvEngine::forget() {
    unwatchEnd();
    playing_ = atEnd_ = finished_ = false;
    reloads_ = 0;
    ++serial_;
    sought_ = 0;
    source_.reset();
    loading_ = Loading::Idle;
    seeking_ = Seeking::No;
    entry_ = 0;
    duration_ = 0;
    lengthAsked_ = lengthMeasured_ = false;
    format_.clear();
    forgetPicture();
    updateClock();
    clock_.set(0, Steady::now());
}

void MpvEngine::open(const std::string &path) {
    const auto deadline = Steady::now() + options_.openTimeout;
    try {
        auto source = options_.openSource(path);
        forget();
        source_ = std::move(source);
    } catch (...) {
        close();
        throw;
    }
    if (balanceInserted_ || balance_ != 0) applyBalance();
    restoreSettings();
    load(path);
    waitUntilLoaded(deadline);
    finishOpen();
}

void MpvEngine::load(const std::string &path) {
    loading_ = Loading::Requested;
    loadError_ = 0;
    entry_ = 0;
    core().setFlag("pause", true);
    core().setText("force-media-title", nameIn(path));
    address_ = core().shelf().put(source_);
    core().command(idOf(Request::Load), {"loadfile", address_.c_str(), "replace"});
}

void MpvEngine::waitUntilLoaded(Steady::time_point deadline) {
    while (loading_ == Loading::Requested || loading_ == Loading::Opened) {
        const std::chrono::duration<double> rest = deadline - Steady::now();
        if (rest.count() <= 0) break;
        handle(core().wait(std::min(rest.count(), kFramePatience)));
        picture_->skip(); // the window's loop stands still
    }
    if (loading_ == Loading::Ready || loading_ == Loading::Failed) return;
    // Whatever it hangs in, a decoder that does not answer is no use for the next file.
    forget();
    dropCore();
    throwLoadError("The file could not be opened in time");
}

void MpvEngine::finishOpen() {
    if (loading_ == Loading::Failed) {
        const int error = loadError_;
        close();
        throwLoadError(std::string("The file cannot be played: ") + mpv_error_string(error));
    }
}

void MpvEngine::onLoadReply(const mpv_event &event) {
    if (event.error < 0 && loading_ == Loading::Ready) {
        seeking_ = Seeking::No;
        atEnd_ = true;
    } else if (event.error < 0) {
        loadError_ = event.error;
        loading_ = Loading::Failed;
    } else {
        const auto &reply = *static_cast<const mpv_event_command *>(event.data);
        entry_ = node::number(reply.result, "playlist_entry_id");
    }
}

// Opens the same source once more, at the place that was sought in vain. The decoder begins to look
// for it further ahead each time, and drops what comes before it.
void MpvEngine::reload() {
    constexpr double kStep = 0.7;
    std::string options;
    if (sought_ > 0)
        options = "start=" + plainNumber(sought_) + ",hr-seek-demuxer-offset=" + plainNumber(kStep * reloads_);
    unwatchEnd();
    ++serial_;
    ++reloads_;
    seeking_ = Seeking::Reloading;
    updateClock();
    clock_.set(sought_, Steady::now());
    if (balanceInserted_) applyBalance();
    core().command(idOf(Request::Load), {"loadfile", address_.c_str(), "replace", options.c_str()});
}

void MpvEngine::onFileLoaded() {
    if (entry_ == 0 || startedEntry_ != entry_) return;
    onSeekStep(Seeking::Reloading, Seeking::Running);
    if (loading_ != Loading::Requested) return;
    loading_ = Loading::Opened;
    seeking_ = Seeking::Running; // playback starts like after a seek
    factsMissing_ = hasPicture_ ? 4 : 3;
    core().ask(idOf(Request::Duration), "duration", MPV_FORMAT_DOUBLE);
    core().ask(idOf(Request::Format), "file-format", MPV_FORMAT_STRING);
    core().ask(idOf(Request::Tracks), "track-list", MPV_FORMAT_NODE);
}

void MpvEngine::onEndFile(const mpv_event_end_file &end) {
    if (entry_ == 0 || end.playlist_entry_id != entry_) return;
    if (loading_ == Loading::Ready) {
        // Failed on the way.
        seeking_ = Seeking::No;
        atEnd_ = true;
    } else {
        loadError_ = end.error < 0 ? end.error : MPV_ERROR_LOADING_FAILED;
        loading_ = Loading::Failed;
    }
}

} // namespace tonvale

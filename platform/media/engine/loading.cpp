// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Opening and closing files.

#include "platform/media/engine/MpvEngine.h"

#include "controls/Errors.h"
#include "platform/media/engine/plain_number.h"

#include <string_view>

namespace tonvale {

namespace {

constexpr const char *kWithPicture = "vid=auto";
constexpr const char *kRealMedia = "rm";

[[noreturn]] void throwLoadError(const std::string &description) {
    throw RuntimeError(ErrorNumber::AutomationError, description);
}

std::int64_t entryIn(const mpv_node &node) {
    if (node.format != MPV_FORMAT_NODE_MAP) return 0;
    const mpv_node_list &map = *node.u.list;
    for (int i = 0; i < map.num; ++i)
        if (std::string_view(map.keys[i]) == "playlist_entry_id" && map.values[i].format == MPV_FORMAT_INT64)
            return map.values[i].u.int64;
    return 0;
}

std::string nameIn(const std::string &path) { return path.substr(path.rfind('/') + 1); }

} // namespace

MpvCore &MpvEngine::core() {
    if (core_) return *core_;
    core_ = std::make_unique<MpvCore>(loop_, options_.outputs, [this] { drain(); });
    core_->observe(static_cast<std::uint64_t>(Request::Idle), "core-idle", MPV_FORMAT_FLAG);
    core_->observe(static_cast<std::uint64_t>(Request::Output), "current-ao", MPV_FORMAT_STRING);
    setVolume(volume_);
    return *core_;
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
    load(path, "");
    waitUntilLoaded(deadline);
    if (needsPicture()) {
        load(path, kWithPicture);
        waitUntilLoaded(deadline);
    }
    finishOpen();
}

// A film without sound runs by its picture, and in a Real film places are found by the picture alone.
bool MpvEngine::needsPicture() const {
    return loading_ == Loading::Failed ? loadError_ == MPV_ERROR_NOTHING_TO_PLAY : format_ == kRealMedia;
}

void MpvEngine::load(const std::string &path, const std::string &fileOptions) {
    loading_ = Loading::Requested;
    loadError_ = 0;
    entry_ = 0;
    core().setFlag("pause", true);
    core().setText("force-media-title", nameIn(path));
    fileOptions_ = fileOptions;
    address_ = core().shelf().put(source_);
    core().command(idOf(Request::Load), {"loadfile", address_.c_str(), "replace", fileOptions_.c_str()});
}

void MpvEngine::waitUntilLoaded(Steady::time_point deadline) {
    while (loading_ == Loading::Requested || loading_ == Loading::Opened) {
        const std::chrono::duration<double> rest = deadline - Steady::now();
        if (rest.count() <= 0) break;
        handle(core().wait(rest.count()));
    }
    if (loading_ == Loading::Ready || loading_ == Loading::Failed) return;
    // Whatever it hangs in, a decoder that does not answer is no use for the next file.
    forget();
    core_.reset();
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
        entry_ = entryIn(static_cast<const mpv_event_command *>(event.data)->result);
    }
}

// Opens the same source once more, at the place that was sought in vain. The decoder begins to look
// for it further ahead each time, and drops what comes before it.
void MpvEngine::reload() {
    constexpr double kStep = 0.7;
    std::string options = fileOptions_;
    if (sought_ > 0) {
        if (!options.empty()) options += ',';
        options += "start=" + plainNumber(sought_) + ",hr-seek-demuxer-offset=" + plainNumber(kStep * reloads_);
    }
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
    factsMissing_ = 2;
    core().ask(idOf(Request::Duration), "duration", MPV_FORMAT_DOUBLE);
    core().ask(idOf(Request::Format), "file-format", MPV_FORMAT_STRING);
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

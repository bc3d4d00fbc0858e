// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the decoder reports.

#include "platform/media/engine/MpvEngine.h"

#include <cmath>
#include <cstdio>
#include <mutex>
#include <string_view>
#include <utility>

namespace tonvale {

namespace {

constexpr std::uint64_t kRequestBits = 4;
constexpr std::uint64_t kRequestMask = (1u << kRequestBits) - 1;

constexpr const char *kSilentOutput = "null";
constexpr double kNear = 1; // seconds

// Nothing where the property is not there.
const mpv_node &nodeIn(const mpv_event_property &property) {
    static constexpr mpv_node kNone{};
    return property.format == MPV_FORMAT_NODE ? *static_cast<const mpv_node *>(property.data) : kNone;
}

void tellSilentOutput() {
    static std::once_flag told;
    std::call_once(told, [] {
        static_cast<void>(std::fputs("tonvale: no sound server or device found; playing silently\n", stderr));
    });
}

} // namespace

std::uint64_t MpvEngine::idOf(Request request) const {
    return serial_ << kRequestBits | static_cast<std::uint64_t>(request);
}

bool MpvEngine::isCurrent(std::uint64_t id) const { return id >> kRequestBits == serial_; }

void MpvEngine::drain() {
    while (core_) {
        const mpv_event &event = core_->wait(0);
        if (event.event_id == MPV_EVENT_NONE) break;
        handle(event);
    }
    // Each last, and through a copy: the engine may be gone afterwards.
    if (std::exchange(pictureChanged_, false)) {
        core().requestDrain();
        if (const auto changed = callbacks_.pictureChanged) changed();
        return;
    }
    if (!playing_ || !atEnd_ || seeking_ != Seeking::No) return;
    playing_ = false;
    finished_ = true;
    updateClock();
    if (const auto ended = callbacks_.ended) ended();
}

void MpvEngine::handle(const mpv_event &event) {
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY: onReply(event); break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
    case MPV_EVENT_PROPERTY_CHANGE: onValue(event); break;
    case MPV_EVENT_START_FILE:
        startedEntry_ = static_cast<const mpv_event_start_file *>(event.data)->playlist_entry_id;
        break;
    case MPV_EVENT_HOOK: onTracksFound(*static_cast<const mpv_event_hook *>(event.data)); break;
    case MPV_EVENT_FILE_LOADED: onFileLoaded(); break;
    case MPV_EVENT_END_FILE: onEndFile(*static_cast<const mpv_event_end_file *>(event.data)); break;
    case MPV_EVENT_SEEK: onSeekStep(Seeking::Accepted, Seeking::Running); break;
    case MPV_EVENT_PLAYBACK_RESTART: onSeekStep(Seeking::Running, Seeking::No); break;
    default: break;
    }
}

void MpvEngine::onReply(const mpv_event &event) {
    if (!isCurrent(event.reply_userdata)) return;
    switch (static_cast<Request>(event.reply_userdata & kRequestMask)) {
    case Request::Load: onLoadReply(event); break;
    case Request::Seek: onSeekStep(Seeking::Sent, event.error < 0 ? Seeking::No : Seeking::Accepted); break;
    case Request::Statistics: onStatistics(static_cast<const mpv_event_command *>(event.data)->result); break;
    default: break;
    }
}

void MpvEngine::onSeekStep(Seeking from, Seeking to) {
    if (seeking_ != from) return;
    seeking_ = to;
    if (to == Seeking::No) endSeek();
}

void MpvEngine::endSeek() {
    found_ = Steady::now();
    updateClock();
    askPosition();
    watchEnd();
    // The first frame is there now, or none will come.
    if (loading_ == Loading::Opened && hasPicture_) watchPicture();
}

void MpvEngine::unwatchEnd() {
    if (std::exchange(watchingEnd_, false)) core().unobserve(idOf(Request::End));
}

void MpvEngine::onEndState(bool atEnd) {
    if (atEnd && hasLostItsWay()) {
        reload();
        return;
    }
    atEnd_ = atEnd;
    updateClock();
}

// In some containers, Real media without an index above all, the decoder can look for a place and
// find itself at the end.
bool MpvEngine::hasLostItsWay() const {
    constexpr int kMostReloads = 4;
    return reloads_ < kMostReloads && sought_ < duration_ - kNear && isJustFound();
}

// A place that is far from the one that was sought, before the end there is reported.
bool MpvEngine::isAstray(double position) const {
    return isJustFound() && std::abs(position - clock_.at(Steady::now())) > kNear;
}

bool MpvEngine::isJustFound() const {
    constexpr std::chrono::milliseconds kAtOnce{300};
    return Steady::now() - found_ < kAtOnce;
}

// Watched anew after each seek: the first report is then the state after it, and a change there and
// back again between two reports cannot hide an end.
void MpvEngine::watchEnd() {
    watchingEnd_ = true;
    core().observe(idOf(Request::End), "eof-reached", MPV_FORMAT_FLAG);
}

void MpvEngine::onValue(const mpv_event &event) {
    const auto request = static_cast<Request>(event.reply_userdata & kRequestMask);
    const auto &property = *static_cast<const mpv_event_property *>(event.data);
    const bool isFlag = property.format == MPV_FORMAT_FLAG;
    const bool flag = isFlag && *static_cast<const int *>(property.data) != 0;
    if (request == Request::Idle) {
        idle_ = !isFlag || flag;
        updateClock();
        if (!idle_) askPosition();
    } else if (request == Request::Output) {
        if (options_.outputs != kSilentOutput && property.format == MPV_FORMAT_STRING &&
            std::string_view(*static_cast<const char *const *>(property.data)) == kSilentOutput)
            tellSilentOutput();
    } else if (request == Request::Picture) {
        if (event.reply_userdata == pictureWatch_) onPicture(nodeIn(property));
    } else if (isCurrent(event.reply_userdata)) {
        if (request == Request::Tracks) onTracks(nodeIn(property));
        if (request == Request::End && seeking_ == Seeking::No) onEndState(flag);
        if (request == Request::Format && property.format == MPV_FORMAT_STRING)
            format_ = *static_cast<const char *const *>(property.data);
        onNumber(request, property.format == MPV_FORMAT_DOUBLE ? *static_cast<const double *>(property.data) : -1);
    }
}

void MpvEngine::onNumber(Request request, double value) {
    if (request == Request::Position && seeking_ == Seeking::No && value >= 0 && !isAstray(value))
        clock_.correct(value, Steady::now());
    if (request == Request::Duration && value > 0 && !lengthMeasured_) duration_ = value;
    if (request == Request::Duration || request == Request::Format || request == Request::Tracks) onFact();
}

void MpvEngine::onFact() {
    if (loading_ == Loading::Opened && --factsMissing_ == 0) loading_ = Loading::Ready;
}

void MpvEngine::updateClock() {
    clock_.setRunning(playing_ && !idle_ && !atEnd_ && seeking_ == Seeking::No, Steady::now());
}

void MpvEngine::askPosition() const {
    if (!core_ || loading_ != Loading::Ready) return;
    positionAsked_ = Steady::now();
    core_->ask(idOf(Request::Position), "time-pos", MPV_FORMAT_DOUBLE);
}

} // namespace tonvale

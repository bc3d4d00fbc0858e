// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/MediaPlayer.h"

#include "controls/Errors.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tonvale {

namespace {

constexpr std::int32_t kSilent = -10000;
constexpr std::int32_t kBalanceRange = 10000;

} // namespace

MediaPlayer::MediaPlayer(MediaServices services)
    : services_(std::move(services)), self_(std::make_shared<MediaPlayer *>(this)) {}

MediaPlayer::~MediaPlayer() {
    if (std::exchange(*self_, nullptr)) goingAway();
}

MediaEngine &MediaPlayer::engine() {
    if (!engine_) {
        if (!services_.makeEngine) throw RuntimeError(ErrorNumber::CantCreateObject);
        MediaEngine::Callbacks callbacks;
        callbacks.ended = [self = self_] {
            if (*self) (*self)->onEnded();
        };
        callbacks.pictureChanged = [self = self_] {
            if (*self) (*self)->onPictureChanged();
        };
        engine_ = services_.makeEngine(std::move(callbacks));
        engine_->setVolume(volume_);
        engine_->setBalance(balance_);
    }
    return *engine_;
}

void MediaPlayer::close() {
    if (fileName_.empty()) return;
    fileName_.clear();
    setState(PlayState::Stopped);
    engine().close();
    fileChanged();
}

void MediaPlayer::FileName(std::string path) {
    const auto self = self_;
    if (!*self) throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    close();
    settle();
    if (!*self) throw RuntimeError(ErrorNumber::ObjectVariableNotSet); // shut down by whom the stop was told
    close();                                                           // what has been opened meanwhile
    if (path.empty()) return;
    engine().open(path);
    fileName_ = std::move(path);
    const std::uint64_t file = ++opened_;
    fitControl();
    fileChanged();
    const auto tellOpened = [this, self, file] {
        const auto isStillOpen = [this, self, file] { return *self && file == opened_ && !fileName_.empty(); };
        if (isStillOpen()) OpenStateChange(OpenState::Closed, OpenState::Open);
        if (isStillOpen()) ReadyStateChange(kReadyStateComplete);
    };
    post({{}, tellOpened});
    if (AutoStart) Play();
}

void MediaPlayer::Play() {
    if (fileName_.empty() || state_ == PlayState::Playing) return;
    engine().play();
    setState(PlayState::Playing);
    withdrawStops();
}

void MediaPlayer::Pause() {
    if (fileName_.empty() || state_ != PlayState::Playing) return;
    engine().pause();
    setState(PlayState::Paused);
}

void MediaPlayer::Stop() {
    if (fileName_.empty()) return;
    engine().stop();
    setState(PlayState::Stopped);
}

void MediaPlayer::onEnded() {
    if (state_ != PlayState::Stopped) Stop();
}

void MediaPlayer::shutDown() {
    waiting_.clear();
    fileName_.clear();
    state_ = PlayState::Stopped;
    if (std::exchange(*self_, nullptr)) goingAway();
    hold_.reset();
    engine_.reset();
}

PictureSize MediaPlayer::pictureSize() const { return fileName_.empty() ? PictureSize{} : engine_->pictureSize(); }

void MediaPlayer::DisplaySize(std::int32_t size) {
    displaySize_ = size;
    fitControl();
}

namespace {

struct Extent {
    double width = 0, height = 0; // twips
};

// The largest of this shape within `area`.
Extent within(Extent picture, Extent area) {
    const double scale = std::min(area.width / picture.width, area.height / picture.height);
    return {picture.width * scale, picture.height * scale};
}

Extent scaled(Extent extent, double factor) { return {extent.width * factor, extent.height * factor}; }

} // namespace

void MediaPlayer::fitControl() {
    const PictureSize size = pictureSize();
    if (size.isEmpty()) return;
    const Extent picture{size.width * kTwipsPerPixel, size.height * kTwipsPerPixel};
    const Extent screen{services_.screen.width(), services_.screen.height()};
    const auto share = [&](double area) { return within(picture, scaled(screen, std::sqrt(area))); };
    Extent shown = picture;
    switch (displaySize_) {
    case display_size::kHalf: shown = scaled(picture, 0.5); break;
    case display_size::kDouble: shown = scaled(picture, 2); break;
    case display_size::kFullScreen: shown = share(1); break;
    case display_size::kOneSixteenthScreen: shown = share(1.0 / 16); break;
    case display_size::kOneFourthScreen: shown = share(1.0 / 4); break;
    case display_size::kOneHalfScreen: shown = share(1.0 / 2); break;
    default: break;
    }
    Width = std::round(shown.width);
    Height = std::round(shown.height);
}

void MediaPlayer::onPictureChanged() {
    fitControl();
    updateHold();
}

void MediaPlayer::updateHold() {
    const bool moves = state_ == PlayState::Playing && !pictureSize().isEmpty();
    if (moves == (hold_ != nullptr)) return;
    hold_ = moves ? services_.screenSaver.holdOff() : nullptr;
}

void MediaPlayer::userPressedEscape() { FullScreenMode = false; }

void MediaPlayer::userClickedFullScreen() {
    CurrentPosition(0);
    Play();
}

void MediaPlayer::checkOpen() const {
    if (fileName_.empty()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

double MediaPlayer::Duration() const {
    checkOpen();
    return engine_->duration();
}

double MediaPlayer::CurrentPosition() const {
    checkOpen();
    return engine_->position();
}

void MediaPlayer::CurrentPosition(double seconds) {
    if (!fileName_.empty()) engine_->seek(seconds);
}

void MediaPlayer::Volume(std::int32_t volume) {
    if (volume < kSilent || volume > 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    volume_ = volume;
    if (engine_) engine_->setVolume(volume);
}

void MediaPlayer::Balance(std::int32_t balance) {
    if (balance < -kBalanceRange || balance > kBalanceRange) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    balance_ = balance;
    if (engine_) engine_->setBalance(balance);
}

void MediaPlayer::setState(PlayState state) {
    if (state == state_) return;
    const PlayState old = std::exchange(state_, state);
    updateHold();
    post({StateChange{old, state}, {}});
}

void MediaPlayer::post(Notification notification) {
    if (!*self_) return;
    waiting_.push_back(std::move(notification));
    services_.loop.post([self = self_] {
        if (*self) (*self)->deliverNext();
    });
}

// What has been delivered already or withdrawn leaves its turn in the loop to a later one, or to none.
void MediaPlayer::deliverNext() {
    if (waiting_.empty()) return;
    const Notification next = std::move(waiting_.front());
    waiting_.pop_front();
    if (next.change)
        PlayStateChange(next.change->from, next.change->to);
    else
        next.other();
}

bool MediaPlayer::stopWaits() const {
    return std::any_of(waiting_.begin(), waiting_.end(), [](const Notification &next) { return next.isStop(); });
}

void MediaPlayer::settle() {
    const auto self = self_;
    while (*self && stopWaits()) deliverNext();
}

// The changes around such a stop become one, or none.
void MediaPlayer::withdrawStops() {
    if (!stopWaits()) return;
    const auto isChange = [](const Notification &next) { return next.change.has_value(); };
    const auto first = std::find_if(waiting_.begin(), waiting_.end(), isChange);
    first->change->to = state_;
    waiting_.erase(std::remove_if(first + 1, waiting_.end(), isChange), waiting_.end());
    std::erase_if(waiting_,
                  [](const Notification &next) { return next.change && next.change->from == next.change->to; });
}

} // namespace tonvale

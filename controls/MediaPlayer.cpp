// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/MediaPlayer.h"

#include "controls/Errors.h"

#include <algorithm>
#include <utility>

namespace tonvale {

namespace {

constexpr std::int32_t kSilent = -10000;
constexpr std::int32_t kBalanceRange = 10000;

} // namespace

MediaPlayer::MediaPlayer(EventLoop &loop, MediaEngineFactory factory)
    : loop_(loop), factory_(std::move(factory)), self_(std::make_shared<MediaPlayer *>(this)) {}

MediaPlayer::~MediaPlayer() { *self_ = nullptr; }

MediaEngine &MediaPlayer::engine() {
    if (!engine_) {
        if (!factory_) throw RuntimeError(ErrorNumber::CantCreateObject);
        MediaEngine::Callbacks callbacks;
        callbacks.ended = [self = self_] {
            if (*self) (*self)->onEnded();
        };
        engine_ = factory_(std::move(callbacks));
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
}

void MediaPlayer::FileName(std::string path) {
    if (!*self_) throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    close();
    settle();
    if (path.empty()) return;
    engine().open(path);
    fileName_ = std::move(path);
    const std::uint64_t file = ++opened_;
    const auto tellOpened = [this, file] {
        if (file == opened_ && !fileName_.empty()) OpenStateChange(OpenState::Closed, OpenState::Open);
    };
    post(tellOpened, false);
    if (AutoStart) Play();
}

void MediaPlayer::Play() {
    settle();
    if (fileName_.empty() || state_ == PlayState::Playing) return;
    engine().play();
    setState(PlayState::Playing);
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
    *self_ = nullptr;
    waiting_.clear();
    fileName_.clear();
    state_ = PlayState::Stopped;
    engine_.reset();
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
    post([this, old, state] { PlayStateChange(old, state); }, state == PlayState::Stopped);
}

void MediaPlayer::post(std::function<void()> notify, bool isStop) {
    if (!*self_) return;
    waiting_.push_back({std::move(notify), isStop});
    loop_.post([self = self_] {
        if (*self) (*self)->deliverNext();
    });
}

// What settle() has delivered already leaves its turn in the loop to a later one, or to none.
void MediaPlayer::deliverNext() {
    if (waiting_.empty()) return;
    const Notification next = std::move(waiting_.front());
    waiting_.pop_front();
    next.notify();
}

void MediaPlayer::settle() {
    const auto isStop = [](const Notification &notification) { return notification.isStop; };
    while (std::any_of(waiting_.begin(), waiting_.end(), isStop)) deliverNext();
}

} // namespace tonvale

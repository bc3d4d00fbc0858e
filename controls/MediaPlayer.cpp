// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/MediaPlayer.h"

#include "controls/Errors.h"

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
    engine().close();
    setState(PlayState::Stopped);
}

void MediaPlayer::FileName(const std::string &path) {
    close();
    if (path.empty()) return;
    engine().open(path);
    fileName_ = path;
    postNotification([this] { OpenStateChange(OpenState::Closed, OpenState::Open); });
    if (AutoStart) Play();
}

void MediaPlayer::Play() {
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
    if (fileName_.empty() || state_ == PlayState::Stopped) return;
    engine().stop();
    setState(PlayState::Stopped);
}

double MediaPlayer::Duration() const { return fileName_.empty() ? 0 : engine_->duration(); }

double MediaPlayer::CurrentPosition() const { return fileName_.empty() ? 0 : engine_->position(); }

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
    postNotification([this, old, state] { PlayStateChange(old, state); });
}

void MediaPlayer::postNotification(std::function<void()> notify) {
    loop_.post([self = self_, notify = std::move(notify)] {
        if (*self) notify();
    });
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MpvEngine.h"

#include "platform/media/engine/plain_number.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tonvale {

namespace {

constexpr double kVolumeRange = 10000;
constexpr double kBalanceRange = 10000;
constexpr const char *kBalanceLabel = "balance";

} // namespace

MpvEngine::MpvEngine(EventLoop &loop, Callbacks callbacks, Options options)
    : loop_(loop), callbacks_(std::move(callbacks)), options_(std::move(options)) {}

MpvEngine::~MpvEngine() { dropCore(); }

void MpvEngine::close() {
    if (loading_ == Loading::Idle) return;
    forget();
    core().command(0, {"stop"});
    core().shelf().clear();
}

void MpvEngine::play() {
    if (loading_ != Loading::Ready) return;
    if (finished_) seek(0);
    playing_ = true;
    core().setFlag("pause", false);
    // There is no event for an end that was reached before.
    if (atEnd_) core().requestDrain();
    updateClock();
}

void MpvEngine::pause() {
    if (loading_ != Loading::Ready) return;
    playing_ = false;
    core().setFlag("pause", true);
    updateClock();
    askPosition();
}

void MpvEngine::stop() {
    if (loading_ != Loading::Ready) return;
    playing_ = false;
    core().setFlag("pause", true);
    seek(0);
}

// Measuring reads the whole file, so it waits until the sound has begun and the length is asked for.
double MpvEngine::duration() const {
    if (!lengthAsked_ && source_) {
        lengthAsked_ = true;
        const double seconds = source_->measuredDuration(format_);
        lengthMeasured_ = seconds > 0;
        if (lengthMeasured_) duration_ = seconds;
    }
    return duration_;
}

double MpvEngine::position() const {
    if (loading_ != Loading::Ready) return 0;
    constexpr std::chrono::milliseconds kReportInterval{1000};
    const auto now = Steady::now();
    if (clock_.isRunning() && now - positionAsked_ > kReportInterval) askPosition();
    const double seconds = std::max(0.0, clock_.at(now));
    const double end = duration();
    return end > 0 ? std::min(seconds, end) : seconds;
}

void MpvEngine::seek(double seconds) {
    if (loading_ != Loading::Ready || std::isnan(seconds)) return;
    const double end = duration();
    const double target = std::max(0.0, end > 0 ? std::min(seconds, end) : seconds);
    unwatchEnd();
    atEnd_ = finished_ = false;
    reloads_ = 0;
    ++serial_;
    sought_ = target;
    seeking_ = Seeking::Sent;
    updateClock();
    clock_.set(target, Steady::now());
    core().command(idOf(Request::Seek), {"seek", plainNumber(target).c_str(), "absolute+exact"});
}

// The library's gain is the cube of its volume. That is close to how loudness is heard: half way up
// sounds about half as loud, and there is no jump at the quiet end. 0 is a gain of nothing.
void MpvEngine::setVolume(std::int32_t volume) {
    volume_ = volume;
    constexpr double kPercent = 100;
    if (core_) core_->setNumber("volume", (volume + kVolumeRange) / kVolumeRange * kPercent);
}

// A standing filter is told by command, which leaves no gap. The command's result says nothing: the
// library answers for the last part of the filter, which has no balance.
void MpvEngine::setBalance(std::int32_t balance) {
    balance_ = balance;
    if (!core_ || (balance == 0 && !balanceInserted_)) return;
    const bool isStanding = balanceInserted_ && loading_ == Loading::Ready && seeking_ == Seeking::No;
    if (isStanding)
        core_->command(0, {"af-command", kBalanceLabel, "balance_out", plainNumber(balance / kBalanceRange).c_str()});
    else
        applyBalance();
}

// Lowers the far side in step with the balance and leaves the near one as it is. What is not stereo
// is made so first: mono at its full level on both sides, more channels mixed down. The filter is
// put in when it is first wanted, since that can be heard, and then stays for the rest of the file.
void MpvEngine::applyBalance() {
    balanceInserted_ = balance_ != 0;
    std::string filters;
    if (balanceInserted_)
        filters = std::string("@") + kBalanceLabel +
                  ":lavfi=[pan=stereo|FL<FL+0.7FC+0.7BL+0.7SL|FR<FR+0.7FC+0.7BR+0.7SR,stereotools=balance_out=" +
                  plainNumber(balance_ / kBalanceRange) + "]";
    core().setText("af", filters);
}

} // namespace tonvale

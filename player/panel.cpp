// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1.h"

#include "controls/Numbers.h"
#include "player/media_kinds.h"

#include <cmath>
#include <string_view>

namespace tonvale {

namespace {

constexpr double kSecondsPerMinute = 60, kMinutesPerHour = 60;
constexpr int kGaugeFloor = 30, kGaugeSpread = 71; // the bar dances from 30 to 100

std::string counted(double count, std::string_view word, std::string_view shortWord, bool shortForm) {
    std::string text = formatDigits(count, 1);
    text += shortForm ? shortWord : word;
    if (!shortForm && count != 1) text += 's';
    return text;
}

} // namespace

void Form1::ConvertSeconds(std::int32_t seconds, bool clockForm, bool shortForm, std::string &text) {
    const double a = seconds / kSecondsPerMinute / kMinutesPerHour;
    const double hours = std::trunc(a);
    const double b = (a - hours) * kMinutesPerHour;
    const double minutes = std::trunc(b);
    // Rounded and not carried on: a value that falls just short of a minute reads 60 seconds.
    const double secs = roundEven((b - minutes) * kSecondsPerMinute);
    HourText = formatDigits(hours, 2);
    MinuteText = formatDigits(minutes, 2);
    SecondText = formatDigits(secs, 2);
    if (clockForm) {
        text = HourText + ":" + MinuteText + ":" + SecondText;
    } else {
        text = counted(hours, " hour", " hr ", shortForm) + (shortForm ? "" : " ") +
               counted(minutes, " minute", " min ", shortForm) + (shortForm ? "" : " ") +
               counted(secs, " second", " sec", shortForm);
    }
}

void Form1::showDigits(std::array<LedDigit, 2> &group, const std::string &digits) {
    attempt([&] { group[0].Value = toInt32(numericPrefix(digits.substr(0, 1))); });
    attempt([&] { group[1].Value = toInt32(numericPrefix(digits.substr(digits.size() - 1))); });
}

void Form1::danceGauge() {
    MMLEDGaugeX1.Position = static_cast<std::int32_t>(app_.services.random.next() * kGaugeSpread) + kGaugeFloor;
}

// Its result is used for nothing; what counts is that the timer shows a running engine.
void Form1::Timer1_Timer() {
    attempt([&] {
        const double length = ActiveMovie1.Duration() - ActiveMovie1.SelectionStart();
        static_cast<void>(roundEven(ActiveMovie1.CurrentPosition() / length * 100));
    });
}

void Form1::Timer2_Timer() { danceGauge(); }

void Form1::Timer3_Timer() {
    CDR_Timer.Enabled(false);
    TrackerBusy = true;
    attempt([&] { slidTracker.Value(toInt32(ActiveMovie1.CurrentPosition())); });
    danceGauge();
    TrackerBusy = false;
}

void Form1::CDR_Timer_Timer() {
    attempt([&] {
        const auto seconds = [&](CdTime time) { return CDReader->ToFrames(time) / kCdFramesPerSecond; };
        SetTrackerFromCD(subtract32(seconds(CDReader->PlayPosition()), seconds(currentCdTrack().StartTime)));
    });
}

void Form1::SetTrackerFromCD(std::int32_t value) {
    CDTrackerBusy = true;
    slidTracker.Value(value);
    CDTrackerBusy = false;
}

void Form1::slidTracker_Change() {
    std::string discarded;
    ConvertSeconds(slidTracker.Value(), true, true, discarded);
    showDigits(CurPosLEDHour, HourText);
    showDigits(CurPosLEDMinute, MinuteText);
    showDigits(CurPosLEDSecond, SecondText);
    // CDTrackerBusy is not looked at: a CD's tick writes the idle engine's position, too.
    if (!TrackerBusy) attempt([&] { ActiveMovie1.CurrentPosition(slidTracker.Value()); });
    if (app_.paths.ParsePath(Text1.Text, "e") != media::kCdTrack) return;
    attempt([&] { CurrentTrack = trackOf(Text1.Text); });
    if (slidTracker.Value() == slidTracker.Max) PlayStopped(); // the CD itself plays on
}

} // namespace tonvale

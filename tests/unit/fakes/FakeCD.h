// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/CDReader.h"
#include "controls/Errors.h"
#include "tests/unit/fakes/CallLog.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tonvale::test {

// The CD drive as a test sees it. Times have a form of their own, which only ToFrames reads.
class FakeCD {
public:
    explicit FakeCD(CallLog &log) : log_(log) {}

    static constexpr std::int32_t kFramesPerSecond = 75;
    static CdTime fromFrames(std::int32_t frames) { return CdTime{frames + kHidden}; }
    static std::int32_t frames(CdTime time) { return static_cast<std::int32_t>(time) - kHidden; }

    std::function<bool()> ready = [] { return true; };
    bool directoryReadable = true;
    std::vector<CdTrack> tracks;
    CdTime position = fromFrames(0);
    std::int32_t device = 0;
    bool openFails = false;
    tonvale::DriveState state = tonvale::DriveState::Idle;
    CDReader *reader = nullptr; // the last one made

    // Adds a track right behind the last one.
    void addTrack(std::int32_t lengthFrames) {
        std::int32_t start = 0;
        for (const CdTrack &track : tracks) start += frames(track.PlayTime);
        const auto number = static_cast<std::int32_t>(tracks.size()) + 1;
        tracks.push_back({number, fromFrames(start), fromFrames(lengthFrames), true, false, false});
    }

    [[nodiscard]] std::function<std::unique_ptr<CDReader>()> factory() {
        return [this] {
            auto made = std::make_unique<Reader>(*this);
            reader = made.get();
            return made;
        };
    }

private:
    static constexpr std::int32_t kHidden = 1000003;

    class Reader : public CDReader {
    public:
        explicit Reader(FakeCD &cd) : cd_(cd) {}
        [[nodiscard]] std::int32_t DeviceID() const override { return cd_.device; }
        void DeviceID(std::int32_t index) override {
            cd_.log_.add("cd.DeviceID " + std::to_string(index));
            cd_.device = index;
        }
        void OpenDevice() override {
            cd_.log_.add("cd.OpenDevice");
            if (cd_.openFails) throw RuntimeError(ErrorNumber::DeviceIOError);
        }
        void CloseDevice() override { cd_.log_.add("cd.CloseDevice"); }
        [[nodiscard]] bool DiscReady() override { return cd_.ready(); }
        [[nodiscard]] bool ReadDirectory() override {
            cd_.log_.add("cd.ReadDirectory");
            return cd_.directoryReadable;
        }
        [[nodiscard]] const std::vector<CdTrack> &Tracks() const override { return cd_.tracks; }
        [[nodiscard]] std::int32_t ToFrames(CdTime time) const override { return frames(time); }
        void PlayTrack(std::int32_t index) override {
            cd_.log_.add("cd.PlayTrack " + std::to_string(index));
            if (index < 0 || static_cast<std::size_t>(index) >= cd_.tracks.size())
                throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        }
        void PlayRange(CdTime start, CdTime playTime) override {
            cd_.log_.add("cd.PlayRange " + std::to_string(frames(start)) + " " + std::to_string(frames(playTime)));
        }
        void PausePlay() override { cd_.log_.add("cd.PausePlay"); }
        void ResumePlay() override { cd_.log_.add("cd.ResumePlay"); }
        [[nodiscard]] tonvale::DriveState DriveState() override { return cd_.state; }
        void StopPlay() override { cd_.log_.add("cd.StopPlay"); }
        [[nodiscard]] CdTime PlayPosition() override {
            cd_.log_.add("cd.PlayPosition");
            return cd_.position;
        }

    private:
        FakeCD &cd_;
    };

    CallLog &log_;
};

} // namespace tonvale::test

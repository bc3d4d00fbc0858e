// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Signal.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tonvale {

// A time on a CD in the reader's own form; only CDReader::ToFrames reads it. A frame is 1/75 s.
enum class CdTime : std::int32_t {};
inline constexpr std::int32_t kCdFramesPerSecond = 75;

struct CdTrack {
    std::int32_t TrackNumber = 0; // on the disc, from 1
    CdTime StartTime{};
    CdTime PlayTime{};
    bool IsAudio = true;
    bool CopyProtected = false;
    bool PreEmphasis = false;
};

enum class DriveState : std::int32_t { NoDrive = 0, Idle = 1, Playing = 2, Paused = 4, TrayOpen = 5 };

// A CD drive. Failures are thrown as RuntimeError.
class CDReader {
public:
    CDReader() = default;
    virtual ~CDReader() = default;
    CDReader(const CDReader &) = delete;
    CDReader &operator=(const CDReader &) = delete;

    Event<> CopyFinished, CopyBroken, PlayFinished;

    [[nodiscard]] virtual std::int32_t DeviceID() const = 0;
    virtual void DeviceID(std::int32_t index) = 0; // zero-based index of the drive
    virtual void OpenDevice() = 0;
    virtual void CloseDevice() = 0; // harmless when closed
    [[nodiscard]] virtual bool DiscReady() = 0;
    // Reads the table of contents into Tracks; false when it cannot be read.
    [[nodiscard]] virtual bool ReadDirectory() = 0;
    [[nodiscard]] virtual const std::vector<CdTrack> &Tracks() const = 0;
    [[nodiscard]] virtual std::int32_t ToFrames(CdTime time) const = 0;
    virtual void PlayTrack(std::int32_t index) = 0; // zero-based; plays on past the track's end
    virtual void PlayRange(CdTime start, CdTime playTime) = 0;
    virtual void PausePlay() = 0;
    virtual void ResumePlay() = 0;
    virtual void StopPlay() = 0;
    [[nodiscard]] virtual CdTime PlayPosition() = 0;
    [[nodiscard]] virtual tonvale::DriveState DriveState() = 0;
};

// A machine without a reader: never ready, nothing to stop.
class AbsentCDReader : public CDReader {
public:
    [[nodiscard]] std::int32_t DeviceID() const override { return deviceId_; }
    void DeviceID(std::int32_t index) override { deviceId_ = index; }
    void OpenDevice() override;
    void CloseDevice() override {}
    [[nodiscard]] bool DiscReady() override { return false; }
    [[nodiscard]] bool ReadDirectory() override { return false; }
    [[nodiscard]] const std::vector<CdTrack> &Tracks() const override { return tracks_; }
    [[nodiscard]] std::int32_t ToFrames(CdTime time) const override { return static_cast<std::int32_t>(time); }
    void PlayTrack(std::int32_t index) override;
    void PlayRange(CdTime start, CdTime playTime) override;
    void PausePlay() override {}
    void ResumePlay() override {}
    void StopPlay() override {}
    [[nodiscard]] CdTime PlayPosition() override { return CdTime{}; }
    [[nodiscard]] tonvale::DriveState DriveState() override { return tonvale::DriveState::NoDrive; }

private:
    std::int32_t deviceId_ = 0;
    std::vector<CdTrack> tracks_;
};

} // namespace tonvale

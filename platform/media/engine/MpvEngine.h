// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Loop.h"
#include "controls/MediaPlayer.h"
#include "platform/media/engine/MediaSource.h"
#include "platform/media/engine/MpvCore.h"
#include "platform/media/engine/MpvPicture.h"
#include "platform/media/engine/PlaybackClock.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tonvale {

// Plays through libmpv. All of it belongs to the user-interface thread; the decoder's threads do no
// more than ring for the events to be fetched.
class MpvEngine final : public MediaEngine {
public:
    struct Options {
        std::string outputs = "pulse,alsa,null";
        std::chrono::milliseconds openTimeout{10'000};
        std::function<std::shared_ptr<MediaSource>(const std::string &path)> openSource = openMediaSource;
    };

    MpvEngine(EventLoop &loop, Callbacks callbacks, Options options);
    ~MpvEngine() override;
    MpvEngine(const MpvEngine &) = delete;
    MpvEngine &operator=(const MpvEngine &) = delete;

    void open(const std::string &path) override;
    void close() override;
    void play() override;
    void pause() override;
    void stop() override;
    [[nodiscard]] double duration() const override;
    [[nodiscard]] double position() const override;
    void seek(double seconds) override;
    void setVolume(std::int32_t volume) override;
    void setBalance(std::int32_t balance) override;
    [[nodiscard]] PictureSize pictureSize() const override { return pictureSize_; }
    [[nodiscard]] std::shared_ptr<PictureSource> picture() override { return picture_; }
    [[nodiscard]] MediaSettings settings() const override { return settings_; }
    void setSettings(const MediaSettings &settings) override;
    [[nodiscard]] std::vector<MediaTrack> tracks() const override { return tracks_; }
    [[nodiscard]] MediaStatistics statistics() const override;

private:
    using Steady = PlaybackClock::Steady;

    enum class Loading { Idle, Requested, Opened, Ready, Failed };
    // A seek is over with the restart that follows the seek event that follows its reply.
    // Where it leads nowhere, the file is loaded again instead.
    enum class Seeking { No, Sent, Accepted, Running, Reloading };
    // What an event answers, besides the serial number of the open or seek that it belongs to.
    enum class Request : std::uint64_t {
        None,
        Load,
        Seek,
        Duration,
        Format,
        Tracks,
        Picture,
        Position,
        End,
        Idle,
        Output,
        Statistics
    };

    // loading.cpp
    MpvCore &core();
    void dropCore();
    void load(const std::string &path);
    void waitUntilLoaded(Steady::time_point deadline);
    void finishOpen();
    void reload();
    void forget();
    void onLoadReply(const mpv_event &event);
    void onFileLoaded();
    void onEndFile(const mpv_event_end_file &end);

    // events.cpp
    void drain();
    void handle(const mpv_event &event);
    void onReply(const mpv_event &event);
    void onValue(const mpv_event &event);
    void onNumber(Request request, double value);
    void onFact();
    void onSeekStep(Seeking from, Seeking to);
    void endSeek();
    void watchEnd();
    void unwatchEnd();
    void onEndState(bool atEnd);
    [[nodiscard]] bool hasLostItsWay() const;
    [[nodiscard]] bool isAstray(double position) const;
    [[nodiscard]] bool isJustFound() const;
    void updateClock();
    void askPosition() const;
    [[nodiscard]] std::uint64_t idOf(Request request) const;
    [[nodiscard]] bool isCurrent(std::uint64_t id) const;

    void applyBalance();

    // picture_and_settings.cpp
    void onTracksFound(const mpv_event_hook &hook);
    void watchPicture();
    void forgetPicture();
    void onPicture(const mpv_node &parameters);
    void onTracks(const mpv_node &list);
    void onStatistics(const mpv_node &reply);
    void restoreSettings();
    void apply(const MediaSettings &settings);

    EventLoop &loop_;
    const Callbacks callbacks_;
    const Options options_;
    std::unique_ptr<MpvCore> core_; // made at the first file, and anew after one that hung

    std::shared_ptr<MediaSource> source_;
    Loading loading_ = Loading::Idle;
    int loadError_ = 0;
    std::string address_;
    std::int64_t entry_ = 0, startedEntry_ = 0;
    int factsMissing_ = 0;
    std::string format_;
    mutable double duration_ = 0;
    mutable bool lengthAsked_ = false, lengthMeasured_ = false; // of the source, where the container is vague

    std::uint64_t serial_ = 0;
    Seeking seeking_ = Seeking::No;
    double sought_ = 0;
    Steady::time_point found_{};
    int reloads_ = 0; // in this seek
    bool watchingEnd_ = false;
    bool playing_ = false;
    bool atEnd_ = false;
    bool finished_ = false; // the end has been reported
    bool idle_ = true;      // the decoder stands still
    PlaybackClock clock_;
    mutable Steady::time_point positionAsked_{};

    std::int32_t volume_ = 0;
    std::int32_t balance_ = 0;
    bool balanceInserted_ = false;

    std::shared_ptr<MpvPicture> picture_ = std::make_shared<MpvPicture>();
    bool hasPicture_ = false;        // a moving one, chosen to be played
    std::uint64_t pictureWatch_ = 0; // the id of its reports; 0: none are wanted
    bool pictureAwaited_ = false;    // the first of them
    std::int32_t rotation_ = 0;
    PictureSize pictureSize_;
    bool pictureChanged_ = false; // and has not been reported
    std::vector<MediaTrack> tracks_;
    MediaSettings settings_;
    MediaStatistics statistics_;
};

} // namespace tonvale

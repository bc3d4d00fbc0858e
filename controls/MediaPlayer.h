// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "controls/Loop.h"
#include "controls/MediaDetails.h"
#include "controls/Screen.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tonvale {

// What a media player control needs of a decoder and its sound output. Everything runs on the
// user-interface thread, the callbacks included.
class MediaEngine {
public:
    // The engine calls these from the loop, never from inside one of its operations.
    struct Callbacks {
        std::function<void()> ended;          // the media has played to its end, or failed on the way
        std::function<void()> pictureChanged; // pictureSize() has become another in mid-stream
    };

    virtual ~MediaEngine() = default;

    // Opens the file and is then ready to play from its start, silent. `path` is bytes. Returns
    // when the file is open; throws a RuntimeError with a description when it cannot be, or has
    // not been after 10 seconds. What was open before is closed in any case, and nothing is
    // called back for it any more.
    virtual void open(const std::string &path) = 0;
    virtual void close() = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    // Silent at once, and back at the start.
    virtual void stop() = 0;
    [[nodiscard]] virtual double duration() const = 0; // seconds, 0 if it has none
    [[nodiscard]] virtual double position() const = 0; // seconds
    virtual void seek(double seconds) = 0;             // exact; limited to the media
    virtual void setVolume(std::int32_t volume) = 0;   // -10000 (silent) to 0 (full)
    virtual void setBalance(std::int32_t balance) = 0; // -10000 (left alone) to 10000 (right alone)

    // Of the open media; a cover picture of a sound file does not count.
    [[nodiscard]] virtual PictureSize pictureSize() const = 0;
    // For a window to paint. One for the engine's life; it outlives the engine and shows nothing then.
    [[nodiscard]] virtual std::shared_ptr<PictureSource> picture() = 0;
    [[nodiscard]] virtual MediaSettings settings() const = 0;
    virtual void setSettings(const MediaSettings &settings) = 0;
    [[nodiscard]] virtual std::vector<MediaTrack> tracks() const = 0;
    [[nodiscard]] virtual MediaStatistics statistics() const = 0;
};

using MediaEngineFactory = std::function<std::unique_ptr<MediaEngine>(MediaEngine::Callbacks)>;

enum class PlayState : std::int32_t { Stopped = 0, Paused = 1, Playing = 2 };
enum class OpenState : std::int32_t { Closed = 0, Open = 6 };
enum class MediaDialog : std::int32_t { Statistics = 1, Options = 2 };

// What the control's picture measures: its own size, half and twice that, or the largest of its
// shape within the screen, or within this share of the screen's area.
namespace display_size {
inline constexpr std::int32_t kDefault = 0, kHalf = 1, kDouble = 2, kFullScreen = 3;
inline constexpr std::int32_t kOneSixteenthScreen = 5, kOneFourthScreen = 6, kOneHalfScreen = 7;
} // namespace display_size

inline constexpr std::int32_t kReadyStateComplete = 4;

// What a media player control needs of the machine.
struct MediaServices {
    EventLoop &loop;
    MediaEngineFactory makeEngine;
    Screen &screen;
    ScreenSaver &screenSaver;
};

// The media player control. Its engine is made at the first file. Notifications arrive from the
// loop, in the order in which their causes happened, each once. Two exceptions keep an old stop from
// being taken for a stop of what has been started since: stops that wait are delivered before a file
// is opened and by settle(), and a stop that is followed by Play before anybody has heard of it has
// never been.
class MediaPlayer : public Control {
public:
    explicit MediaPlayer(MediaServices services);
    ~MediaPlayer();

    Event<OpenState, OpenState> OpenStateChange;                          // old, new: a file has been opened
    Event<PlayState, PlayState> PlayStateChange;                          // old, new
    Event<std::int32_t> ReadyStateChange;                                 // 4: a file is open
    Event<std::int16_t, std::int16_t, double, double> MouseMove, MouseUp; // button, shift, x, y (twips)

    // Opens the file; throws RuntimeError. The empty text closes. With AutoStart it begins to play.
    void FileName(std::string path);
    [[nodiscard]] const std::string &FileName() const { return fileName_; }
    bool AutoStart = true;

    void Play(); // nothing happens when no file is open
    void Pause();
    void Stop(); // goes back to the start
    // Delivers now what waits in the loop, up to the last stop.
    void settle();
    // For a window that goes away: closes, and from now on neither opens nor notifies.
    void shutDown();
    [[nodiscard]] PlayState State() const { return state_; }

    [[nodiscard]] double Duration() const;                    // seconds; error 5 when no file is open
    [[nodiscard]] double CurrentPosition() const;             // the same
    void CurrentPosition(double seconds);                     // nothing happens when no file is open
    [[nodiscard]] double SelectionStart() const { return 0; } // seconds
    [[nodiscard]] std::int32_t Volume() const { return volume_; }
    void Volume(std::int32_t volume); // -10000 to 0, error 380 outside
    [[nodiscard]] std::int32_t Balance() const { return balance_; }
    void Balance(std::int32_t balance); // -10000 to 10000, error 380 outside

    // Sets the control's width and height while media with a picture is open.
    void DisplaySize(std::int32_t size);
    [[nodiscard]] std::int32_t DisplaySize() const { return displaySize_; }
    Property<bool> FullScreenMode{false}; // the picture covers the screen

    [[nodiscard]] PictureSize pictureSize() const; // 0 x 0 while none is open
    void ShowDialog(MediaDialog dialog) { dialogRequested(dialog); }

    // For the dialogs and the view.
    Signal<MediaDialog> dialogRequested;
    Signal<> fileChanged; // another file, or none, is open
    Signal<> goingAway;   // with its window: the view lets go of it
    [[nodiscard]] MediaEngine *openEngine() const { return fileName_.empty() ? nullptr : engine_.get(); }
    // What the user does to a picture that covers the screen.
    void userPressedEscape();
    void userClickedFullScreen();

private:
    MediaEngine &engine();
    void close();
    void fitControl();
    void updateHold();
    void onPictureChanged();
    void setState(PlayState state);
    void checkOpen() const;
    struct StateChange {
        PlayState from, to;
    };
    struct Notification {
        std::optional<StateChange> change;
        std::function<void()> other;
        [[nodiscard]] bool isStop() const { return change && change->to == PlayState::Stopped; }
    };
    void post(Notification notification);
    void deliverNext();
    [[nodiscard]] bool stopWaits() const;
    void withdrawStops();
    void onEnded();

    MediaServices services_;
    std::unique_ptr<MediaEngine> engine_;
    // Notifications that wait in the loop look here whether the control still exists.
    std::shared_ptr<MediaPlayer *> self_;
    std::deque<Notification> waiting_;
    std::string fileName_;
    std::uint64_t opened_ = 0; // counts the files, so that news of an older one can be told
    PlayState state_ = PlayState::Stopped;
    std::int32_t volume_ = 0, balance_ = 0;
    std::int32_t displaySize_ = display_size::kDefault;
    std::unique_ptr<ScreenSaver::Hold> hold_; // while a picture moves
};

} // namespace tonvale

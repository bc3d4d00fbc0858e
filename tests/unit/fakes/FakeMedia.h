// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"
#include "controls/MediaPlayer.h"
#include "tests/unit/fakes/CallLog.h"
#include "tests/unit/fakes/FakeLoop.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tonvale::test {

// The media engine as a test sees it: what files there are, and what was done to the engine.
class FakeMedia {
public:
    FakeMedia(CallLog &log, FakeLoop &loop) : log_(log), loop_(loop) {}

    std::map<std::string, double> durations; // seconds; a file that is not here has defaultDuration
    double defaultDuration = 100;
    std::set<std::string> broken;                // files that cannot be opened
    std::map<std::string, PictureSize> pictures; // a file that is not here has none
    MediaSettings settings;
    std::vector<MediaTrack> tracks;
    MediaStatistics statistics;
    double position = 0;
    std::int32_t volume = 0, balance = 0;
    std::string file; // what is open
    bool playing = false;
    int made = 0;

    // The media has come to its end.
    void finish() {
        playing = false;
        loop_.post([this] {
            if (callbacks_ && callbacks_->ended) callbacks_->ended();
        });
    }

    // The picture has become another in mid-stream.
    void changePicture(PictureSize size) {
        pictures[file] = size;
        loop_.post([this] {
            if (callbacks_ && callbacks_->pictureChanged) callbacks_->pictureChanged();
        });
    }

    [[nodiscard]] MediaEngineFactory factory() {
        return [this](MediaEngine::Callbacks callbacks) {
            ++made;
            callbacks_ = std::make_shared<MediaEngine::Callbacks>(std::move(callbacks));
            return std::make_unique<Engine>(*this, callbacks_);
        };
    }

private:
    class Engine : public MediaEngine {
    public:
        Engine(FakeMedia &media, std::shared_ptr<Callbacks> callbacks) : media_(media), callbacks_(callbacks) {}
        ~Engine() override {
            media_.log_.add("engine.destroyed");
            media_.file.clear();
            media_.playing = false;
            if (media_.callbacks_ == callbacks_) media_.callbacks_ = nullptr;
        }
        void open(const std::string &path) override { media_.open(path); }
        void close() override {
            media_.log_.add("engine.close");
            media_.file.clear();
            media_.playing = false;
        }
        void play() override {
            media_.log_.add("engine.play");
            media_.playing = true;
        }
        void pause() override {
            media_.log_.add("engine.pause");
            media_.playing = false;
        }
        void stop() override {
            media_.log_.add("engine.stop");
            media_.playing = false;
            media_.position = 0;
        }
        [[nodiscard]] double duration() const override { return media_.duration(); }
        [[nodiscard]] double position() const override { return media_.position; }
        void seek(double seconds) override {
            media_.log_.add("engine.seek " + std::to_string(static_cast<std::int64_t>(seconds)));
            media_.position = std::clamp(seconds, 0.0, media_.duration());
        }
        void setVolume(std::int32_t volume) override {
            media_.log_.add("engine.volume " + std::to_string(volume));
            media_.volume = volume;
        }
        void setBalance(std::int32_t balance) override {
            media_.log_.add("engine.balance " + std::to_string(balance));
            media_.balance = balance;
        }
        [[nodiscard]] PictureSize pictureSize() const override {
            const auto found = media_.pictures.find(media_.file);
            return found == media_.pictures.end() ? PictureSize{} : found->second;
        }
        [[nodiscard]] std::shared_ptr<PictureSource> picture() override { return nullptr; }
        [[nodiscard]] MediaSettings settings() const override { return media_.settings; }
        void setSettings(const MediaSettings &settings) override { media_.settings = settings; }
        [[nodiscard]] std::vector<MediaTrack> tracks() const override { return media_.tracks; }
        [[nodiscard]] MediaStatistics statistics() const override { return media_.statistics; }

    private:
        FakeMedia &media_;
        std::shared_ptr<Callbacks> callbacks_;
    };

    void open(const std::string &path) {
        log_.add("engine.open " + path);
        file.clear();
        playing = false;
        position = 0;
        if (broken.contains(path)) throw RuntimeError(ErrorNumber::AutomationError, "Cannot open the file");
        file = path;
    }
    [[nodiscard]] double duration() const {
        const auto found = durations.find(file);
        return found == durations.end() ? defaultDuration : found->second;
    }

    CallLog &log_;
    FakeLoop &loop_;
    std::shared_ptr<MediaEngine::Callbacks> callbacks_;
};

} // namespace tonvale::test

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/backend/media/MediaTest.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <vector>

namespace tonvale {

inline std::string film(const std::string &name) { return std::string(FILM_DIRECTORY "/") + name; }

inline void PrintTo(const PictureSize &size, std::ostream *out) { *out << size.width << 'x' << size.height; }

struct Colour {
    int red = 0, green = 0, blue = 0;
};

inline constexpr Colour kBlack{0, 0, 0}, kWhite{255, 255, 255}, kRed{255, 0, 0}, kGreen{0, 255, 0}, kBlue{0, 0, 255};

// Whether it is that colour but for what compression does to it.
inline bool isLike(Colour a, Colour b) {
    constexpr int kTolerance = 24;
    return std::abs(a.red - b.red) <= kTolerance && std::abs(a.green - b.green) <= kTolerance &&
           std::abs(a.blue - b.blue) <= kTolerance;
}

inline void PrintTo(const Colour &colour, std::ostream *out) {
    *out << '(' << colour.red << ',' << colour.green << ',' << colour.blue << ')';
}

#define EXPECT_COLOUR(actual, expected) EXPECT_PRED2(isLike, actual, expected)

// A window that paints what is due into memory, as the loop brings it.
class TestWindow {
public:
    TestWindow(TestLoop &loop, PictureSource &source, PictureSize size) : loop_(loop), source_(source) {
        resize(size);
        attached = source_.attach({[this] { ring(); }, {}});
    }
    ~TestWindow() { source_.detach(); }
    TestWindow(const TestWindow &) = delete;
    TestWindow &operator=(const TestWindow &) = delete;

    void resize(PictureSize size) {
        size_ = size;
        lineBlocks_ = (static_cast<std::size_t>(size.width) * 4 + sizeof(Block) - 1) / sizeof(Block);
        memory_.assign(lineBlocks_ * static_cast<std::size_t>(size.height), Block{});
    }
    bool paint() {
        ++painted;
        return source_.paint(PictureSource::Pixels{memory_.data(), lineBlocks_ * sizeof(Block), size_});
    }
    [[nodiscard]] Colour at(int x, int y) const {
        const auto *line =
            reinterpret_cast<const std::uint8_t *>(memory_.data() + lineBlocks_ * static_cast<std::size_t>(y));
        const std::uint8_t *pixel = line + 4 * x;
        return {pixel[2], pixel[1], pixel[0]};
    }
    bool becomes(const std::function<bool()> &condition) { return loop_.runUntil(condition); }
    // Whether the four colours come into these corners of the window.
    bool showsQuadrants(int left, int top, int width, int height) {
        const auto corner = [=, this](int x, int y) { return at(left + width * x / 4, top + height * y / 4); };
        return becomes([&] {
            return isLike(corner(1, 1), kRed) && isLike(corner(3, 1), kGreen) && isLike(corner(1, 3), kBlue) &&
                   isLike(corner(3, 3), kWhite);
        });
    }

    bool attached = false;
    bool hidden = false; // takes the frames without painting them
    int painted = 0;

private:
    struct alignas(64) Block {
        std::array<std::uint8_t, 64> bytes;
    };

    void ring() {
        loop_.post([this, alive = std::weak_ptr(alive_)] {
            if (!alive.lock()) return;
            if (hidden)
                source_.skip();
            else
                static_cast<void>(paint());
        });
    }

    TestLoop &loop_;
    PictureSource &source_;
    PictureSize size_;
    std::size_t lineBlocks_ = 0;
    std::vector<Block> memory_;
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

class FilmTest : public MediaTest {
protected:
    FilmTest() { makeEngine(); }
    ~FilmTest() override { window.reset(); }

    void makeEngine() {
        MediaEngine::Callbacks callbacks;
        callbacks.ended = [this] { ++ended; };
        callbacks.pictureChanged = [this] { changes.push_back(engine->pictureSize()); };
        engine = std::make_unique<MpvEngine>(loop, callbacks, options);
        source = engine->picture();
    }
    TestWindow &show(PictureSize size) {
        window.reset();
        window = std::make_unique<TestWindow>(loop, *source, size);
        return *window;
    }

    std::shared_ptr<PictureSource> source;
    std::unique_ptr<TestWindow> window;
    std::vector<PictureSize> changes;
};

} // namespace tonvale

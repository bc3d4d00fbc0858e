// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace tonvale {

// A size in pixels. Of media: how large the picture is meant to be seen, in pixels that are
// square. 0 x 0: there is none.
struct PictureSize {
    std::int32_t width = 0, height = 0;
    [[nodiscard]] bool isEmpty() const { return width <= 0 || height <= 0; }
    friend bool operator==(const PictureSize &, const PictureSize &) = default;
};

// The moving picture of an engine, for a window that paints it. The picture is fitted into what is
// painted on, with black beside it. For the user-interface thread alone.
class PictureSource {
public:
    // How a window reaches its OpenGL context.
    struct OpenGl {
        std::function<void()> makeCurrent; // for the calling thread
        std::function<void *(const char *name)> procAddress;
    };
    struct Window {
        std::function<void()> frameDue; // called from any thread: paint or skip soon
        std::optional<OpenGl> openGl;   // without it the picture is painted by the processor
    };
    // Four bytes a pixel: blue, green, red, and one that means nothing. Fastest where the address
    // and the bytes of a line are multiples of 64.
    struct Pixels {
        void *address = nullptr;
        std::size_t bytesPerLine = 0;
        PictureSize size;
    };
    struct FrameBuffer {
        std::int32_t name = 0; // 0: the window's own
        PictureSize size;
    };

    virtual ~PictureSource() = default;

    // From now on the picture is this window's, until it is detached or another one comes. False:
    // the window cannot paint in this way.
    [[nodiscard]] virtual bool attach(Window window) = 0;
    virtual void detach() = 0;
    // Paints the present frame. False: there is none, and nothing was painted.
    [[nodiscard]] virtual bool paint(const Pixels &pixels) = 0;
    [[nodiscard]] virtual bool paint(const FrameBuffer &buffer) = 0; // the window's context is current
    // Takes the frame that is due without painting it, for a window that cannot be seen.
    virtual void skip() = 0;
};

} // namespace tonvale

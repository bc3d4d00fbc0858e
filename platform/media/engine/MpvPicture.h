// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Picture.h"
#include "platform/media/engine/MpvCore.h"

#include <mpv/render.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace tonvale {

// The decoder's picture in a window. It is rendered by the library while there is both a decoder and
// a window; otherwise films play into nothing.
class MpvPicture final : public PictureSource {
public:
    [[nodiscard]] bool attach(Window window) override;
    void detach() override;
    [[nodiscard]] bool paint(const Pixels &pixels) override;
    [[nodiscard]] bool paint(const FrameBuffer &buffer) override;
    void skip() override;

    // There is a new decoder.
    void connect(MpvCore &core);
    // The track that is shown, by the library's name.
    void follow(std::string track) { track_ = std::move(track); }
    // The decoder goes, which it may not while its picture is rendered. Prompt even where it hangs.
    void disconnect();

private:
    struct ContextDeleter {
        void operator()(mpv_render_context *context) const { mpv_render_context_free(context); }
    };

    [[nodiscard]] bool beginRendering();
    void endRendering();
    void makeCurrent() const;
    [[nodiscard]] bool render(mpv_render_param *parameters);

    MpvCore *core_ = nullptr;
    std::string track_ = "no";
    std::optional<Window> window_;
    std::unique_ptr<mpv_render_context, ContextDeleter> context_;
};

} // namespace tonvale

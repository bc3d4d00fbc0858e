// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MpvPicture.h"

#include <mpv/render_gl.h>

#include <array>
#include <utility>

namespace tonvale {

namespace {

// The library takes its parameters by pointers to what is not constant, and does not change it.
void *parameter(const void *value) { return const_cast<void *>(value); }

// Frames come when they are due, so painting one never waits.
constexpr int kNo = 0, kYes = 1;
const mpv_render_param kWithoutWaiting{MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, parameter(&kNo)};
constexpr mpv_render_param kEnd{MPV_RENDER_PARAM_INVALID, nullptr};

void *findProcedure(void *openGl, const char *name) {
    return static_cast<PictureSource::OpenGl *>(openGl)->procAddress(name);
}

} // namespace

bool MpvPicture::attach(Window window) {
    detach();
    window_ = std::move(window);
    if (!core_ || beginRendering()) return true;
    window_.reset();
    return false;
}

void MpvPicture::detach() {
    endRendering();
    window_.reset();
}

void MpvPicture::connect(MpvCore &core) {
    core_ = &core;
    if (window_) static_cast<void>(beginRendering()); // without it the film is heard and not seen
}

void MpvPicture::disconnect() {
    // A decoder that hangs in the picture's way cannot give it back.
    if (context_ && !core_->setPictureOutputNow(PictureOutput::None, [this] { skip(); })) {
        core_->abandon();
        static_cast<void>(context_.release());
    }
    endRendering();
    core_ = nullptr;
}

bool MpvPicture::beginRendering() {
    makeCurrent();
    mpv_opengl_init_params openGl{findProcedure, window_->openGl ? &*window_->openGl : nullptr};
    std::array parameters{
        mpv_render_param{MPV_RENDER_PARAM_API_TYPE,
                         parameter(window_->openGl ? MPV_RENDER_API_TYPE_OPENGL : MPV_RENDER_API_TYPE_SW)},
        window_->openGl ? mpv_render_param{MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &openGl} : kEnd, kEnd};
    mpv_render_context *context = nullptr;
    if (mpv_render_context_create(&context, core_->handle(), parameters.data()) < 0) return false;
    context_.reset(context);
    mpv_render_context_set_update_callback(
        context, [](void *window) { static_cast<Window *>(window)->frameDue(); }, &*window_);
    core_->setPictureOutput(PictureOutput::Window);
    return true;
}

void MpvPicture::endRendering() {
    if (!context_) return;
    makeCurrent();
    mpv_render_context_set_update_callback(context_.get(), nullptr, nullptr);
    core_->setPictureOutput(PictureOutput::None);
    context_.reset();
    // A film that plays on has lost its picture track to this.
    core_->setText("vid", track_);
}

void MpvPicture::makeCurrent() const {
    if (window_->openGl) window_->openGl->makeCurrent();
}

bool MpvPicture::paint(const Pixels &pixels) {
    if (!context_ || window_->openGl || pixels.size.isEmpty()) return false;
    const std::array size{pixels.size.width, pixels.size.height};
    std::array parameters{mpv_render_param{MPV_RENDER_PARAM_SW_SIZE, parameter(size.data())},
                          mpv_render_param{MPV_RENDER_PARAM_SW_FORMAT, parameter("bgr0")},
                          mpv_render_param{MPV_RENDER_PARAM_SW_STRIDE, parameter(&pixels.bytesPerLine)},
                          mpv_render_param{MPV_RENDER_PARAM_SW_POINTER, pixels.address},
                          kWithoutWaiting,
                          kEnd};
    return render(parameters.data());
}

bool MpvPicture::paint(const FrameBuffer &buffer) {
    if (!context_ || !window_->openGl || buffer.size.isEmpty()) return false;
    const mpv_opengl_fbo target{buffer.name, buffer.size.width, buffer.size.height, 0};
    std::array parameters{mpv_render_param{MPV_RENDER_PARAM_OPENGL_FBO, parameter(&target)},
                          mpv_render_param{MPV_RENDER_PARAM_FLIP_Y, parameter(&kYes)}, kWithoutWaiting, kEnd};
    return render(parameters.data());
}

void MpvPicture::skip() {
    if (!context_) return;
    makeCurrent();
    if ((mpv_render_context_update(context_.get()) & MPV_RENDER_UPDATE_FRAME) == 0) return;
    std::array parameters{mpv_render_param{MPV_RENDER_PARAM_SKIP_RENDERING, parameter(&kYes)}, kWithoutWaiting, kEnd};
    static_cast<void>(render(parameters.data()));
}

bool MpvPicture::render(mpv_render_param *parameters) {
    return mpv_render_context_render(context_.get(), parameters) >= 0;
}

} // namespace tonvale

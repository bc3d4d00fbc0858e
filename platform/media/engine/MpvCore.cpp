// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MpvCore.h"

#include "controls/Errors.h"
#include "platform/media/engine/mpv_options.h"

#include <alsa/asoundlib.h>

#include <chrono>
#include <clocale>
#include <future>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace tonvale {

namespace {

using Steady = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kEndPatience{250};
constexpr std::uint64_t kOutputRequest = ~std::uint64_t{0};

const char *nameOf(PictureOutput output) { return output == PictureOutput::Window ? "libmpv" : "null"; }

// The library refuses to work where numbers are not written in the "C" way.
void requirePlainNumbers() {
    const char *locale = std::setlocale(LC_NUMERIC, nullptr);
    if (!locale || std::string(locale) != "C") std::setlocale(LC_NUMERIC, "C");
}

// Which outputs there are is found out by trying; that is nothing to complain of on the terminal.
void ignoreAlsaError(const char *, int, const char *, int, const char *, ...) {}

mpv_handle *createHandle() {
    static_cast<void>(snd_lib_error_set_handler(ignoreAlsaError));
    requirePlainNumbers();
    return mpv_create();
}

[[noreturn]] void throwError(int error) {
    throw RuntimeError(ErrorNumber::CantCreateObject,
                       std::string("The media engine cannot be started: ") + mpv_error_string(error));
}

} // namespace

void MpvCore::Doorbell::ring() {
    if (rung.exchange(true)) return;
    loop.post([weak = weak_from_this()] {
        const auto self = weak.lock();
        if (!self) return;
        self->rung = false;
        if (const auto call = self->drain) call();
    });
}

MpvCore::MpvCore(EventLoop &loop, const std::string &outputs, std::function<void()> drain)
    : doorbell_(std::make_shared<Doorbell>(loop, std::move(drain))), handle_(createHandle()) {
    if (!handle_) throwError(MPV_ERROR_NOMEM);
    setMpvOptions(handle_.get(), outputs);
    if (const int error = mpv_initialize(handle_.get()); error < 0) throwError(error);
    if (!shelf_->attachTo(handle_.get())) throwError(MPV_ERROR_NOMEM);
    mpv_set_wakeup_callback(
        handle_.get(), [](void *bell) { static_cast<Doorbell *>(bell)->ring(); }, doorbell_.get());
    check(mpv_hook_add(handle_.get(), 0, "on_preloaded", 0));
}

// After this the decoder calls nothing of ours but the sources, which the shelf and the decoder keep
// alive.
void MpvCore::silence() {
    doorbell_->drain = nullptr;
    mpv_set_wakeup_callback(handle_.get(), nullptr, nullptr);
}

MpvCore::~MpvCore() {
    if (!handle_) return;
    silence();
    try {
        std::packaged_task<void()> end([handle = std::move(handle_), shelf = shelf_]() mutable { handle.reset(); });
        const std::future<void> ended = end.get_future();
        std::thread(std::move(end)).detach();
        static_cast<void>(ended.wait_for(kEndPatience));
    } catch (const std::system_error &) {
        handle_.reset(); // no thread to be had: wait for it here
    }
}

const mpv_event &MpvCore::wait(double seconds) { return *mpv_wait_event(handle_.get(), seconds); }

void MpvCore::requestDrain() { doorbell_->ring(); }

// Only want of memory and mistakes of ours make a request fail at once.
void MpvCore::check(int result) const {
    if (result < 0) throw RuntimeError(ErrorNumber::InternalError, mpv_error_string(result));
}

void MpvCore::command(std::uint64_t id, std::initializer_list<const char *> words) {
    std::vector<const char *> arguments(words);
    arguments.push_back(nullptr);
    check(mpv_command_async(handle_.get(), id, arguments.data()));
}

void MpvCore::setFlag(const char *property, bool value) {
    int flag = value ? 1 : 0;
    check(mpv_set_property_async(handle_.get(), 0, property, MPV_FORMAT_FLAG, &flag));
}

void MpvCore::setNumber(const char *property, double value) {
    check(mpv_set_property_async(handle_.get(), 0, property, MPV_FORMAT_DOUBLE, &value));
}

void MpvCore::setText(const char *property, const std::string &value) {
    const char *text = value.c_str();
    check(mpv_set_property_async(handle_.get(), 0, property, MPV_FORMAT_STRING, &text));
}

void MpvCore::ask(std::uint64_t id, const char *property, mpv_format format) {
    check(mpv_get_property_async(handle_.get(), id, property, format));
}

void MpvCore::observe(std::uint64_t id, const char *property, mpv_format format) {
    check(mpv_observe_property(handle_.get(), id, property, format));
}

void MpvCore::unobserve(std::uint64_t id) { check(mpv_unobserve_property(handle_.get(), id)); }

MpvNode MpvCore::read(const char *property) {
    MpvNode value;
    if (mpv_get_property(handle_.get(), property, MPV_FORMAT_NODE, value.put()) < 0) return {};
    return value;
}

void MpvCore::setNow(const char *property, const char *value) {
    static_cast<void>(mpv_set_property_string(handle_.get(), property, value));
}

// A decoder that does not wait any more goes on anyway.
void MpvCore::goOn(const mpv_event_hook &hook) { static_cast<void>(mpv_hook_continue(handle_.get(), hook.id)); }

void MpvCore::setPictureOutput(PictureOutput output) { setText("vo", nameOf(output)); }

bool MpvCore::setPictureOutputNow(PictureOutput output, const std::function<void()> &meanwhile) {
    constexpr double kSlice = 0.01;
    const char *name = nameOf(output);
    check(mpv_set_property_async(handle_.get(), kOutputRequest, "vo", MPV_FORMAT_STRING, &name));
    for (const auto end = Steady::now() + kEndPatience; Steady::now() < end; meanwhile()) {
        const mpv_event &event = wait(kSlice);
        if (event.event_id == MPV_EVENT_SET_PROPERTY_REPLY && event.reply_userdata == kOutputRequest) return true;
    }
    return false;
}

// It may read from the shelf for as long as the program runs, so a thread keeps that.
void MpvCore::abandon() {
    silence();
    std::thread([handle = handle_.release(), shelf = shelf_] {
        while (mpv_wait_event(handle, -1)->event_id != MPV_EVENT_SHUTDOWN) continue;
    }).detach();
}

} // namespace tonvale

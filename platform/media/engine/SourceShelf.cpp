// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/SourceShelf.h"

#include <mpv/stream_cb.h>

#include <exception>
#include <utility>

namespace tonvale {

namespace {

constexpr const char *kProtocol = "tonvale";

// What the decoder holds while it has the source open.
struct OpenSource {
    std::shared_ptr<MediaSource> source;
};

MediaSource &sourceOf(void *cookie) { return *static_cast<OpenSource *>(cookie)->source; }

// No exception may pass through the decoder.
template <class Result, class Action> Result guarded(Result failure, Action action) noexcept {
    try {
        return action();
    } catch (const std::exception &) {
        return failure;
    }
}

std::int64_t readSource(void *cookie, char *buffer, std::uint64_t length) {
    return guarded<std::int64_t>(-1, [&] {
        return sourceOf(cookie).read(std::as_writable_bytes(std::span(buffer, static_cast<std::size_t>(length))));
    });
}

std::int64_t seekSource(void *cookie, std::int64_t offset) {
    return guarded<std::int64_t>(
        MPV_ERROR_GENERIC, [&] { return sourceOf(cookie).seek(offset) ? offset : std::int64_t{MPV_ERROR_GENERIC}; });
}

std::int64_t sizeOfSource(void *cookie) { return sourceOf(cookie).size(); }

void closeSource(void *cookie) { const std::unique_ptr<OpenSource> last(static_cast<OpenSource *>(cookie)); }

int openSource(void *shelf, char *address, mpv_stream_cb_info *info) {
    return guarded<int>(MPV_ERROR_LOADING_FAILED, [&]() -> int {
        auto source = static_cast<SourceShelf *>(shelf)->find(address);
        if (!source || !source->seek(0)) return MPV_ERROR_LOADING_FAILED;
        info->cookie = std::make_unique<OpenSource>(OpenSource{std::move(source)}).release();
        info->read_fn = readSource;
        info->seek_fn = seekSource;
        info->size_fn = sizeOfSource;
        info->close_fn = closeSource;
        return 0;
    });
}

} // namespace

bool SourceShelf::attachTo(mpv_handle *handle) {
    return mpv_stream_cb_add_ro(handle, kProtocol, this, openSource) >= 0;
}

std::string SourceShelf::put(std::shared_ptr<MediaSource> source) {
    const std::lock_guard lock(mutex_);
    address_ = std::string(kProtocol) + "://" + std::to_string(++count_);
    if (const std::string extension = source->extension(); !extension.empty()) address_ += "/media." + extension;
    source_ = std::move(source);
    return address_;
}

void SourceShelf::clear() {
    const std::lock_guard lock(mutex_);
    source_.reset();
    address_.clear();
}

std::shared_ptr<MediaSource> SourceShelf::find(const std::string &address) {
    const std::lock_guard lock(mutex_);
    return address == address_ ? source_ : nullptr;
}

} // namespace tonvale

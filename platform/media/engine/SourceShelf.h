// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/media/engine/MediaSource.h"

#include <mpv/client.h>

#include <memory>
#include <mutex>
#include <string>

namespace tonvale {

// Hands the source of the present file to the decoder, which knows it by an address of our own.
// The one source on the shelf is guarded by the mutex; it is put there by the user-interface thread
// and fetched by the decoder's.
class SourceShelf {
public:
    // Whether the handle has been taught the addresses. The shelf must outlive the handle.
    [[nodiscard]] bool attachTo(mpv_handle *handle);
    // Replaces what lies on the shelf. Returns its address.
    [[nodiscard]] std::string put(std::shared_ptr<MediaSource> source);
    void clear();

    [[nodiscard]] std::shared_ptr<MediaSource> find(const std::string &address);

private:
    std::mutex mutex_;
    std::shared_ptr<MediaSource> source_;
    std::string address_;
    std::uint64_t count_ = 0;
};

} // namespace tonvale

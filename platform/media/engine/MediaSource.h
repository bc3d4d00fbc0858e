// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace tonvale {

// The bytes that the decoder reads. It is given nothing else to open: no name, no other file.
// Once open it is used by the decoder's threads, one at a time.
class MediaSource {
public:
    virtual ~MediaSource() = default;

    [[nodiscard]] virtual std::int64_t size() const = 0;
    // The number of bytes read, 0 at the end, negative for an error.
    [[nodiscard]] virtual std::int64_t read(std::span<std::byte> buffer) = 0;
    // Whether the next read begins at `offset`.
    [[nodiscard]] virtual bool seek(std::int64_t offset) = 0;
    // The exact length for the container formats whose own length is but a guess; 0 for others.
    [[nodiscard]] virtual double measuredDuration(const std::string &format) const = 0;
    // What follows the last dot of the name, where it is a plain one; a hint for the decoder.
    [[nodiscard]] virtual std::string extension() const = 0;
};

// Opens a regular file, or throws RuntimeError. A MIDI file is told by its content and becomes the
// sound of its instruments.
[[nodiscard]] std::shared_ptr<MediaSource> openMediaSource(const std::string &path);

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MediaSource.h"

#include "controls/Errors.h"
#include "platform/machine/base/RegularFile.h"
#include "platform/machine/base/SystemErrors.h"
#include "platform/media/engine/MidiSong.h"
#include "platform/media/engine/MidiSource.h"
#include "platform/media/engine/measured_duration.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>
#include <vector>

namespace tonvale {

namespace {

constexpr std::int64_t kLargestMidiFile = 32 * 1024 * 1024;

std::string plainExtension(const std::string &path) {
    constexpr std::size_t kLongest = 8;
    const std::size_t dot = path.find_last_of("./");
    if (dot == std::string::npos || path[dot] != '.') return {};
    const std::string text = path.substr(dot + 1);
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    };
    return text.size() <= kLongest && std::all_of(text.begin(), text.end(), isPlain) ? text : std::string();
}

class FileSource final : public MediaSource {
public:
    FileSource(UniqueFd file, std::int64_t size, std::string extension)
        : file_(std::move(file)), size_(size), extension_(std::move(extension)) {}

    [[nodiscard]] std::int64_t size() const override { return size_; }
    [[nodiscard]] std::int64_t read(std::span<std::byte> buffer) override {
        const ssize_t count = ::pread(file_.get(), buffer.data(), buffer.size(), offset_);
        if (count > 0) offset_ += count;
        return count;
    }
    [[nodiscard]] bool seek(std::int64_t offset) override {
        if (offset < 0) return false;
        offset_ = offset;
        return true;
    }
    [[nodiscard]] double measuredDuration(const std::string &format) const override {
        return tonvale::measuredDuration(file_.get(), format);
    }
    [[nodiscard]] std::string extension() const override { return extension_; }

private:
    UniqueFd file_;
    std::int64_t size_;
    std::int64_t offset_ = 0;
    std::string extension_;
};

std::vector<std::byte> readStart(const UniqueFd &file, std::size_t length) {
    std::vector<std::byte> data(length);
    data.resize(readAt(file.get(), 0, {reinterpret_cast<std::uint8_t *>(data.data()), data.size()}));
    return data;
}

std::int64_t sizeOf(const UniqueFd &file) {
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) throw systemError(errno);
    return status.st_size;
}

} // namespace

std::shared_ptr<MediaSource> openMediaSource(const std::string &path) {
    UniqueFd file;
    if (const int error = openRegularFile(path, file)) throw systemError(error);
    const std::int64_t size = sizeOf(file);
    if (looksLikeMidi(readStart(file, kMidiSignatureLength))) {
        if (size > kLargestMidiFile) throw RuntimeError(ErrorNumber::AutomationError, "The MIDI file is too large");
        return std::make_shared<MidiSource>(readStart(file, static_cast<std::size_t>(size)));
    }
    return std::make_shared<FileSource>(std::move(file), size, plainExtension(path));
}

} // namespace tonvale

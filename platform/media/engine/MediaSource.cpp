// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MediaSource.h"

#include "controls/Errors.h"
#include "platform/media/engine/FileDescriptor.h"
#include "platform/media/engine/MidiSong.h"
#include "platform/media/engine/MidiSource.h"
#include "platform/media/engine/measured_duration.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>
#include <vector>

namespace tonvale {

namespace {

constexpr std::int64_t kLargestMidiFile = 32 * 1024 * 1024;

[[noreturn]] void throwErrno(int error) {
    switch (error) {
    case ENOENT: throw RuntimeError(ErrorNumber::FileNotFound);
    case ENOTDIR: throw RuntimeError(ErrorNumber::PathNotFound);
    case EACCES:
    case EPERM: throw RuntimeError(ErrorNumber::PermissionDenied);
    case EIO: throw RuntimeError(ErrorNumber::DeviceIOError);
    default: throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

void requireRegular(const struct stat &status) {
    if (!S_ISREG(status.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccessError);
}

// Looked at before it is opened, since opening alone makes some devices do things, and after it,
// since the name may stand for something else by then.
std::pair<FileDescriptor, std::int64_t> openRegular(const std::string &path) {
    if (path.empty() || path.find('\0') != std::string::npos) throw RuntimeError(ErrorNumber::FileNotFound);
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) throwErrno(errno);
    requireRegular(status);
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (file.get() < 0) throwErrno(errno);
    if (::fstat(file.get(), &status) != 0) throwErrno(errno);
    requireRegular(status);
    return {std::move(file), status.st_size};
}

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
    FileSource(FileDescriptor file, std::int64_t size, std::string extension)
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
    FileDescriptor file_;
    std::int64_t size_;
    std::int64_t offset_ = 0;
    std::string extension_;
};

std::vector<std::byte> readStart(const FileDescriptor &file, std::size_t length) {
    std::vector<std::byte> data(length);
    std::size_t filled = 0;
    while (filled < length) {
        const ssize_t count = ::pread(file.get(), data.data() + filled, length - filled, static_cast<off_t>(filled));
        if (count < 0) throwErrno(errno);
        if (count == 0) break;
        filled += static_cast<std::size_t>(count);
    }
    data.resize(filled);
    return data;
}

} // namespace

std::shared_ptr<MediaSource> openMediaSource(const std::string &path) {
    auto [file, size] = openRegular(path);
    if (looksLikeMidi(readStart(file, kMidiSignatureLength))) {
        if (size > kLargestMidiFile) throw RuntimeError(ErrorNumber::AutomationError, "The MIDI file is too large");
        return std::make_shared<MidiSource>(readStart(file, static_cast<std::size_t>(size)));
    }
    return std::make_shared<FileSource>(std::move(file), size, plainExtension(path));
}

} // namespace tonvale

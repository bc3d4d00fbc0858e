// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/file_access.h"

#include "controls/Errors.h"
#include "platform/machine/base/SystemErrors.h"

#include <sys/stat.h>

#include <cerrno>

namespace tonvale {

namespace {

struct stat statusOf(int file) {
    struct stat status {};
    if (::fstat(file, &status) != 0) throw systemError(errno);
    return status;
}

} // namespace

UniqueFd openSource(const std::string &path, const std::string &target) {
    UniqueFd file;
    if (const int error = openRegularFile(path, file)) throw systemError(error);
    const struct stat status = statusOf(file.get());
    struct stat other {};
    const bool isTarget =
        ::stat(target.c_str(), &other) == 0 && status.st_dev == other.st_dev && status.st_ino == other.st_ino;
    if (isTarget) throw RuntimeError(ErrorNumber::PathFileAccessError);
    return file;
}

std::int64_t fileSize(int file) { return statusOf(file).st_size; }

void writeAt(int file, std::int64_t position, Bytes bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::pwrite(file, bytes.data(), bytes.size(), position);
        if (count < 0 && errno != EINTR) throw systemError(errno);
        if (count <= 0) continue;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
        position += count;
    }
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/base/RegularFile.h"

#include "platform/machine/base/SystemErrors.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace tonvale {

int openRegularFile(const std::string &path, UniqueFd &file) {
    if (path.empty() || path.find('\0') != std::string::npos) return ENOENT;
    struct stat status {};
    // Looked at before: a device, or whoever writes to a pipe, would notice that it is opened.
    if (::stat(path.c_str(), &status) != 0) return errno;
    if (!S_ISREG(status.st_mode)) return EISDIR;
    // By now the name may be that of a pipe, and this must not hang.
    UniqueFd opened(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!opened || ::fstat(opened.get(), &status) != 0) return errno;
    if (!S_ISREG(status.st_mode)) return EISDIR;
    file = std::move(opened);
    return 0;
}

std::size_t readAt(int file, std::int64_t position, std::span<std::uint8_t> bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const auto rest = bytes.subspan(done);
        const ssize_t count = ::pread(file, rest.data(), rest.size(), position + static_cast<std::int64_t>(done));
        if (count < 0 && errno != EINTR) throw systemError(errno);
        if (count == 0) break;
        if (count > 0) done += static_cast<std::size_t>(count);
    }
    return done;
}

} // namespace tonvale

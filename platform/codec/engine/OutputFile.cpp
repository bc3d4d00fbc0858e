// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/OutputFile.h"

#include "controls/Errors.h"
#include "platform/machine/base/SystemErrors.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace tonvale {

OutputFile::OutputFile(const std::string &target) {
    struct stat status {};
    if (target.empty()) throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
    if (::stat(target.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    if (const int error = file_.make(target))
        throw error == ENOENT ? RuntimeError(ErrorNumber::PathNotFound) : systemError(error);
}

void OutputFile::reserve(std::int64_t size) const {
    // Where the file system cannot do this, writing tells.
    while (size > 0 && ::fallocate(file_.get(), 0, 0, size) != 0) {
        if (errno == ENOSPC || errno == EDQUOT || errno == EFBIG) throw systemError(errno);
        if (errno != EINTR) break;
    }
}

void OutputFile::publish(std::int64_t size) {
    if (::ftruncate(file_.get(), size) != 0) throw systemError(errno);
    if (const int error = file_.publish()) throw systemError(error);
}

} // namespace tonvale

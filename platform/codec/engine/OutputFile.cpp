// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/OutputFile.h"

#include "controls/Errors.h"
#include "platform/machine/base/SystemErrors.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace tonvale {

namespace {

constexpr int kMostLeftovers = 1000;
constexpr mode_t kNewFile = 0666;

std::string directoryOf(const std::string &path) { return path.substr(0, path.rfind('/') + 1); }

} // namespace

OutputFile::OutputFile(std::string target) : target_(std::move(target)) {
    struct stat status {};
    if (target_.empty()) throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
    if (::stat(target_.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    make();
}

OutputFile::~OutputFile() {
    if (!name_.empty()) (void)::unlink(name_.c_str());
}

void OutputFile::make() {
    for (int i = 0; i < kMostLeftovers && !file_; ++i) {
        name_ = directoryOf(target_) + ".tonvale-" + std::to_string(::getpid()) + "-" + std::to_string(i);
        file_.reset(::open(name_.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, kNewFile));
        if (!file_ && errno != EEXIST) break;
    }
    if (file_) return;
    name_.clear();
    throw errno == ENOENT ? RuntimeError(ErrorNumber::PathNotFound) : systemError(errno);
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
    // Some file systems report at the end what could not be written.
    if (::close(file_.release()) != 0) throw systemError(errno);
    if (::rename(name_.c_str(), target_.c_str()) != 0) throw systemError(errno);
    name_.clear();
}

} // namespace tonvale

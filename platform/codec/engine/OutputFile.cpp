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
constexpr const char *kOpenFiles = "/proc/self/fd/";

std::string directoryOf(const std::string &path) {
    const std::size_t end = path.rfind('/') + 1;
    return end == 0 ? "./" : path.substr(0, end);
}

} // namespace

OutputFile::OutputFile(std::string target, Growing growing) : target_(std::move(target)) {
    struct stat status {};
    if (target_.empty()) throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
    if (::stat(target_.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    if (growing == Growing::Hidden || !makeNameless()) makeHidden();
}

OutputFile::~OutputFile() {
    if (!name_.empty()) (void)::unlink(name_.c_str());
}

// Whatever ends the program, nothing is left of such a file.
bool OutputFile::makeNameless() {
    if (::access(kOpenFiles, X_OK) != 0) return false;
    file_.reset(::open(directoryOf(target_).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kNewFile));
    return static_cast<bool>(file_);
}

void OutputFile::makeHidden() {
    const bool isMade = takeName([this](const char *name) {
        file_.reset(::open(name, O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, kNewFile));
        return static_cast<bool>(file_);
    });
    if (isMade) return;
    throw errno == ENOENT ? RuntimeError(ErrorNumber::PathNotFound) : systemError(errno);
}

void OutputFile::giveName() {
    const std::string file = std::string(kOpenFiles) + std::to_string(file_.get());
    const bool isNamed = takeName(
        [&](const char *name) { return ::linkat(AT_FDCWD, file.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0; });
    if (!isNamed) throw systemError(errno);
}

// Tries names until one is free; false, and why in errno, if there is another reason.
bool OutputFile::takeName(const std::function<bool(const char *name)> &take) {
    for (int i = 0; i < kMostLeftovers; ++i) {
        name_ = directoryOf(target_) + ".tonvale-" + std::to_string(::getpid()) + "-" + std::to_string(i);
        if (take(name_.c_str())) return true;
        if (errno != EEXIST) break;
    }
    name_.clear();
    return false;
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
    if (name_.empty()) giveName();
    // Some file systems report at the end what could not be written.
    if (::close(file_.release()) != 0) throw systemError(errno);
    if (::rename(name_.c_str(), target_.c_str()) != 0) throw systemError(errno);
    name_.clear();
}

} // namespace tonvale

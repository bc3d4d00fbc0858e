// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/base/NewFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

namespace tonvale {

namespace {

constexpr int kMostLeftovers = 1000;
constexpr mode_t kMode = 0666;
constexpr const char *kOpenFiles = "/proc/self/fd/";

} // namespace

std::string directoryOf(const std::string &path) {
    const std::size_t end = path.rfind('/') + 1;
    return end == 0 ? "./" : path.substr(0, end);
}

NewFile::~NewFile() {
    if (!name_.empty()) (void)::unlink(name_.c_str());
}

int NewFile::make(const std::string &target, Growing growing) {
    target_ = target;
    const bool isMade = (growing == Growing::Nameless && makeNameless()) || makeHidden();
    return isMade ? 0 : errno;
}

bool NewFile::makeNameless() {
    if (::access(kOpenFiles, X_OK) != 0) return false;
    file_.reset(::open(directoryOf(target_).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kMode));
    return static_cast<bool>(file_);
}

bool NewFile::makeHidden() {
    return takeName([this](const char *name) {
        file_.reset(::open(name, O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, kMode));
        return static_cast<bool>(file_);
    });
}

bool NewFile::giveName() {
    const std::string file = kOpenFiles + std::to_string(file_.get());
    return takeName(
        [&](const char *name) { return ::linkat(AT_FDCWD, file.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0; });
}

// Tries names until one is free; false, and why in errno, if there is another reason.
bool NewFile::takeName(const std::function<bool(const char *name)> &take) {
    for (int i = 0; i < kMostLeftovers; ++i) {
        name_ = directoryOf(target_) + ".tonvale-" + std::to_string(::getpid()) + "-" + std::to_string(i);
        if (take(name_.c_str())) return true;
        if (errno != EEXIST) break;
    }
    name_.clear();
    return false;
}

int NewFile::publish() {
    if (name_.empty() && !giveName()) return errno;
    // Some file systems report at the end what could not be written.
    if (::close(file_.release()) != 0) return errno;
    if (::rename(name_.c_str(), target_.c_str()) != 0) return errno;
    name_.clear();
    return 0;
}

} // namespace tonvale

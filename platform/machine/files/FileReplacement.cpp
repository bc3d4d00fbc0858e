// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/files/FileReplacement.h"

#include "platform/machine/base/UniqueFd.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>

namespace tonvale {

namespace {

constexpr int kLongestChain = 40; // of links, as the system itself follows them
constexpr int kMostLeftovers = 100;
constexpr mode_t kNewFile = 0666, kPermissions = 07777;

std::string directoryOf(const std::string &path) { return path.substr(0, path.rfind('/') + 1); }

// Where a chain of links ends, whether or not something is there.
int followLinks(std::string &path) {
    for (int i = 0; i < kLongestChain; ++i) {
        std::array<char, PATH_MAX> target{};
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0) return errno == EINVAL || errno == ENOENT ? 0 : errno;
        const std::string next(target.data(), static_cast<std::size_t>(length));
        path = next.starts_with('/') ? next : directoryOf(path) + next;
    }
    return ELOOP;
}

// A file beside the one to be replaced, which goes away unless it takes that one's place.
class NewFile {
public:
    ~NewFile() {
        if (!name_.empty()) (void)::unlink(name_.c_str());
    }
    int make(const std::string &directory) {
        for (int i = 0; i < kMostLeftovers; ++i) {
            const std::string name = directory + ".tonvale-" + std::to_string(::getpid()) + "-" + std::to_string(i);
            file_.reset(::open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, kNewFile));
            if (file_) name_ = name;
            if (file_ || errno != EEXIST) break;
        }
        return file_ ? 0 : errno;
    }
    // Whoever may read the old file may read the new one; only a group of which this user is no
    // member cannot be given.
    int takePermissions(const struct stat &old) {
        (void)!::fchown(file_.get(), static_cast<uid_t>(-1), old.st_gid);
        return ::fchmod(file_.get(), old.st_mode & kPermissions) == 0 ? 0 : errno;
    }
    int write(std::string_view content) {
        while (!content.empty()) {
            const ssize_t count = ::write(file_.get(), content.data(), content.size());
            if (count < 0 && errno != EINTR) return errno;
            if (count > 0) content.remove_prefix(static_cast<std::size_t>(count));
        }
        return ::fsync(file_.get()) == 0 ? 0 : errno;
    }
    int moveTo(const std::string &path) {
        if (::close(file_.release()) != 0) return errno;
        if (::rename(name_.c_str(), path.c_str()) != 0) return errno;
        name_.clear();
        return 0;
    }

private:
    UniqueFd file_;
    std::string name_;
};

// The file may be replaced: it is a plain one, and this user may write to it.
int checkReplaceable(const std::string &path, const struct stat &status) {
    if (!S_ISREG(status.st_mode)) return EISDIR;
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ? 0 : errno;
}

// A power cut must not bring the old name back. Not every file system can do this, and the file
// is whole in any case.
void syncDirectory(const std::string &directory) {
    const UniqueFd opened(::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened) (void)!::fsync(opened.get());
}

} // namespace

int replaceFileContent(std::string path, std::string_view content) {
    if (const int error = followLinks(path)) return error;
    struct stat old {};
    const bool exists = ::stat(path.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return errno;
    if (exists)
        if (const int error = checkReplaceable(path, old)) return error;
    const std::string directory = directoryOf(path);
    NewFile file;
    int error = file.make(directory);
    if (error == 0 && exists) error = file.takePermissions(old);
    if (error == 0) error = file.write(content);
    if (error == 0) error = file.moveTo(path);
    if (error == 0) syncDirectory(directory);
    return error;
}

} // namespace tonvale

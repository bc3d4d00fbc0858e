// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/files/FileReplacement.h"

#include "platform/machine/base/NewFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <climits>

namespace tonvale {

namespace {

constexpr int kLongestChain = 40; // of links, as the system itself follows them
constexpr mode_t kPermissions = 07777;

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

// Whoever may read the old file may read the new one; only a group of which this user is no member
// cannot be given.
int takePermissions(const NewFile &file, const struct stat &old) {
    (void)!::fchown(file.get(), static_cast<uid_t>(-1), old.st_gid);
    return ::fchmod(file.get(), old.st_mode & kPermissions) == 0 ? 0 : errno;
}

int write(const NewFile &file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t count = ::write(file.get(), content.data(), content.size());
        if (count < 0 && errno != EINTR) return errno;
        if (count > 0) content.remove_prefix(static_cast<std::size_t>(count));
    }
    return ::fsync(file.get()) == 0 ? 0 : errno;
}

// The file may be replaced: it is a plain one, and this user may write to it.
int checkReplaceable(const std::string &path, const struct stat &status) {
    if (!S_ISREG(status.st_mode)) return EISDIR;
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ? 0 : errno;
}

// A power cut must not bring the old name back. Not every file system can do this, and the file
// is whole in any case.
void syncDirectory(const std::string &directory) {
    const UniqueFd opened(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
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
    NewFile file;
    int error = file.make(path);
    if (error == 0 && exists) error = takePermissions(file, old);
    if (error == 0) error = write(file, content);
    if (error == 0) error = file.publish();
    if (error == 0) syncDirectory(directoryOf(path));
    return error;
}

} // namespace tonvale

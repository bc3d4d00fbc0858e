// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/files/PosixFileService.h"

#include "platform/machine/base/Directories.h"
#include "platform/machine/base/RegularFile.h"
#include "platform/machine/base/SystemErrors.h"
#include "platform/machine/files/DirectoryFiles.h"
#include "platform/machine/files/FileReplacement.h"
#include "platform/machine/files/FoldedNames.h"
#include "platform/machine/files/PosixLineReader.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>

namespace tonvale {

namespace {

constexpr mode_t kAllModeBits = 07777;

std::string parentOf(const std::string &path) {
    const std::size_t separator = path.rfind('/');
    if (separator == std::string::npos) return ".";
    return separator == 0 ? "/" : path.substr(0, separator);
}

// A missing name is error 53 in a directory that is there, and error 76 elsewhere.
RuntimeError errorAt(const std::string &path, int error) {
    struct stat status {};
    if (error == ENOENT && ::stat(parentOf(path).c_str(), &status) != 0) return RuntimeError(ErrorNumber::PathNotFound);
    return systemError(error);
}

// A zero character would silently shorten the name.
void requireName(const std::string &path) {
    if (path.find('\0') != std::string::npos) throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
}

std::string existingName(const std::string &path) {
    requireName(path);
    return findFolded(path);
}

// For file systems that cannot rename without replacing: a second name never replaces either.
int renameByLinking(const std::string &from, const std::string &to) {
    if (::link(from.c_str(), to.c_str()) != 0) return errno;
    return ::unlink(from.c_str()) == 0 ? 0 : errno;
}

int renameWithoutReplacing(const std::string &from, const std::string &to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno == EINVAL || errno == ENOSYS) return renameByLinking(from, to);
    return errno;
}

// A new name is taken to the letter; the directory that it goes to is found like any other.
std::string newName(const std::string &path) {
    requireName(path);
    const std::size_t separator = path.rfind('/');
    return separator == std::string::npos ? path : findFolded(path.substr(0, separator)) + path.substr(separator);
}

} // namespace

std::string PosixFileService::find(const std::string &path) { return findFolded(path); }

bool PosixFileService::fileExists(const std::string &path) {
    struct stat status {};
    return path.find('\0') == std::string::npos && ::stat(findFolded(path).c_str(), &status) == 0 &&
           !S_ISDIR(status.st_mode);
}

bool PosixFileService::pathExists(const std::string &path) {
    struct stat status {};
    return path.find('\0') == std::string::npos && ::stat(findFolded(path).c_str(), &status) == 0;
}

std::vector<std::string> PosixFileService::filesIn(const std::string &directory) {
    const std::string name = existingName(directory);
    std::vector<std::string> names;
    if (const int error = listFiles(name, names)) throw errorAt(name, error);
    return names;
}

std::int64_t PosixFileService::fileLength(const std::string &path) {
    const std::string name = existingName(path);
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0) throw errorAt(name, errno);
    if (S_ISDIR(status.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccessError);
    return status.st_size;
}

void PosixFileService::rename(const std::string &from, const std::string &to) {
    const std::string target = newName(to);
    const std::string name = existingName(from);
    struct stat status {};
    if (::lstat(name.c_str(), &status) != 0) throw errorAt(name, errno);
    if (const int error = renameWithoutReplacing(name, target)) throw errorAt(target, error);
}

void PosixFileService::deleteFile(const std::string &path) {
    const std::string name = existingName(path);
    if (::unlink(name.c_str()) != 0) throw errorAt(name, errno);
}

void PosixFileService::clearAttributes(const std::string &path) {
    const std::string name = existingName(path);
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0) throw errorAt(name, errno);
    if (::chmod(name.c_str(), (status.st_mode & kAllModeBits) | S_IWUSR) != 0) throw errorAt(name, errno);
}

std::unique_ptr<LineReader> PosixFileService::openLines(const std::string &path) {
    const std::string name = existingName(path);
    UniqueFd file;
    if (const int error = openRegularFile(name, file)) throw errorAt(name, error);
    return std::make_unique<PosixLineReader>(std::move(file));
}

void PosixFileService::replaceFile(const std::string &path, const std::string &content) {
    const std::string found = existingName(path);
    const std::string name = found == path ? newName(path) : found;
    if (const int error = replaceFileContent(name, content)) throw errorAt(name, error);
}

std::string PosixFileService::currentDirectory() {
    std::array<char, PATH_MAX> buffer{};
    if (::getcwd(buffer.data(), buffer.size()) == nullptr) throw systemError(errno == ENOENT ? ENOTDIR : errno);
    return buffer.data();
}

std::string PosixFileService::temporaryDirectory() {
    const std::string path = cacheDirectory() + "/tmp";
    (void)openPrivateDirectory(path);
    return path + "/";
}

} // namespace tonvale

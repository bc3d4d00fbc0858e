// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/base/Directories.h"

#include "platform/machine/base/SystemErrors.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <vector>

namespace tonvale {

namespace {

constexpr const char *kOwnName = "/orvane-tonvale";

// A relative path in one of these variables is to be ignored, and so is the empty text.
std::string absoluteFromEnvironment(const char *name) {
    const char *value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : std::string();
}

std::string homeDirectory() {
    if (std::string home = absoluteFromEnvironment("HOME"); !home.empty()) return home;
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd *found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr)
        return found->pw_dir;
    throw RuntimeError(ErrorNumber::PathNotFound);
}

std::string baseDirectory(const char *variable, const char *belowHome) {
    std::string base = absoluteFromEnvironment(variable);
    return base.empty() ? homeDirectory() + belowHome : base;
}

bool isOwnDirectory(const std::string &path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid();
}

} // namespace

std::string configDirectory() { return baseDirectory("XDG_CONFIG_HOME", "/.config") + kOwnName; }

std::string cacheDirectory() { return baseDirectory("XDG_CACHE_HOME", "/.cache") + kOwnName; }

std::string runtimeDirectory() {
    for (const std::string &base :
         {absoluteFromEnvironment("XDG_RUNTIME_DIR"), "/run/user/" + std::to_string(::geteuid())})
        if (!base.empty() && isOwnDirectory(base)) return base + kOwnName;
    return cacheDirectory() + "/run";
}

std::string programDirectory() {
    std::array<char, 4096> buffer{};
    const ssize_t length = ::readlink("/proc/self/exe", buffer.data(), buffer.size());
    if (length <= 0) throw RuntimeError(ErrorNumber::PathNotFound);
    const std::string program(buffer.data(), static_cast<std::size_t>(length));
    return program.substr(0, program.rfind('/'));
}

void makeDirectories(const std::string &path) {
    if (::mkdir(path.c_str(), 0700) == 0 || errno == EEXIST) return;
    const std::size_t separator = path.rfind('/');
    if (errno != ENOENT || separator == 0 || separator == std::string::npos) throw systemError(errno);
    makeDirectories(path.substr(0, separator));
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) throw systemError(errno);
}

UniqueFd openPrivateDirectory(const std::string &path) {
    makeDirectories(path);
    UniqueFd directory(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!directory) throw RuntimeError(ErrorNumber::PermissionDenied);
    struct stat status {};
    if (::fstat(directory.get(), &status) != 0) throw systemError(errno);
    if (status.st_uid != ::geteuid()) throw RuntimeError(ErrorNumber::PermissionDenied);
    if ((status.st_mode & 07777) != 0700 && ::fchmod(directory.get(), 0700) != 0) throw systemError(errno);
    return directory;
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/files/DirectoryFiles.h"

#include "controls/Text.h"
#include "platform/machine/base/Directory.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tonvale {

namespace {

bool isFile(DIR *directory, const dirent &entry) {
    if (entry.d_type == DT_REG) return true;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
    struct stat status {};
    return ::fstatat(::dirfd(directory), entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode);
}

// By the folded name; names that differ in case only by their bytes.
void sortFolded(std::vector<std::string> &names) {
    std::vector<std::pair<std::string, std::string>> keyed;
    keyed.reserve(names.size());
    for (std::string &name : names) {
        std::string key = lowerCase(name);
        keyed.emplace_back(std::move(key), std::move(name));
    }
    std::ranges::sort(keyed);
    for (std::size_t i = 0; i < names.size(); ++i) names[i] = std::move(keyed[i].second);
}

} // namespace

int listFiles(const std::string &directory, std::vector<std::string> &names) {
    const Directory opened(::opendir(directory.c_str()));
    if (!opened) return errno;
    errno = 0;
    while (const dirent *entry = ::readdir(opened.get())) {
        if (entry->d_name[0] != '.' && isFile(opened.get(), *entry)) names.emplace_back(entry->d_name);
        errno = 0; // a file that cannot be looked at is no failure of the directory
    }
    if (errno != 0) return errno;
    sortFolded(names);
    return 0;
}

} // namespace tonvale

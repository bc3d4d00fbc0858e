// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/PlaylistWindow.h"

#include "controls/Text.h"
#include "desktop/folder_names.h"

#include <algorithm>
#include <utility>

namespace tonvale {

namespace {

bool isBlank(const std::string &name) { return trimBlanks(name).empty(); }

} // namespace

void PlaylistWindow::Form_DropFiles(const std::vector<std::string> &names) {
    if (subclass_.isHooked()) Process_DROPFILES(names);
}

// A run does not bar a drop: the rows join the list and not the queue.
void PlaylistWindow::Process_DROPFILES(const std::vector<std::string> &names) {
    std::vector<std::string> rows;
    for (const std::string &name : names)
        attempt([&] {
            for (std::string &row : rowsOf(name)) rows.push_back(std::move(row));
        });
    List1.AddItems(std::move(rows));
}

std::vector<std::string> PlaylistWindow::rowsOf(const std::string &dropped) {
    if (isBlank(dropped)) return {};
    bool isFile = false;
    attempt([&] { isFile = app_.services.files.fileExists(dropped); });
    if (isFile) return isAccepted(dropped) ? std::vector{dropped} : std::vector<std::string>();
    return app_.services.files.pathExists(dropped) ? filesOfFolder(dropped) : std::vector<std::string>();
}

bool PlaylistWindow::isAccepted(const std::string &file) const {
    const std::string folded = lowerCase(file);
    return std::ranges::any_of(variant_.droppedEndings,
                               [&](std::string_view ending) { return folded.ends_with(ending); });
}

std::vector<std::string> PlaylistWindow::filesOfFolder(const std::string &folder) {
    File1.Pattern = variant_.folderPattern;
    File1.Path = folder;
    File1.Refresh();
    const std::string prefix = withSeparator(File1.Path);
    std::vector<std::string> rows;
    for (const std::string &name : File1.List()) rows.push_back(prefix + name);
    return rows;
}

} // namespace tonvale

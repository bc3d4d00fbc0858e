// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cd/BatchWindow.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "desktop/BrowseForFolder.h"

#include <algorithm>

// A run: it goes on from one file to the next as the codec tells that it is done.

namespace tonvale {

namespace {

constexpr const char *kListEmpty =
    "Your list is currently empty. \r\n\r\n"
    "Select the files you wish to be included in your list first in order to proceed.\r\n\r\n"
    "(To accomplish this, select \"Add\"  from the toolbar or Edit menu, or simply press Ctrl + A).";
constexpr const char *kSourceRefused =
    "An error occurred attempting to open the source WAV file.\r\n\r\n"
    "Ensure the media is of valid WAV content and retry the operation.  If problems persist, the source media may be "
    "corrupt or invalid.";

std::vector<std::string> rowsOf(const ListBox &list) {
    std::vector<std::string> rows;
    for (std::size_t i = 0; i < list.ListCount(); ++i) rows.push_back(list.List(i));
    return rows;
}

} // namespace

void BatchWindow::ConvertMenu_Click() {
    DestFolder.clear();
    if (ConvertMenu.Caption == variant_.convertCaption)
        startRun();
    else
        stopRun();
}

void BatchWindow::startRun() {
    if (List1.ListCount() == 0) {
        tell(kListEmpty);
        return;
    }
    attempt([&] { DestFolder = BrowseForFolder(app_.services.dialogs, variant_.folderTitle); });
    if (DestFolder.empty() || isUnloading()) return;
    List1.Enabled = false;
    RunActive = true;
    RunPos = 0;
    RunQueue = rowsOf(List1);
    startFile();
    showFileInWork();
    ConvertMenu.Caption = variant_.stopCaption;
}

void BatchWindow::stopRun() {
    RunActive = false;
    Label1.Caption = RunFinished ? variant_.finished : variant_.stopped;
    attempt([&] { codec_->stop(); });
    List1.Enabled = true;
    Gauge.Value = 0;
    ConvertMenu.Caption = variant_.convertCaption;
    RunQueue.clear();
}

void BatchWindow::endRun() {
    if (variant_.finishedIsSet == FinishedIsSet::BeforeListIsCleared) RunFinished = true;
    List1.Enabled = true;
    List1.Clear();
    RunFinished = true;
    stopRun();
}

void BatchWindow::startFile() {
    app_.Err.Clear();
    SourceFile = RunQueue[static_cast<std::size_t>(RunPos)];
    app_.paths.ParsePath(SourceFile, "");
    if (!isAccepted(app_.paths.ParsedExtension)) {
        stopRun();
        return;
    }
    const std::string output = joinPath(DestFolder, app_.paths.ParsedBaseName + variant_.resultExtension);
    if (attempt([&] { convert(output); })) return;
    app_.box(variant_.failed, BoxIcon::Exclamation, BoxPlace::Foreground);
    codecDone();
}

bool BatchWindow::isAccepted(const std::string &extension) const {
    return std::ranges::find(variant_.sources, lowerCase(extension)) != variant_.sources.end();
}

void BatchWindow::convert(const std::string &output) {
    RunActive = false;
    List1.Enabled = false;
    FileService &files = app_.services.files;
    if (files.fileExists(output)) {
        files.clearAttributes(output);
        files.deleteFile(output);
    }
    const bool opened = codec_->open(SourceFile, output) == 0;
    if (!opened && variant_.refusedSource == RefusedSource::EndsInBox) {
        tell(kSourceRefused);
        return;
    }
    codec_->start();
    RunActive = true;
}

// A run that has been stopped while its file was started has none.
void BatchWindow::showFileInWork() {
    if (RunQueue.empty()) return;
    Label1.Caption = variant_.converting + RunQueue[static_cast<std::size_t>(RunPos)] + " (" +
                     std::to_string(RunPos + 1) + " of " + std::to_string(RunQueue.size()) + ")";
}

// Without a length there is nothing to show.
void BatchWindow::codecProgress(std::int32_t position) { Gauge.Value = toInt32(position * 100.0 / codec_->length()); }

void BatchWindow::codecDone() {
    if (!RunActive) return;
    ++RunPos;
    if (static_cast<std::size_t>(RunPos) >= RunQueue.size()) {
        endRun();
        return;
    }
    startFile();
    showFileInWork();
}

} // namespace tonvale

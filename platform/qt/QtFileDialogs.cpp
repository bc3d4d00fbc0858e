// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/QtFileDialogs.h"

#include "controls/DisplayText.h"
#include "platform/qt/file_names.h"
#include "platform/qt/owner_window.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>

#include <filesystem>
#include <system_error>

namespace tonvale {

namespace {

constexpr std::int32_t kChosen = 1, kCancelled = 0;

QString decoded(const std::string &bytes) { return QFile::decodeName(QByteArray::fromStdString(bytes)); }

QString shownText(const std::string &bytes) { return QString::fromStdString(displayText(bytes)); }

bool has(const OpenFileName &dialog, std::int32_t flag) { return (dialog.flags & flag) != 0; }

void fill(QFileDialog &window, const OpenFileName &dialog) {
    if (!dialog.title.empty()) window.setWindowTitle(shownText(dialog.title));
    if (const QStringList filters = nameFilters(dialog.filter); !filters.isEmpty()) {
        window.setNameFilters(filters);
        window.setOption(QFileDialog::HideNameFilterDetails);
        window.selectNameFilter(filters.value(dialog.filterIndex - 1, filters.front()));
    }
    window.setDirectory(dialog.initialDirectory.empty() ? QDir::currentPath() : decoded(dialog.initialDirectory));
    if (!dialog.file.empty()) window.selectFile(decoded(dialog.file));
}

// Counted from 1. The dialog names the filter with or without its patterns.
std::int32_t filterIndex(const QFileDialog &window, std::int32_t fallback) {
    const QString chosen = window.selectedNameFilter();
    const QStringList filters = window.nameFilters();
    for (qsizetype i = 0; i < filters.size(); ++i)
        if (filters[i] == chosen || filters[i].startsWith(chosen + QStringLiteral(" (")))
            return static_cast<std::int32_t>(i) + 1;
    return fallback;
}

bool run(QFileDialog &window) {
    placeAboveActiveWindow(window);
    return window.exec() == QDialog::Accepted;
}

bool exists(const std::string &file) {
    std::error_code error;
    return std::filesystem::exists(file, error);
}

bool mayReplace(const std::string &file) {
    QMessageBox question(QMessageBox::Warning, QFileDialog::tr("Save As"), {}, QMessageBox::Yes | QMessageBox::No);
    question.setTextFormat(Qt::PlainText);
    question.setText(shownText(file) + QStringLiteral(" already exists.\nDo you want to replace it?"));
    question.setDefaultButton(QMessageBox::No);
    placeAboveActiveWindow(question);
    return question.exec() == QMessageBox::Yes;
}

// The dialog has asked about the name as typed, so only an extension added here calls for another
// question. Returns whether the answer stands.
bool addExtension(const OpenFileName &dialog, std::string &file) {
    if (dialog.defaultExtension.empty() || std::filesystem::path(file).has_extension()) return true;
    if (!dialog.defaultExtension.starts_with('.')) file += '.';
    file += dialog.defaultExtension;
    return !has(dialog, kDialogOverwritePrompt) || !exists(file) || mayReplace(file);
}

} // namespace

std::int32_t QtFileDialogs::answer(OpenFileName &dialog, const QFileDialog &window,
                                   const std::vector<std::string> &files) {
    const bool several = files.size() > 1;
    dialog.file = several ? joinedSelection(files) : files.front();
    dialog.fileTitle = several ? std::string() : std::filesystem::path(files.front()).filename().string();
    dialog.filterIndex = filterIndex(window, dialog.filterIndex);
    return kChosen;
}

std::int32_t QtFileDialogs::getOpenFileName(OpenFileName &dialog) {
    QFileDialog window;
    window.setAcceptMode(QFileDialog::AcceptOpen);
    window.setFileMode(has(dialog, kDialogAllowMultiselect) ? QFileDialog::ExistingFiles
                       : has(dialog, kDialogFileMustExist)  ? QFileDialog::ExistingFile
                                                            : QFileDialog::AnyFile);
    fill(window, dialog);
    if (!run(window)) return kCancelled;
    std::vector<std::string> files = localFiles(window.selectedUrls());
    if (files.empty()) return kCancelled;
    if (files.size() == 1 && !exists(files.front())) static_cast<void>(addExtension(dialog, files.front()));
    return answer(dialog, window, files);
}

std::int32_t QtFileDialogs::getSaveFileName(OpenFileName &dialog) {
    QFileDialog window;
    window.setAcceptMode(QFileDialog::AcceptSave);
    window.setFileMode(QFileDialog::AnyFile);
    window.setOption(QFileDialog::DontConfirmOverwrite, !has(dialog, kDialogOverwritePrompt));
    fill(window, dialog);
    while (run(window)) {
        std::vector<std::string> files = localFiles(window.selectedUrls());
        if (files.empty()) return kCancelled;
        if (addExtension(dialog, files.front())) return answer(dialog, window, {files.front()});
    }
    return kCancelled;
}

std::optional<std::string> QtFileDialogs::browseForFolder(const std::string &title) {
    QFileDialog window;
    window.setFileMode(QFileDialog::Directory);
    window.setOption(QFileDialog::ShowDirsOnly);
    if (!title.empty()) window.setWindowTitle(shownText(title));
    if (!run(window)) return std::nullopt;
    const std::vector<std::string> files = localFiles(window.selectedUrls());
    return files.empty() ? std::nullopt : std::optional(files.front());
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/file_names.h"

#include "controls/DisplayText.h"
#include "controls/Text.h"

#include <QByteArray>
#include <QStringList>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tonvale {

namespace {

namespace fs = std::filesystem;

std::string lossyName(const std::string &name) {
    return QString::fromUtf8(name.data(), qsizetype(name.size())).toStdString();
}

// The entry of `directory` that reads as `name` once its odd bytes are replaced.
fs::path entryReadAs(const fs::path &directory, const std::string &name) {
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error))
        if (lossyName(entry->path().filename().string()) == name) return entry->path();
    return directory / name;
}

std::string onDisk(const std::string &path) {
    static constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
    if (path.find(kReplacement) == std::string::npos) return path;
    fs::path found;
    for (const fs::path &part : fs::path(path)) {
        std::error_code error;
        const bool replaced = part.string().find(kReplacement) != std::string::npos;
        found = replaced && !fs::exists(found / part, error) ? entryReadAs(found, part.string()) : found / part;
    }
    return found.string();
}

// Both cases of the patterns: file types are told without regard to case.
QString patterns(std::string_view text) {
    QStringList list;
    for (const QString &pattern : QString::fromStdString(displayText(text)).split(u';', Qt::SkipEmptyParts)) {
        list << pattern.trimmed();
        if (pattern.toUpper() != pattern) list << pattern.trimmed().toUpper();
    }
    return list.join(u' ');
}

QString description(std::string_view text) {
    QString words = QString::fromStdString(displayText(text));
    // What stands in parentheses is for the eye alone; Qt would take it for the patterns.
    if (words.endsWith(u')')) words.truncate(words.lastIndexOf(u'('));
    return words.trimmed();
}

} // namespace

std::vector<std::string> localFiles(const QList<QUrl> &urls) {
    std::vector<std::string> files;
    for (const QUrl &url : urls) {
        if (!url.isLocalFile()) continue;
        files.push_back(onDisk(QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toUtf8()).toStdString()));
    }
    return files;
}

QStringList nameFilters(std::string_view filter) {
    QStringList list;
    while (!filter.empty() && filter.front() != '\0') {
        const std::string_view words = untilZero(filter);
        filter.remove_prefix(std::min(words.size() + 1, filter.size()));
        const std::string_view kinds = untilZero(filter);
        filter.remove_prefix(std::min(kinds.size() + 1, filter.size()));
        list << description(words) + QStringLiteral(" (") + patterns(kinds) + u')';
    }
    return list;
}

std::string joinedSelection(const std::vector<std::string> &files) {
    std::string directory = fs::path(files.front()).parent_path().string();
    const bool oneDirectory = std::all_of(files.begin(), files.end(), [&](const std::string &file) {
        return fs::path(file).parent_path().string() == directory;
    });
    // A list of recent files may offer files from anywhere; all of them lie below the root.
    if (!oneDirectory) directory.assign(1, '/');
    std::string joined = directory + '\0';
    for (const std::string &file : files) joined += fs::path(file).lexically_relative(directory).string() + '\0';
    return joined;
}

} // namespace tonvale

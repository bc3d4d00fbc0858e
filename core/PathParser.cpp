// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/PathParser.h"

#include "controls/Text.h"

namespace tonvale {

namespace {

// Blanks and double quotes may alternate at both ends, so taking both off at once is the same.
std::string withoutQuotesAndBlanks(const std::string &path) {
    constexpr const char *kStripped = "\" ";
    const std::size_t first = path.find_first_not_of(kStripped);
    if (first == std::string::npos) return {};
    return path.substr(first, path.find_last_not_of(kStripped) - first + 1);
}

} // namespace

void PathParser::clear() {
    ParsedDrive.clear();
    ParsedDirectory.clear();
    ParsedFolder.clear();
    ParsedFileName.clear();
    ParsedBaseName.clear();
    ParsedExtension.clear();
    ParsedPath.clear();
}

std::string PathParser::ParsePath(const std::string &path, const std::string &selector, TrailingSlash slash,
                                  ExtensionDot dot, Assume assume) {
    const std::string original = path; // the caller may pass one of our own parts
    clear();
    ParsedPath = original;
    std::string text = withoutQuotesAndBlanks(original);
    if (text.empty()) return {};

    const bool hasDrives = !text.starts_with('/');
    const char separator = hasDrives ? '\\' : '/';
    const bool endsInDrive = hasDrives && text.ends_with(':');
    if ((assume == Assume::Directory || endsInDrive) && !text.ends_with(separator)) text += separator;
    const std::size_t colon = hasDrives ? text.find(':') : std::string::npos;
    if (colon != std::string::npos) ParsedDrive = text.substr(0, colon + 1);

    splitDirectory(text, separator, slash);
    splitFileName(dot);
    return part(selector);
}

void PathParser::splitDirectory(const std::string &text, char separator, TrailingSlash slash) {
    const std::size_t last = text.rfind(separator);
    if (last == std::string::npos) {
        ParsedFileName = text.substr(ParsedDrive.size());
        return;
    }
    ParsedDirectory = text.substr(0, slash == TrailingSlash::Keep ? last + 1 : last);
    const bool isRoot = separator == '/' ? ParsedDirectory.empty() : ParsedDirectory.ends_with(':');
    if (isRoot) ParsedDirectory += separator;
    const std::size_t lastButOne = last == 0 ? std::string::npos : text.rfind(separator, last - 1);
    if (lastButOne != std::string::npos) ParsedFolder = text.substr(lastButOne + 1, last - lastButOne - 1);
    ParsedFileName = text.substr(last + 1);
}

void PathParser::splitFileName(ExtensionDot dot) {
    const std::size_t point = ParsedFileName.rfind('.');
    ParsedBaseName = ParsedFileName.substr(0, point);
    if (point == std::string::npos) return;
    ParsedExtension = ParsedFileName.substr(dot == ExtensionDot::Keep ? point : point + 1);
    if (ParsedExtension == ".") ParsedExtension.clear();
}

std::string PathParser::part(const std::string &selector) const {
    const std::string which = lowerCase(selector);
    if (which == "d") return ParsedDrive;
    if (which == "l") return ParsedFolder;
    if (which == "f") return ParsedFileName;
    if (which == "b") return ParsedBaseName;
    if (which == "e") return ParsedExtension;
    return ParsedDirectory;
}

} // namespace tonvale

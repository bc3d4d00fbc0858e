// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/command_line.h"

#include "controls/Errors.h"
#include "controls/Text.h"

namespace tonvale {

namespace {

bool isFile(FileService &files, const std::string &path) {
    try {
        return files.fileExists(path);
    } catch (const RuntimeError &) {
        return false;
    }
}

std::string joined(std::span<char *const> arguments) {
    std::string line;
    for (const char *argument : arguments) {
        if (!line.empty()) line += ' ';
        line += argument;
    }
    return line;
}

} // namespace

std::string commandLine(std::span<char *const> arguments, FileService &files) {
    std::string line = joined(arguments);
    if (!line.starts_with('/') && isFile(files, line)) line = joinPath(files.currentDirectory(), line);
    return arguments.size() == 1 ? '"' + line + '"' : line;
}

} // namespace tonvale

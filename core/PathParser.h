// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

namespace tonvale {

enum class TrailingSlash { Drop, Keep };
enum class ExtensionDot { Drop, Keep };
enum class Assume { File, Directory };

// The one path splitter, and the parts that its last call has left. A path that begins with '/' is
// split at '/' and has no drive; any other is split at the backslash.
class PathParser {
public:
    std::string ParsedDrive;     // "C:"
    std::string ParsedDirectory; // "C:\music\pop"
    std::string ParsedFolder;    // "pop"
    std::string ParsedFileName;  // "song.live.mp3"
    std::string ParsedBaseName;  // "song.live"
    std::string ParsedExtension; // ".mp3"
    std::string ParsedPath;      // as passed in

    // Splits the path and returns the part that `selector` names in either case: "d" drive,
    // "l" folder, "f" file name, "b" base name, "e" extension, anything else the directory.
    std::string ParsePath(const std::string &path, const std::string &selector,
                          TrailingSlash slash = TrailingSlash::Drop, ExtensionDot dot = ExtensionDot::Keep,
                          Assume assume = Assume::File);

private:
    void clear();
    void splitDirectory(const std::string &text, char separator, TrailingSlash slash);
    void splitFileName(ExtensionDot dot);
    [[nodiscard]] std::string part(const std::string &selector) const;
};

} // namespace tonvale

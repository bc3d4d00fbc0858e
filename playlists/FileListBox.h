// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <string>
#include <vector>

namespace tonvale {

// The files of one directory whose names match a pattern. Never shown.
class FileListBox {
public:
    explicit FileListBox(FileService &files) : files_(files) {}

    std::string Path;
    std::string Pattern = "*.*"; // "*.a;*.b", compared without regard to case

    void Refresh();
    [[nodiscard]] const std::vector<std::string> &List() const { return names_; }

private:
    FileService &files_;
    std::vector<std::string> names_;
};

} // namespace tonvale

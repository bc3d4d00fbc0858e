// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <dirent.h>

#include <memory>

namespace tonvale {

struct CloseDirectory {
    void operator()(DIR *directory) const { (void)::closedir(directory); }
};
using Directory = std::unique_ptr<DIR, CloseDirectory>;

} // namespace tonvale

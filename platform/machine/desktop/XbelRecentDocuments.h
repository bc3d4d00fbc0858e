// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

namespace tonvale {

// The desktop's list of recent documents, recently-used.xbel. It is replaced whole or not at all;
// one that cannot be read is left as it is.
class XbelRecentDocuments : public RecentDocuments {
public:
    explicit XbelRecentDocuments(FileService &files) : files_(files) {}

    void add(const std::string &path) override;
    void clear() override;

private:
    FileService &files_;
};

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

namespace tonvale {

class PosixFileService : public FileService {
public:
    std::string find(const std::string &path) override;
    bool fileExists(const std::string &path) override;
    bool pathExists(const std::string &path) override;
    std::vector<std::string> filesIn(const std::string &directory) override;
    std::int64_t fileLength(const std::string &path) override;
    void rename(const std::string &from, const std::string &to) override;
    void deleteFile(const std::string &path) override;
    void clearAttributes(const std::string &path) override;
    std::unique_ptr<LineReader> openLines(const std::string &path) override;
    void replaceFile(const std::string &path, const std::string &content) override;
    std::string currentDirectory() override;
    std::string temporaryDirectory() override;
};

} // namespace tonvale

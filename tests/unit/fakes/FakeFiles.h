// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"
#include "controls/Text.h"
#include "core/Services.h"
#include "tests/unit/fakes/CallLog.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tonvale::test {

// Gives the lines of a text; fails behind the last one where the test says so.
class FakeLineReader : public LineReader {
public:
    FakeLineReader(const std::string &content, std::optional<ErrorNumber> errorAtEnd) : errorAtEnd_(errorAtEnd) {
        std::string line;
        for (std::size_t i = 0; i < content.size(); ++i) {
            if (content[i] != '\r') {
                line += content[i];
                continue;
            }
            if (i + 1 < content.size() && content[i + 1] == '\n') ++i;
            lines_.push_back(std::exchange(line, {}));
        }
        if (!line.empty()) lines_.push_back(line);
    }
    std::optional<std::string> next() override {
        if (lines_.empty()) {
            if (errorAtEnd_) throw RuntimeError(*errorAtEnd_);
            return std::nullopt;
        }
        std::string line = std::move(lines_.front());
        lines_.pop_front();
        return line;
    }

private:
    std::deque<std::string> lines_;
    std::optional<ErrorNumber> errorAtEnd_;
};

// Files in memory, found without regard to case.
class FakeFiles : public FileService {
public:
    explicit FakeFiles(CallLog &log) : log_(log) {}

    std::string directory = "/home/me";
    std::string temporary = "/home/me/.Cache/Orvane-Tonvale/";
    std::optional<ErrorNumber> renameError, deleteError, lengthError, readError, writeError;
    std::map<std::string, std::vector<std::string>> folders; // and the files right in them

    void add(const std::string &path, std::int64_t length) { files_[path] = {{}, length}; }
    void addText(const std::string &path, const std::string &content) {
        files_[path] = {content, static_cast<std::int64_t>(content.size())};
    }
    [[nodiscard]] const std::string &text(const std::string &path) { return at(path).content; }
    [[nodiscard]] bool hasExactly(const std::string &path) const { return files_.contains(path); }

    std::string find(const std::string &path) override {
        if (files_.contains(path)) return path;
        for (const auto &[name, file] : files_)
            if (equalFolded(name, path)) return name;
        return path;
    }
    bool fileExists(const std::string &path) override { return files_.contains(find(path)); }
    bool pathExists(const std::string &path) override { return folders.contains(path) || fileExists(path); }
    std::vector<std::string> filesIn(const std::string &path) override {
        if (readError) throw RuntimeError(*readError);
        return folders.at(path);
    }
    std::int64_t fileLength(const std::string &path) override {
        if (lengthError) throw RuntimeError(*lengthError);
        return at(path).length;
    }
    void rename(const std::string &from, const std::string &to) override {
        log_.add("files.rename " + from + " -> " + to);
        if (renameError) throw RuntimeError(*renameError);
        const File moved = at(from);
        if (fileExists(to)) throw RuntimeError(ErrorNumber::FileAlreadyExists);
        files_.erase(find(from));
        files_[to] = moved;
    }
    void clearAttributes(const std::string &path) override { log_.add("files.clearAttributes " + path); }
    void deleteFile(const std::string &path) override {
        log_.add("files.delete " + path);
        if (deleteError) throw RuntimeError(*deleteError);
        at(path);
        files_.erase(find(path));
    }
    std::unique_ptr<LineReader> openLines(const std::string &path) override {
        return std::make_unique<FakeLineReader>(at(path).content, readError);
    }
    void replaceFile(const std::string &path, const std::string &content) override {
        log_.add("files.replace " + path);
        if (writeError) throw RuntimeError(*writeError);
        addText(path, content);
    }
    std::string currentDirectory() override { return directory; }
    std::string temporaryDirectory() override { return temporary; }

private:
    struct File {
        std::string content;
        std::int64_t length = 0;
    };
    const File &at(const std::string &path) {
        const auto found = files_.find(find(path));
        if (found == files_.end()) throw RuntimeError(ErrorNumber::FileNotFound);
        return found->second;
    }

    CallLog &log_;
    std::map<std::string, File> files_;
};

} // namespace tonvale::test

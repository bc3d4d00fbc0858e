// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/file_access.h"
#include "platform/machine/base/UniqueFd.h"

#include <cstdint>
#include <functional>
#include <string>

namespace tonvale {

// A file that grows beside its target, without a name where the file system can do this and under
// a hidden one elsewhere. It goes away unless it is published.
class OutputFile {
public:
    enum class Growing { Nameless, Hidden };
    explicit OutputFile(std::string target, Growing growing = Growing::Nameless);
    ~OutputFile();
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    // Any number of threads may write at a time.
    void write(std::int64_t position, Bytes bytes) const { writeAt(file_.get(), position, bytes); }
    [[nodiscard]] std::size_t read(std::int64_t position, MutableBytes bytes) const {
        return readAt(file_.get(), position, bytes);
    }
    // Fails now if there is no room for so much.
    void reserve(std::int64_t size) const;
    // Cuts the file off at the size and puts it into the target's place.
    void publish(std::int64_t size);

private:
    [[nodiscard]] bool makeNameless();
    void makeHidden();
    void giveName();
    [[nodiscard]] bool takeName(const std::function<bool(const char *name)> &take);

    std::string target_;
    std::string name_; // empty while there is none, and once published
    UniqueFd file_;
};

} // namespace tonvale

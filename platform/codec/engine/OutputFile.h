// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/file_access.h"
#include "platform/machine/base/NewFile.h"

#include <cstdint>
#include <string>

namespace tonvale {

// What a conversion writes. It goes away unless it is published.
class OutputFile {
public:
    explicit OutputFile(const std::string &target);

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
    NewFile file_;
};

} // namespace tonvale

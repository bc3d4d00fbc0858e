// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <unistd.h>

#include <utility>

namespace tonvale {

class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor = -1) : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor &&other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileDescriptor &operator=(FileDescriptor &&) = delete;
    ~FileDescriptor() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }

    [[nodiscard]] int get() const { return descriptor_; }

private:
    int descriptor_;
};

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Signal.h"
#include "core/Services.h"

#include <cstdint>
#include <memory>
#include <string>

namespace tonvale {

// What a batch window needs of its encoder or decoder.
class BatchCodec {
public:
    BatchCodec() = default;
    virtual ~BatchCodec() = default;
    BatchCodec(const BatchCodec &) = delete;
    BatchCodec &operator=(const BatchCodec &) = delete;

    Event<std::int32_t> progress; // position, 0 to length
    Event<> done;

    [[nodiscard]] virtual std::int16_t open(const std::string &source, const std::string &destination) = 0; // 0: done
    virtual void start() = 0;
    virtual void stop() = 0;
    [[nodiscard]] virtual std::int32_t length() const = 0;
};

[[nodiscard]] std::unique_ptr<BatchCodec> makeBatchEncoder(const Services &services);
[[nodiscard]] std::unique_ptr<BatchCodec> makeBatchDecoder(const Services &services);

} // namespace tonvale

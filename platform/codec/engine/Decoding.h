// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/Conversion.h"
#include "platform/codec/engine/DoneRanges.h"
#include "platform/codec/engine/FrameMap.h"
#include "platform/codec/engine/Mpg123.h"
#include "platform/codec/engine/OutputFile.h"
#include "platform/codec/engine/WavHeader.h"

#include <atomic>
#include <cstdint>
#include <string>

namespace tonvale {

// An MPEG audio file on its way into a WAV file, on several threads where it has no flaws, and with
// the same samples on one thread where it has.
class Decoding final : public Conversion {
public:
    Decoding(const std::string &source, const std::string &target, Crew crew);
    void run(const std::stop_token &stop, const Progress &progress) override;

private:
    [[nodiscard]] std::int64_t tryRanges(const std::stop_token &stop, const Progress &progress);
    [[nodiscard]] std::int64_t decodeInOrder(const std::stop_token &stop, const Progress &progress);
    void readToEnd(const std::stop_token &stop, std::atomic<std::int64_t> &size, std::atomic<std::int64_t> &position);

    UniqueFd source_;
    FileDecoder decoder_;
    OutputFile output_;
    WavHeader header_;
    Crew crew_;
};

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/Conversion.h"
#include "platform/codec/engine/InfoTag.h"
#include "platform/codec/engine/OutputFile.h"
#include "platform/codec/engine/Segment.h"

#include <atomic>
#include <cstdint>
#include <string>

namespace tonvale {

// A WAV file on its way into an MP3 file, on several threads.
class Encoding final : public Conversion {
public:
    Encoding(const std::string &source, const std::string &target, Crew crew);
    void run(const std::stop_token &stop, const Progress &progress) override;

private:
    void work(const std::stop_token &stop);
    void sumUp();
    void finish();

    UniqueFd source_;
    Mp3Shape shape_;
    EncodingPlan plan_;
    OutputFile output_;
    Crew crew_;
    EncodingBoard board_;
    std::atomic<std::size_t> nextSegment_ = 0;
    // The running thread's: of the frames that are final from the first on.
    std::int64_t summedUp_ = 0;
    Crc16 musicCrc_;
};

} // namespace tonvale

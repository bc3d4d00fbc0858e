// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/FrameMap.h"

#include "platform/codec/engine/FrameReader.h"

#include <algorithm>
#include <array>
#include <deque>
#include <string_view>

namespace tonvale {

namespace {

// The library's filter bank is at the same place of its round again after so many granules.
constexpr std::int64_t kRound = 8;
constexpr std::size_t kMostHistory = 1024;
constexpr std::int64_t kClosingTagSize = 128;
constexpr std::string_view kClosingTag = "TAG";

struct Past {
    std::int64_t position;
    int slot;
};

bool endsAt(int file, std::int64_t position) {
    const std::int64_t rest = fileSize(file) - position;
    if (rest != kClosingTagSize) return rest == 0;
    std::array<std::uint8_t, kClosingTag.size()> word{};
    return readAt(file, position, word) == word.size() && std::ranges::equal(word, kClosingTag);
}

// The frames before `frame` that its range needs: some that are decoded, so that all filters hold
// what they would, and others that hold main data of those.
std::optional<FrameMap::Range> rangeAt(std::int64_t frame, const MpegHeader &header, const std::deque<Past> &past) {
    if (past.empty()) return FrameMap::Range{};
    const std::int64_t heard = frame - 2 / header.granules(), round = kRound / header.granules();
    std::int64_t first = heard, slots = 0;
    const auto at = [&](std::int64_t number) { return past[past.size() - static_cast<std::size_t>(frame - number)]; };
    while (slots < kMostReservoir || first % round != 0) {
        if (frame - first >= static_cast<std::int64_t>(past.size())) return {};
        slots += at(--first).slot;
    }
    return FrameMap::Range{at(first).position, first, heard};
}

} // namespace

std::optional<FrameMap> FrameMap::make(int file, std::int64_t position, const std::stop_token &stop) {
    FrameReader reader(file, position);
    FrameMap map;
    std::deque<Past> past;
    int available = 0; // bytes of main data before the frame
    for (std::int64_t begin = position; const auto frame = reader.next(); begin = reader.position(), ++map.frames) {
        const SideInfo info = SideInfo::parse(frame->header, frame->bytes);
        const int slot = frame->header.size() - frame->header.slotBegin();
        if (map.frames == 0) map.header = frame->header;
        const bool isSound = frame->header.matches(map.header) && info.mainDataBegin <= available &&
                             info.mainDataBits <= (info.mainDataBegin + slot) * 8;
        if (!isSound || stop.stop_requested()) return {};
        if (map.frames % kRangeFrames == 0) {
            const auto range = rangeAt(map.frames, map.header, past);
            if (!range) return {};
            map.ranges.push_back(*range);
        }
        past.push_back({begin, slot});
        if (past.size() > kMostHistory) past.pop_front();
        available = std::min(available + slot, kMostReservoir);
    }
    if (map.frames == 0 || !endsAt(file, reader.position())) return {};
    map.ranges.front().position = position;
    return map;
}

} // namespace tonvale

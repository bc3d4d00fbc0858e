// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MidiSong.h"

#include "controls/Errors.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string_view>

namespace tonvale {

namespace {

constexpr std::uint32_t kDefaultTempo = 500'000; // microseconds for a quarter
constexpr std::int64_t kLastPossibleTick = std::numeric_limits<std::int32_t>::max();

using Bytes = std::span<const std::byte>;

bool startsWith(Bytes bytes, std::string_view text) {
    return bytes.size() >= text.size() && std::memcmp(bytes.data(), text.data(), text.size()) == 0;
}

Bytes upTo(Bytes bytes, std::size_t length) { return bytes.first(std::min(length, bytes.size())); }

// Takes numbers off the front; past the end there are only zeros.
class Reader {
public:
    explicit Reader(Bytes bytes) : rest_(bytes) {}

    [[nodiscard]] bool atEnd() const { return rest_.empty(); }
    [[nodiscard]] Bytes rest() const { return rest_; }
    void skip(std::size_t length) { rest_ = rest_.subspan(std::min(length, rest_.size())); }

    std::uint32_t byte() {
        if (rest_.empty()) return 0;
        const auto value = std::to_integer<std::uint32_t>(rest_.front());
        skip(1);
        return value;
    }
    std::uint32_t bigEndian(int length) {
        std::uint32_t value = 0;
        for (int i = 0; i < length; ++i) value = value << 8 | byte();
        return value;
    }
    std::uint32_t littleEndian32() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value |= byte() << (8 * i);
        return value;
    }
    std::uint32_t variableLength() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) {
            const std::uint32_t part = byte();
            value = value << 7 | (part & 0x7F);
            if (part < 0x80) break;
        }
        return value;
    }

private:
    Bytes rest_;
};

// The "data" chunk of a RIFF file, or the file itself where it is none.
Bytes unwrapped(Bytes file) {
    if (!startsWith(file, "RIFF")) return file;
    Reader reader(file);
    reader.skip(kMidiSignatureLength);
    while (!reader.atEnd()) {
        const bool isSong = startsWith(reader.rest(), "data");
        reader.skip(4);
        const std::size_t length = reader.littleEndian32();
        if (isSong) return upTo(reader.rest(), length);
        reader.skip(length + length % 2);
    }
    return {};
}

std::size_t channelMessageLength(std::uint32_t status) {
    const bool isShort = (status & 0xF0) == 0xC0 || (status & 0xF0) == 0xD0;
    return isShort ? 1 : 2;
}

} // namespace

bool looksLikeMidi(Bytes start) {
    if (startsWith(start, "MThd")) return true;
    return startsWith(start, "RIFF") && start.size() >= kMidiSignatureLength && startsWith(start.subspan(8), "RMID");
}

MidiSong::MidiSong(Bytes file) : bytes_(unwrapped(file)) {
    if (!startsWith(bytes_, "MThd")) throw RuntimeError(ErrorNumber::AutomationError, "The MIDI file is damaged");
    constexpr std::size_t kDivisionOffset = 12;
    Reader reader(bytes_);
    reader.skip(kDivisionOffset);
    ticksPerQuarter_ = reader.bigEndian(2);
    if (ticksPerQuarter_ == 0 || ticksPerQuarter_ >= 0x8000)
        throw RuntimeError(ErrorNumber::AutomationError, "The timing of this MIDI file is not supported");
    readTracks();
}

void MidiSong::readTracks() {
    std::vector<TempoEvent> tempos;
    Reader reader(bytes_.subspan(4));
    reader.skip(reader.bigEndian(4));
    bool found = false;
    while (!reader.atEnd()) {
        const bool isTrack = startsWith(reader.rest(), "MTrk");
        reader.skip(4);
        const std::size_t length = reader.bigEndian(4);
        if (isTrack) readTrack(upTo(reader.rest(), length), tempos);
        found = found || isTrack;
        reader.skip(length);
    }
    if (!found) throw RuntimeError(ErrorNumber::AutomationError, "The MIDI file has no tracks");
    buildTempos(std::move(tempos));
}

void MidiSong::readTrack(Bytes track, std::vector<TempoEvent> &tempos) {
    constexpr std::uint32_t kMeta = 0xFF, kEndOfTrack = 0x2F, kSetTempo = 0x51;
    Reader reader(track);
    std::int64_t tick = 0;
    std::uint32_t running = 0;
    while (!reader.atEnd() && tick < kLastPossibleTick) {
        tick += reader.variableLength();
        if (reader.atEnd()) break;
        const auto next = std::to_integer<std::uint32_t>(reader.rest().front());
        const std::uint32_t status = next >= 0x80 ? reader.byte() : running;
        if (status < 0x80) break; // data without a status: nothing behind it can be trusted
        lastTick_ = std::max(lastTick_, std::min(tick, kLastPossibleTick));
        if (status < 0xF0) {
            running = status;
            reader.skip(channelMessageLength(status));
            continue;
        }
        const std::uint32_t kind = status == kMeta ? reader.byte() : 0;
        const std::uint32_t length = reader.variableLength();
        if (status == kMeta && kind == kEndOfTrack) break;
        if (status == kMeta && kind == kSetTempo && length >= 3) {
            Reader value(reader.rest());
            tempos.push_back({tick, value.bigEndian(3)});
        }
        reader.skip(length);
    }
}

void MidiSong::buildTempos(std::vector<TempoEvent> events) {
    std::stable_sort(events.begin(), events.end(),
                     [](const TempoEvent &a, const TempoEvent &b) { return a.tick < b.tick; });
    const auto perTick = [this](std::uint32_t tempo) { return tempo / 1e6 / static_cast<double>(ticksPerQuarter_); };
    tempos_.push_back({0, 0, perTick(kDefaultTempo)});
    for (const TempoEvent &event : events)
        tempos_.push_back({event.tick, secondsAt(event.tick), perTick(event.microsecondsPerQuarter)});
}

double MidiSong::secondsAt(std::int64_t tick) const {
    const auto after = std::upper_bound(tempos_.begin(), tempos_.end(), tick,
                                        [](std::int64_t t, const Tempo &tempo) { return t < tempo.tick; });
    const Tempo &tempo = *std::prev(after);
    return tempo.seconds + static_cast<double>(tick - tempo.tick) * tempo.secondsPerTick;
}

std::int32_t MidiSong::tickAt(double seconds) const {
    const auto after = std::upper_bound(tempos_.begin(), tempos_.end(), std::max(0.0, seconds),
                                        [](double s, const Tempo &tempo) { return s < tempo.seconds; });
    const Tempo &tempo = *std::prev(after);
    const double ticks = tempo.secondsPerTick > 0 ? (seconds - tempo.seconds) / tempo.secondsPerTick : 0;
    return static_cast<std::int32_t>(
        std::clamp(static_cast<double>(tempo.tick) + ticks, 0.0, static_cast<double>(lastTick_)));
}

} // namespace tonvale

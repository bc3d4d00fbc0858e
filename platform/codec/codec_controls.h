// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Loop.h"
#include "controls/Mp3Enc.h"
#include "controls/Mp3Play.h"
#include "platform/codec/Conversion.h"

#include <functional>
#include <memory>
#include <string>

namespace tonvale {

// The name on disk that a path finds; the path itself when it finds none.
using CodecFileFinder = std::function<std::string(const std::string &path)>;

// The converters. The module with the encoder, the decoder and the WAV reader is loaded when the
// first file is opened; where it cannot be, opening gives 429. Without a crew, every core works.
[[nodiscard]] std::unique_ptr<Mp3Enc> makeMp3Enc(EventLoop &loop, const CodecFileFinder &find, Crew crew = {0});
[[nodiscard]] std::unique_ptr<Mp3Play> makeMp3Play(EventLoop &loop, const CodecFileFinder &find, Crew crew = {0});

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

namespace tonvale {

// The length in seconds of the stream formats that tell none and whose length the decoder can only
// guess from the bit rate at the start: MPEG audio without a frame count in its first frame, and
// bare MPEG video. Reads the file through, for two seconds at most; 0 where it does not apply or
// did not succeed.
[[nodiscard]] double measuredDuration(int file, const std::string &format);

} // namespace tonvale

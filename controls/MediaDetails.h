// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Picture.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tonvale {

enum class PictureAspect { AsStored, FourToThree, SixteenToNine, Wide /* 2.35:1 */ };

// What a user may change while the media plays. It holds until the next file is opened.
struct MediaSettings {
    double speed = 1;                                                   // 0.25 to 4
    std::int32_t hue = 0, saturation = 0, brightness = 0, contrast = 0; // -100 to 100
    PictureAspect aspect = PictureAspect::AsStored;
    bool deinterlace = false;
    std::int32_t audioTrack = 0, subtitleTrack = 0; // a track's id; 0: none
    friend bool operator==(const MediaSettings &, const MediaSettings &) = default;
};

struct MediaTrack {
    enum class Kind { Audio, Subtitle };
    Kind kind = Kind::Audio;
    std::int32_t id = 0; // from 1
    std::string name;    // for the user: title, language, codec as far as known
};

// What is known of the media that plays now. 0 and the empty text: not known.
struct MediaStatistics {
    std::string container, videoCodec, audioCodec;
    PictureSize picture;
    double frameRate = 0;                      // frames a second
    double videoBitRate = 0, audioBitRate = 0; // bits a second
    std::int32_t sampleRate = 0, channels = 0; // Hz
    std::int64_t droppedFrames = 0;
};

} // namespace tonvale

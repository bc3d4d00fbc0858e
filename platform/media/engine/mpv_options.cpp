// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/mpv_options.h"

#include "controls/Errors.h"

#include <utility>

namespace tonvale {

namespace {

using Option = std::pair<const char *, const char *>;

constexpr Option kOptions[] = {
    // Nothing of the user's mpv: no settings, scripts, keys, screens.
    {"config", "no"},
    {"load-scripts", "no"},
    {"load-auto-profiles", "no"},
    {"load-osd-console", "no"},
    {"load-stats-overlay", "no"},
    {"osc", "no"},
    {"ytdl", "no"},
    {"terminal", "no"},
    {"input-default-bindings", "no"},
    {"input-builtin-bindings", "no"},
    {"input-vo-keyboard", "no"},
    {"input-media-keys", "no"},
    {"osd-level", "0"},
    {"resume-playback", "no"},
    {"save-position-on-quit", "no"},

    // A file leads to no other file, and to no other machine.
    {"access-references", "no"},
    {"autoload-files", "no"},
    {"audio-file-auto", "no"},
    {"sub-auto", "no"},
    {"cover-art-auto", "no"},
    {"load-unsafe-playlists", "no"},
    {"ordered-chapters", "no"},
    {"demuxer", "+lavf"},

    // A film's picture is chosen as its tracks are known. It plays into nothing until a window comes.
    {"vid", "no"},
    {"vo", "null"},
    {"hwdec", "no"},
    {"gpu-hwdec-interop", "no"},
    {"video-rotate", "no"}, // by the engine: the library's software renderer cannot, and aborts
    // The window paints a frame as it comes, and never waits with one in its hands.
    {"video-timing-offset", "0"},
    {"sid", "no"},
    {"audio-display", "no"},

    // The file stays open at its end, and waits for the first play.
    {"idle", "yes"},
    {"pause", "yes"},
    {"keep-open", "always"},
    {"keep-open-pause", "no"},
    {"hr-seek", "absolute"},
    // The end is the end of the sound, not of the decoding.
    {"gapless-audio", "no"},

    // Local files need little in reserve.
    {"cache", "no"},
    {"demuxer-max-bytes", "2MiB"},
    {"demuxer-max-back-bytes", "0"},

    {"volume-max", "100"},
    // The gain of whole-number samples is too coarse for the quiet end.
    {"audio-format", "float"},
    {"audio-client-name", "Orvane Tonvale"},
    // What a sound server lists the stream as; the file's name and nothing else.
    {"title", "${media-title}"},
};

// The decoder's containers that hold media themselves. Those that only name other media, pictures
// and the hundreds of formats of old games are none of this player's business.
constexpr const char *kFormats =
    "aac,ac3,aiff,amr,ape,asf,au,avi,avs2,caf,dts,dv,eac3,flac,flv,gsm,h261,h263,h264,hevc,ivr,loas,m4v,"
    "matroska,mjpeg,mlp,mov,mp3,mpc,mpc8,mpeg,mpegts,mpegtsraw,mpegvideo,nut,oga,ogg,ogv,rm,shn,sox,swf,tak,truehd,"
    "tta,vc1,vivo,voc,w64,wav,wsd,wv,xwma";

// The list has commas of its own, so its length is given.
std::string containerOptions() {
    const std::string formats = kFormats;
    return "protocol_whitelist=none,format_whitelist=%" + std::to_string(formats.size()) + "%" + formats;
}

void check(int result, const char *option) {
    if (result >= 0) return;
    throw RuntimeError(ErrorNumber::CantCreateObject,
                       std::string("The media engine cannot be started: ") + option + ": " + mpv_error_string(result));
}

void setOption(mpv_handle *handle, const char *name, const char *value) {
    check(mpv_set_option_string(handle, name, value), name);
}

} // namespace

void setMpvOptions(mpv_handle *handle, const std::string &outputs) {
    for (const auto &[name, value] : kOptions) setOption(handle, name, value);
    setOption(handle, "ao", outputs.c_str());
    setOption(handle, "demuxer-lavf-o", containerOptions().c_str());
}

} // namespace tonvale

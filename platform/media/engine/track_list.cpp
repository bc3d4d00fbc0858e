// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/track_list.h"

#include "platform/media/engine/MpvNode.h"

#include <string>

namespace tonvale {

namespace {

std::string nameOf(const mpv_node &track) {
    std::string name;
    for (const char *key : {"title", "lang", "codec"}) {
        const std::string text = node::text(track, key);
        if (text.empty()) continue;
        if (!name.empty()) name += ", ";
        name += text;
    }
    return name;
}

void add(TrackList &list, MediaTrack::Kind kind, const mpv_node &track) {
    const auto id = static_cast<std::int32_t>(node::number(track, "id"));
    list.tracks.push_back({kind, id, nameOf(track)});
    if (node::flag(track, "selected")) (kind == MediaTrack::Kind::Audio ? list.audio : list.subtitle) = id;
}

} // namespace

TrackList readTracks(const mpv_node &list) {
    TrackList result;
    for (const mpv_node &track : node::items(list)) {
        const std::string type = node::text(track, "type");
        if (type == "audio") add(result, MediaTrack::Kind::Audio, track);
        if (type == "sub") add(result, MediaTrack::Kind::Subtitle, track);
        const bool moves = !node::flag(track, "image") && !node::flag(track, "albumart");
        if (type == "video" && moves && result.picture == 0) {
            result.picture = static_cast<std::int32_t>(node::number(track, "id"));
            result.rotation = static_cast<std::int32_t>(node::number(track, "demux-rotation"));
        }
    }
    return result;
}

} // namespace tonvale

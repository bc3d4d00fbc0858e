// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the media looks like, and what the user may change of it.

#include "platform/media/engine/MpvEngine.h"
#include "platform/media/engine/plain_number.h"
#include "platform/media/engine/statistics_text.h"
#include "platform/media/engine/track_list.h"

#include <algorithm>
#include <utility>

namespace tonvale {

namespace {

constexpr double kPercent = 100;

const char *nameOf(PictureAspect aspect) {
    switch (aspect) {
    case PictureAspect::FourToThree: return "4:3";
    case PictureAspect::SixteenToNine: return "16:9";
    case PictureAspect::Wide: return "2.35:1";
    case PictureAspect::AsStored: break;
    }
    return "-1";
}

const char *turnedBy(std::int32_t rotation) {
    switch (rotation) {
    case 90: return "transpose=clock";
    case 180: return "hflip,vflip";
    case 270: return "transpose=cclock";
    default: return "";
    }
}

void append(std::string &filters, const std::string &filter) {
    if (!filters.empty() && !filter.empty()) filters += ',';
    filters += filter;
}

// Not every way of painting has colour controls, or can turn a picture. What stands at its middle
// costs nothing.
std::string videoFilters(const MediaSettings &settings, std::int32_t rotation) {
    constexpr double kHalfCircle = 180;
    std::string filters = turnedBy(rotation);
    if (settings.hue != 0) append(filters, "hue=h=" + plainNumber(settings.hue / kPercent * kHalfCircle));
    if (settings.saturation != 0 || settings.brightness != 0 || settings.contrast != 0)
        append(filters, "eq=saturation=" + plainNumber(1 + settings.saturation / kPercent) +
                            ":brightness=" + plainNumber(settings.brightness / kPercent) +
                            ":contrast=" + plainNumber(1 + settings.contrast / kPercent));
    return filters.empty() ? "" : "lavfi=[" + filters + "]";
}

std::string choiceOf(std::int32_t track) { return track > 0 ? std::to_string(track) : "no"; }

MediaSettings limited(MediaSettings settings) {
    constexpr double kSlowest = 0.25, kFastest = 4;
    constexpr std::int32_t kMost = 100;
    settings.speed = settings.speed >= kSlowest ? std::min(settings.speed, kFastest) : kSlowest;
    for (std::int32_t *colour : {&settings.hue, &settings.saturation, &settings.brightness, &settings.contrast})
        *colour = std::clamp(*colour, -kMost, kMost);
    return settings;
}

} // namespace

void MpvEngine::forgetPicture() {
    if (pictureWatch_ != 0) core().unobserve(std::exchange(pictureWatch_, 0));
    hasPicture_ = pictureAwaited_ = pictureChanged_ = false;
    pictureSize_ = {};
    tracks_.clear();
    statistics_ = {};
}

// A cover is no film's picture. In a Real film places are found by the picture alone, and a film
// without sound runs by it, so it is played even where nobody sees it.
void MpvEngine::onTracksFound(const mpv_event_hook &hook) {
    const TrackList found = readTracks(core().read("track-list").get());
    hasPicture_ = found.picture != 0;
    rotation_ = found.rotation;
    core().setNow("vf", videoFilters(settings_, rotation_).c_str());
    core().setNow("vid", choiceOf(found.picture).c_str());
    picture_->follow(choiceOf(found.picture));
    core().goOn(hook);
}

void MpvEngine::watchPicture() {
    pictureWatch_ = idOf(Request::Picture);
    pictureAwaited_ = true;
    core().observe(pictureWatch_, "video-params", MPV_FORMAT_NODE);
}

// For moments, such as while its output is changed, a film has no picture; that is no news.
void MpvEngine::onPicture(const mpv_node &parameters) {
    PictureSize size{static_cast<std::int32_t>(node::number(parameters, "dw")),
                     static_cast<std::int32_t>(node::number(parameters, "dh"))};
    constexpr std::int32_t kUpsideDown = 180;
    if (rotation_ % kUpsideDown != 0) std::swap(size.width, size.height);
    if (!size.isEmpty() && size != pictureSize_) {
        pictureSize_ = size;
        pictureChanged_ = loading_ == Loading::Ready;
    }
    if (std::exchange(pictureAwaited_, false)) onFact();
}

void MpvEngine::onTracks(const mpv_node &list) {
    TrackList found = readTracks(list);
    tracks_ = std::move(found.tracks);
    settings_.audioTrack = found.audio;
    settings_.subtitleTrack = found.subtitle;
}

MediaStatistics MpvEngine::statistics() const {
    if (core_ && loading_ == Loading::Ready)
        core_->command(idOf(Request::Statistics), {"expand-text", statisticsTemplate().c_str()});
    MediaStatistics statistics = statistics_;
    statistics.picture = pictureSize_;
    return statistics;
}

void MpvEngine::onStatistics(const mpv_node &reply) {
    if (reply.format == MPV_FORMAT_STRING) statistics_ = readStatistics(reply.u.string);
}

// The library would keep what was set for the last file.
void MpvEngine::restoreSettings() {
    MediaSettings neutral;
    neutral.audioTrack = settings_.audioTrack;
    neutral.subtitleTrack = settings_.subtitleTrack;
    apply(neutral);
    core().setText("aid", "auto");
    core().setText("sid", "no");
}

void MpvEngine::setSettings(const MediaSettings &settings) {
    if (loading_ == Loading::Ready) apply(limited(settings));
}

void MpvEngine::apply(const MediaSettings &settings) {
    const MediaSettings old = std::exchange(settings_, settings);
    if (old.speed != settings.speed) {
        core().setNumber("speed", settings.speed);
        clock_.setSpeed(settings.speed, Steady::now());
    }
    const std::string filters = videoFilters(settings, rotation_);
    if (filters != videoFilters(old, rotation_)) core().setText("vf", filters);
    if (old.aspect != settings.aspect) core().setText("video-aspect-override", nameOf(settings.aspect));
    if (old.deinterlace != settings.deinterlace) core().setFlag("deinterlace", settings.deinterlace);
    if (old.audioTrack != settings.audioTrack) core().setText("aid", choiceOf(settings.audioTrack));
    if (old.subtitleTrack != settings.subtitleTrack) core().setText("sid", choiceOf(settings.subtitleTrack));
}

} // namespace tonvale

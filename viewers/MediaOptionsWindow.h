// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "viewers/MediaDialogWindow.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tonvale {

// How the media are played: every change is heard and seen at once.
class MediaOptionsWindow : public MediaDialogWindow {
public:
    // A setting with a range.
    struct Adjustment {
        Label Name;
        tonvale::Slider Slider{0, 0};
        Label Value; // as the user reads it
    };
    enum AdjustmentIndex : std::size_t { kSpeed, kHue, kSaturation, kBrightness, kContrast, kAdjustmentCount };

    explicit MediaOptionsWindow(Application &app);

    std::array<Adjustment, kAdjustmentCount> Adjustments;
    Label lblAspect{"&Aspect Ratio"}, lblAudio{"A&udio Track"}, lblSubtitles{"Subtit&les"};
    ComboBox cboAspect, cboAudio, cboSubtitles;
    CheckBox chkDeinterlace{"&Deinterlace"};
    CommandButton cmdReset{"&Reset"}, Command1{"&Close"};

private:
    using TrackIds = std::vector<std::int32_t>; // in the order of a box's rows; 0: none

    void connectControls();
    void showMedia() override;
    void showSettings(const MediaSettings &settings);
    void showValue(Adjustment &adjustment);
    void enableControls(bool enabled);
    [[nodiscard]] MediaSettings chosen() const;
    void apply();
    void cmdReset_Click();

    TrackIds audioIds_, subtitleIds_;
    bool showing_ = false; // the controls are being set to what the engine says
};

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/MediaOptionsView.h"

#include "ui/PanelSurface.h"
#include "ui/SliderWidget.h"
#include "ui/bind_inputs.h"
#include "ui/children.h"
#include "ui/theme.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>

namespace tonvale {

namespace {

// In device-independent pixels.
constexpr int kMargin = 20, kRowGap = 10, kColumnGap = 14;
constexpr int kSliderWidth = 230, kRowHeight = 26, kValueWidth = 62;

// A value in light on a small glass of its own.
class ValueGlass : public GlassSurface {
public:
    explicit ValueGlass(QWidget *parent) : GlassSurface(parent) {
        setFixedSize(kValueWidth, kRowHeight);
        text.setAlignment(Qt::AlignCenter);
        text.setTextFormat(Qt::PlainText);
        text.resize(size());
        QPalette colors = palette();
        colors.setColor(QPalette::Active, QPalette::WindowText, theme::kLit);
        colors.setColor(QPalette::Inactive, QPalette::WindowText, theme::kLit);
        text.setPalette(colors);
    }
    QLabel text{this};
};

} // namespace

MediaOptionsView::MediaOptionsView(MediaOptionsWindow &form) : DialogView(form), model_(form) {
    auto &grid = makeChild<QGridLayout>(*this);
    grid.setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    grid.setVerticalSpacing(kRowGap);
    grid.setHorizontalSpacing(kColumnGap);
    constexpr std::array<const char *, MediaOptionsWindow::kAdjustmentCount> kNames{"Speed", "Hue", "Saturation",
                                                                                    "Brightness", "Contrast"};
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        addAdjustment(grid, model_.Adjustments[i], kNames[i]);
        if (i == MediaOptionsWindow::kSpeed) addRule(grid);
    }
    addChoice(grid, model_.lblAspect, model_.cboAspect, "cboAspect");
    auto &deinterlace = makeChild<QCheckBox>(*this);
    bind(bindings(), deinterlace, model_.chkDeinterlace);
    grid.addWidget(&deinterlace, grid.rowCount(), 1);
    addRule(grid);
    addChoice(grid, model_.lblAudio, model_.cboAudio, "cboAudio");
    addChoice(grid, model_.lblSubtitles, model_.cboSubtitles, "cboSubtitles");
    auto &keys = makeChild<QWidget>(*this);
    auto &row = makeChild<QHBoxLayout>(keys);
    row.setContentsMargins(0, kRowGap, 0, 0);
    row.addWidget(&addKey(model_.cmdReset, "cmdReset"));
    row.addStretch();
    row.addWidget(&addKey(model_.Command1, "Command1"));
    grid.addWidget(&keys, grid.rowCount(), 0, 1, 3);
    stayBeforeActiveWindow();
    finish();
}

QWidget &MediaOptionsView::addName(QGridLayout &grid, Label &label, QWidget &named) {
    auto &name = makeChild<QLabel>(*this);
    name.setTextFormat(Qt::PlainText);
    name.setBuddy(&named);
    bind(bindings(), name, label);
    grid.addWidget(&name, grid.rowCount(), 0);
    return name;
}

void MediaOptionsView::addAdjustment(QGridLayout &grid, MediaOptionsWindow::Adjustment &adjustment, const char *name) {
    const bool goesBothWays = adjustment.Slider.Min < 0;
    using Light = SliderWidget::Light;
    auto &slider = makeChild<SliderWidget>(*this, goesBothWays ? Light::FromCentre : Light::FromStart);
    slider.setObjectName(QLatin1String(name));
    slider.setFixedSize(kSliderWidth, kRowHeight);
    addName(grid, adjustment.Name, slider);
    bind(bindings(), slider, adjustment.Slider);
    const int row = grid.rowCount() - 1;
    grid.addWidget(&slider, row, 1);
    auto &value = makeChild<ValueGlass>(*this);
    bind(bindings(), value.text, adjustment.Value);
    grid.addWidget(&value, row, 2);
}

void MediaOptionsView::addChoice(QGridLayout &grid, Label &label, ComboBox &box, const char *name) {
    auto &list = makeChild<QComboBox>(*this);
    list.setObjectName(QLatin1String(name));
    list.setFixedHeight(kRowHeight);
    // A track may have any name; the list is as wide as the sliders are.
    list.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    addName(grid, label, list);
    bind(bindings(), list, box);
    grid.addWidget(&list, grid.rowCount() - 1, 1, 1, 2);
}

void MediaOptionsView::addRule(QGridLayout &grid) {
    auto &rule = makeChild<QFrame>(*this);
    rule.setFrameShape(QFrame::HLine);
    rule.setFrameShadow(QFrame::Sunken);
    grid.addWidget(&rule, grid.rowCount(), 0, 1, 3);
}

} // namespace tonvale

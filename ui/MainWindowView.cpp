// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/MainWindowView.h"

#include "ui/GaugeWidget.h"
#include "ui/LampWidget.h"
#include "ui/LedDigitsWidget.h"
#include "ui/NameDisplay.h"
#include "ui/PanelSurface.h"
#include "ui/PictureWidget.h"
#include "ui/ScaleWidget.h"
#include "ui/SpinWidget.h"
#include "ui/children.h"
#include "ui/menus.h"
#include "ui/text.h"
#include "ui/theme.h"
#include "ui/units.h"

#include <QLabel>
#include <QMenuBar>

#include <algorithm>

namespace tonvale {

namespace {

using Sign = TransportButton::Sign;

// All in device-independent pixels.
constexpr int kMenuHeight = 21;
constexpr int kPanelWidth = 500, kPanelHeight = 268;
constexpr QRect kGlassArea(12, 8, 476, 98);
constexpr int kPrintSize = 11;
constexpr int kPictureFrame = 3;

// Places on the glass.
constexpr QRect kNameArea(14, 6, 416, 22), kLampArea(440, 4, 26, 26);
constexpr QRect kTimeLabelArea(14, 34, 120, 14), kLengthLabelArea(176, 34, 120, 14);
constexpr QPoint kTimePlace(12, 52), kLengthPlace(174, 52);
constexpr QRect kScaleArea(338, 46, 124, 18), kGaugeArea(338, 66, 124, 16);

// Places on the panel.
constexpr QRect kTrackerLabelArea(14, 112, 200, 14), kTrackerArea(8, 126, 484, 26);
constexpr int kKeysLeft = 12, kLargeKeysTop = 160, kSmallKeysTop = 213;
constexpr QSize kLargeKey(66, 46), kSmallKey(90, 34);
constexpr int kLargePitch = 72, kSmallPitch = 96;
constexpr QRect kVolumeLabelArea(316, 156, 88, 14), kMasterLabelArea(408, 156, 88, 14);
constexpr QRect kVolumeArea(314, 172, 84, 34), kMasterArea(406, 172, 84, 34);
constexpr QRect kBalanceLabelArea(316, 210, 100, 14), kBalanceArea(310, 223, 148, 26), kCentreArea(462, 224, 28, 24);

QColor fromBgr(std::int32_t color) { return {color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF}; }

} // namespace

MainWindowView::MainWindowView(Form1 &form) : FormWindow(form, kMenuHeight), model_(form) {
    buildMenuBar();
    buildPanel();
    bindWindow();
    bindings().keep(form.raised.connect([this] { picture_->comeToFront(); }));
}

void MainWindowView::buildMenuBar() {
    auto &bar = makeChild<QMenuBar>(*this);
    bar.setNativeMenuBar(false); // the menu is a part of the front, and is there when it is rolled up
    bindMenuBar(bindings(), bar, model_.menuBar());
    bar_ = &bar;
}

void MainWindowView::buildPanel() {
    auto &surface = makeChild<PanelSurface>(*this);
    bindDragging(bindings(), surface, model_, model_);
    surface_ = &surface;
    buildPicture(surface);
    auto &panel = makeChild<QWidget>(surface); // what the mouse does beside its parts is the surface's
    panel.resize(kPanelWidth, kPanelHeight);
    panel_ = &panel;
    auto &glass = makeChild<GlassSurface>(panel);
    glass.setObjectName(QStringLiteral("framePanel"));
    glass.setGeometry(kGlassArea);
    bindControl(bindings(), glass, model_.framePanel);
    bindDragging(bindings(), glass, model_.framePanel, model_);
    buildDisplay(glass);
    buildTransport(panel);
    buildTracker(panel);
    buildVolumes(panel);
    buildBalance(panel);
}

// Below the panel, in a frame of glass.
void MainWindowView::buildPicture(QWidget &surface) {
    auto &well = makeChild<QWidget>(surface);
    well_ = &well;
    auto &glass = makeChild<GlassSurface>(well);
    MediaPlayer &player = model_.ActiveMovie1;
    const auto place = [&glass, &player] {
        const QRect picture(toPixels(player.Left), toPixels(player.Top), toPixels(player.Width),
                            toPixels(player.Height));
        glass.setGeometry(picture.adjusted(-kPictureFrame, -kPictureFrame, kPictureFrame, kPictureFrame));
    };
    for (Property<double> *value : {&player.Left, &player.Top, &player.Width, &player.Height})
        bindings().follow(*value, place);
    bindings().follow(player.Visible, [&glass, &player] { glass.setVisible(player.Visible); });
    picture_ = &makeChild<PictureWidget>(well, player);
}

// The panel keeps its size; a wide picture makes the window wider than it.
void MainWindowView::resizeEvent(QResizeEvent *event) {
    FormWindow::resizeEvent(event);
    bar_->setGeometry(0, 0, width(), kMenuHeight);
    surface_->setGeometry(0, kMenuHeight, width(), std::max(kPanelHeight, height() - kMenuHeight));
    panel_->move((width() - kPanelWidth) / 2, 0);
    // A window that is no higher than the panel has no room for a picture, of which a strip would be seen.
    well_->resize(surface_->size());
    well_->setVisible(height() - kMenuHeight > kPanelHeight);
}

QLabel &MainWindowView::addLabel(QWidget &parent, const char *name, Label &label, const QRect &place) {
    auto &widget = makeChild<QLabel>(parent);
    widget.setObjectName(QLatin1String(name));
    widget.setTextFormat(Qt::PlainText);
    widget.setFont(theme::printFont(font(), kPrintSize));
    widget.setGeometry(place);
    bind(bindings(), widget, label);
    bindDragging(bindings(), widget, label, model_);
    return widget;
}

void MainWindowView::addKey(QWidget &panel, const char *name, CommandButton &button, Sign sign, const QRect &place) {
    auto &key = makeChild<TransportButton>(panel, sign);
    key.setObjectName(QLatin1String(name));
    key.setGeometry(place);
    bind(bindings(), key, button);
}

void MainWindowView::addSpin(QWidget &panel, const char *name, LedSpin &spin, const Label &label, const QRect &place) {
    auto &widget = makeChild<SpinWidget>(panel);
    widget.setObjectName(QLatin1String(name));
    widget.setAccessibleName(shown(label.Caption));
    widget.setGeometry(place);
    bind(bindings(), widget, spin);
    bindDragging(bindings(), widget.face(), spin, model_);
}

SliderWidget &MainWindowView::addSlider(QWidget &panel, const char *name, Slider &slider, const Label &label,
                                        SliderWidget::Light light, const QRect &place) {
    auto &widget = makeChild<SliderWidget>(panel, light);
    widget.setObjectName(QLatin1String(name));
    widget.setAccessibleName(shown(label.Caption));
    widget.setGeometry(place);
    bind(bindings(), widget, slider);
    return widget;
}

void MainWindowView::addDigits(QWidget &glass, const char *name, std::array<DigitPair *, 3> groups, const Label &label,
                               QPoint place) {
    auto &widget = makeChild<LedDigitsWidget>(glass);
    widget.setObjectName(QLatin1String(name));
    widget.setAccessibleName(shown(label.Caption));
    widget.setGeometry(QRect(place, widget.sizeHint()));
    for (std::size_t i = 0; i < LedDigitsWidget::kDigits; ++i) {
        LedDigit &digit = (*groups[i / 2])[i % 2];
        bindings().follow(digit.Value, [&widget, &digit, i] { widget.setDigit(i, digit.Value); });
    }
    bindDragging(bindings(), widget, groups[0]->front(), model_);
}

void MainWindowView::buildDisplay(QWidget &glass) {
    auto &name = makeChild<NameDisplay>(glass);
    name.setObjectName(QStringLiteral("Label3"));
    name.setGeometry(kNameArea);
    bindings().follow(model_.Label3.Caption, [this, &name] { name.setText(shown(model_.Label3.Caption)); });
    bindDragging(bindings(), name, model_.Label3, model_);
    auto &lamp = makeChild<LampWidget>(glass);
    lamp.setObjectName(QStringLiteral("MMLEDX1"));
    lamp.setGeometry(kLampArea);
    bindings().follow(model_.MMLEDX1.LEDColor, [this, &lamp] { lamp.setColor(fromBgr(model_.MMLEDX1.LEDColor)); });
    bindControl(bindings(), lamp, model_.MMLEDX1);
    bindDragging(bindings(), lamp, model_.MMLEDX1, model_);
    buildTimes(glass);
    buildLevel(glass);
}

void MainWindowView::buildTimes(QWidget &glass) {
    Form1 &m = model_;
    for (QLabel *label : {&addLabel(glass, "lblTime", m.lblTime, kTimeLabelArea),
                          &addLabel(glass, "lblLength", m.lblLength, kLengthLabelArea)}) {
        QPalette palette;
        palette.setColor(QPalette::WindowText, theme::kGlassText);
        label->setPalette(palette);
    }
    addDigits(glass, "CurPosLED", {&m.CurPosLEDHour, &m.CurPosLEDMinute, &m.CurPosLEDSecond}, m.lblTime, kTimePlace);
    addDigits(glass, "TotalLED", {&m.TotalLEDHour, &m.TotalLEDMinute, &m.TotalLEDSecond}, m.lblLength, kLengthPlace);
}

void MainWindowView::buildLevel(QWidget &glass) {
    auto &scale = makeChild<ScaleWidget>(glass);
    scale.setObjectName(QStringLiteral("MMLevelScaleX1"));
    scale.setGeometry(kScaleArea);
    bindDragging(bindings(), scale, model_.MMLevelScaleX1, model_);
    auto &gauge = makeChild<GaugeWidget>(glass);
    gauge.setObjectName(QStringLiteral("MMLEDGaugeX1"));
    gauge.setAccessibleName(QStringLiteral("Level"));
    gauge.setGeometry(kGaugeArea);
    bindings().follow(model_.MMLEDGaugeX1.Position,
                      [this, &gauge] { gauge.setPosition(model_.MMLEDGaugeX1.Position); });
    bindDragging(bindings(), gauge, model_.MMLEDGaugeX1, model_);
}

void MainWindowView::buildTransport(QWidget &panel) {
    const auto large = [](int column) { return QRect({kKeysLeft + column * kLargePitch, kLargeKeysTop}, kLargeKey); };
    const auto small = [](int column) { return QRect({kKeysLeft + column * kSmallPitch, kSmallKeysTop}, kSmallKey); };
    addKey(panel, "btnPlay", model_.btnPlay, Sign::PlayNew, large(0));
    addKey(panel, "btnPlayCurrent", model_.btnPlayCurrent, Sign::PlayCurrent, large(1));
    addKey(panel, "btnPause", model_.btnPause, Sign::Pause, large(2));
    addKey(panel, "btnStop", model_.btnStop, Sign::Stop, large(3));
    addKey(panel, "btnMute", model_.btnMute, Sign::Mute, small(0));
    addKey(panel, "btnDelete", model_.btnDelete, Sign::Delete, small(1));
    addKey(panel, "btnHelp", model_.btnHelp, Sign::Help, small(2));
}

void MainWindowView::buildTracker(QWidget &panel) {
    addLabel(panel, "lblProgress", model_.lblProgress, kTrackerLabelArea);
    addSlider(panel, "slidTracker", model_.slidTracker, model_.lblProgress, SliderWidget::Light::FromStart,
              kTrackerArea);
}

void MainWindowView::buildVolumes(QWidget &panel) {
    addLabel(panel, "lblVolume", model_.lblVolume, kVolumeLabelArea);
    addSpin(panel, "MMLEDSpinX1", model_.MMLEDSpinX1, model_.lblVolume, kVolumeArea);
    addLabel(panel, "lblMasterVolume", model_.lblMasterVolume, kMasterLabelArea);
    addSpin(panel, "MMLEDSpinX2", model_.MMLEDSpinX2, model_.lblMasterVolume, kMasterArea);
}

void MainWindowView::buildBalance(QWidget &panel) {
    addLabel(panel, "lblBalance", model_.lblBalance, kBalanceLabelArea);
    addSlider(panel, "slidBalance", model_.slidBalance, model_.lblBalance, SliderWidget::Light::FromCentre,
              kBalanceArea);
    addKey(panel, "cmdBalance0", model_.cmdBalance0, Sign::Centre, kCentreArea);
    panel.findChild<TransportButton *>(QStringLiteral("cmdBalance0"))
        ->setAccessibleName(QStringLiteral("Centre Balance"));
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "player/Form1.h"
#include "ui/FormWindow.h"
#include "ui/SliderWidget.h"
#include "ui/TransportButton.h"
#include "ui/TrayIcon.h"

class QLabel;
class QMenuBar;

namespace tonvale {

class PictureWidget;

// The main window: the front of a hi-fi component.
class MainWindowView : public FormWindow {
public:
    explicit MainWindowView(Form1 &form);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void buildMenuBar();
    void buildPanel();
    void buildPicture(QWidget &surface);
    void buildDisplay(QWidget &glass);
    void buildTimes(QWidget &glass);
    void buildLevel(QWidget &glass);
    void buildTransport(QWidget &panel);
    void buildVolumes(QWidget &panel);
    void buildBalance(QWidget &panel);
    void buildTracker(QWidget &panel);

    QLabel &addLabel(QWidget &parent, const char *name, Label &label, const QRect &place);
    void addKey(QWidget &panel, const char *name, CommandButton &button, TransportButton::Sign sign,
                const QRect &place);
    void addSpin(QWidget &panel, const char *name, LedSpin &spin, const Label &label, const QRect &place);
    SliderWidget &addSlider(QWidget &panel, const char *name, Slider &slider, const Label &label,
                            SliderWidget::Light light, const QRect &place);
    using DigitPair = std::array<LedDigit, 2>;
    void addDigits(QWidget &glass, const char *name, std::array<DigitPair *, 3> groups, const Label &label,
                   QPoint place);

    Form1 &model_;
    QMenuBar *bar_ = nullptr; // children
    QWidget *surface_ = nullptr, *well_ = nullptr, *panel_ = nullptr;
    PictureWidget *picture_ = nullptr;
    TrayIcon tray_{bindings(), model_.TrayX1, *this, model_.PopUpMenu2};
};

} // namespace tonvale

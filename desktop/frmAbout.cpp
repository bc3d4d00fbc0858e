// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/frmAbout.h"

#include "controls/Numbers.h"
#include "core/shared_windows.h"
#include "core/vendor.h"

namespace tonvale {

namespace {

constexpr double kDesignWidth = 5700, kDesignHeight = 3600; // twips
constexpr double kTile = 64 * kTwipsPerPixel;

} // namespace

frmAbout::frmAbout(Application &app)
    : Form(app.forms, "frmAbout"), Label2(vendor::kMailAddress), Label3(vendor::kHomePage), app_(app) {
    Caption = "About Tonvale";
    BorderStyle = BorderStyle::None;
    Width = kDesignWidth;
    Height = kDesignHeight;
    picTilePic.Visible = false;
    picTilePic.Width = kTile;
    picTilePic.Height = kTile;
    const auto mainWindow = [this]() -> MainWindow & { return static_cast<MainWindow &>(app_.form1.form()); };
    Label2.Click = handler([mainWindow] { mainWindow().mailmemenu_Click(); });
    Label3.Click = handler([mainWindow] { mainWindow().visitmemenu_Click(); });
    Command1.Click = handler([this] { Unload(); });
    // The two addresses stay out of it: a window that is being dragged swallows their click.
    for (MouseEvents *part : std::initializer_list<MouseEvents *>{this, &Image1, &Image2, &Label1})
        part->MouseDown = handler([this](double, double) { startMove(); });
}

void frmAbout::Form_Load() {
    attempt([&] { TileWidth = toInt16(picTilePic.Width / kTwipsPerPixel); });
    attempt([&] { TileHeight = toInt16(picTilePic.Height / kTwipsPerPixel); });
    Form_Resize();
}

void frmAbout::Form_Resize() {
    attempt([&] { WindowWidth = toInt32(Width / kTwipsPerPixel); });
    attempt([&] { WindowHeight = toInt32(Height / kTwipsPerPixel); });
}

std::vector<PixelRect> frmAbout::Form_Paint() const {
    return tiles({WindowWidth, WindowHeight}, {TileWidth, TileHeight});
}

void frmAbout::startMove() {
    MouseCaptured = false;
    MoveByWindowSystem();
}

void frmAbout::Form_KeyPress(std::int16_t &keyAscii) {
    if (keyAscii == kKeyEscape) Unload();
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/Disclaimer.h"

namespace tonvale {

namespace {

constexpr double kDesignWidth = 6600, kDesignHeight = 4800; // twips
constexpr const char *kText =
    "Orvane Tonvale is provided as it is, with no warranty of any kind, whether express or implied. This includes, "
    "and is not limited to, any warranty that it is fit for a particular purpose, that it is free of faults, or that "
    "it will run without interruption.\r\n\r\n"
    "You use it at your own risk. There is no remedy for damages of any kind that arise from its use or from the "
    "impossibility to use it, be they direct or indirect, and be it that their possibility was known. This includes "
    "loss of data, of profit and of working time.\r\n\r\n"
    "Orvane Tonvale may be neither altered nor resold.\r\n\r\n"
    "You alone are responsible for having the right to play, copy and convert the media that you give it.";

} // namespace

Disclaimer::Disclaimer(Application &app) : Form(app.forms, "Disclaimer") {
    Caption = "Disclaimer:";
    Width = kDesignWidth;
    Height = kDesignHeight;
    Text1.ReadOnly = true;
    Text1.MultiLine = true;
    Text1.Text = kText;
    Command1.Click = handler([this] { Unload(); });
}

void Disclaimer::Form_KeyPress(std::int16_t &keyAscii) {
    if (keyAscii == kKeyEscape) Unload();
}

} // namespace tonvale

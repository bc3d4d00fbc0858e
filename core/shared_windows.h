// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Form.h"
#include "controls/ListBox.h"
#include "controls/MediaPlayer.h"
#include "controls/VvWeb.h"

#include <string>
#include <utility>

// What windows of one folder need of windows of another that lies above it.

namespace tonvale {

// The main window, Form1.
class MainWindow : public Form {
public:
    using Form::Form;
    virtual void mailmemenu_Click() = 0;  // begins a mail to the vendor
    virtual void visitmemenu_Click() = 0; // opens the vendor's home page
};

// A window with a list of paths (frmPlayList, frmVivoPlayList, frmVideoPlayList).
class ListWindow : public Form {
public:
    using Form::Form;
    ListBox List1;
};

// The window that shows a Vivo movie (VivoPlayer).
class VivoWindow : public Form {
public:
    using Form::Form;
    virtual VvWeb &VvWeb1() = 0;
    // Leaves full screen where FullScreenMenu is checked, enters it where it is not, and turns the
    // mark over.
    virtual void SetFullScreen() = 0;
    MenuEntry FullScreenMenu{"Full Screen Mode"};
};

// The window that fills the screen with a film (frmVideoPlay).
class VideoWindow : public Form {
public:
    VideoWindow(Forms &forms, std::string name, MediaServices services)
        : Form(forms, std::move(name)), MediaPlayer1(std::move(services)) {}
    MediaPlayer MediaPlayer1;
};

} // namespace tonvale

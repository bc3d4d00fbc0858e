// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "viewers/MediaDialogWindow.h"

#include "viewers/MediaOptionsWindow.h"
#include "viewers/MediaStatisticsWindow.h"

namespace tonvale {

void MediaDialogWindow::serve(Form &owner, MediaPlayer &player) {
    player_ = &player;
    fileChanged_ = player.fileChanged.connect([this] { attempt([&] { showMedia(); }); });
    ownerUnloaded_ = forms().formUnloaded.connect([this, &owner](const Form &form) {
        if (&form != &owner) return;
        player_ = nullptr;
        fileChanged_.disconnect();
        Unload();
    });
    attempt([&] { showMedia(); });
    Show();
    ZOrder();
}

void MediaDialogWindow::Form_KeyPress(std::int16_t &keyAscii) {
    if (keyAscii == kKeyEscape) Unload();
}

Connection showDialogsOf(Application &app, Form &owner, MediaPlayer &player) {
    return player.dialogRequested.connect([&app, &owner, &player](MediaDialog dialog) {
        resumeNext(app.Err, [&] {
            switch (dialog) {
            case MediaDialog::Options: app.MediaOptions->serve(owner, player); break;
            case MediaDialog::Statistics: app.MediaStatistics->serve(owner, player); break;
            }
        });
    });
}

} // namespace tonvale

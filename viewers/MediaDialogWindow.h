// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Form.h"
#include "controls/MediaPlayer.h"
#include "core/Application.h"

#include <cstdint>

namespace tonvale {

// A dialog about what a media player control plays. It follows the control from file to file, and
// goes when the window that the control belongs to goes.
class MediaDialogWindow : public Form {
public:
    using Form::Form;
    // From now on the dialog is about this control, a part of `owner`.
    void serve(Form &owner, MediaPlayer &player);

protected:
    // What plays now; null: no file is open. Not to be kept.
    [[nodiscard]] MediaEngine *engine() const { return player_ == nullptr ? nullptr : player_->openEngine(); }
    // Another file is open, or none.
    virtual void showMedia() = 0;

private:
    void Form_KeyPress(std::int16_t &keyAscii) override;

    MediaPlayer *player_ = nullptr; // as long as its window is loaded
    Connection fileChanged_, ownerUnloaded_;
};

// Shows the dialogs that the control asks for, as long as the connection exists.
[[nodiscard]] Connection showDialogsOf(Application &app, Form &owner, MediaPlayer &player);

} // namespace tonvale

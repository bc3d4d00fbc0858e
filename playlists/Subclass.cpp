// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/Subclass.h"

namespace tonvale {

bool Subclass::installProcedure(Form &form) {
    form.MinWidth = kLeastWidth;
    form.MinHeight = kLeastHeight;
    return true;
}

bool Subclass::Hook() {
    hooked_ = install_(form_);
    return hooked_;
}

void Subclass::Unhook() {
    if (!hooked_) return;
    hooked_ = false;
    form_.MinWidth = 0;
    form_.MinHeight = 0;
}

} // namespace tonvale

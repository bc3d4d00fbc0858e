// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/CCaptionlessWindowMover.h"

#include "desktop/error_box.h"

namespace tonvale {

tonvale::Form &CCaptionlessWindowMover::boundForm() {
    if (form_ == nullptr) throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return *form_;
}

void CCaptionlessWindowMover::HandleMouseDown(double x, double y) {
    withErrorBox(app_, "HandleMouseDown", [&] {
        boundForm().MouseCaptured = true;
        dragging_ = true;
        pressX_ = x;
        pressY_ = y;
    });
}

void CCaptionlessWindowMover::HandleMouseMove(double x, double y) {
    withErrorBox(app_, "HandleMouseMove", [&] {
        if (!dragging_) return;
        tonvale::Form &form = boundForm();
        form.Move(form.Left - pressX_ + x, form.Top - pressY_ + y);
    });
}

void CCaptionlessWindowMover::HandleMouseUp() {
    withErrorBox(app_, "HandleMouseUp", [&] {
        dragging_ = false;
        boundForm().MouseCaptured = false;
    });
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Form.h"
#include "core/Application.h"

namespace tonvale {

// Drags a window by any of its parts. Places are in the window's scale units, relative to it.
class CCaptionlessWindowMover {
public:
    explicit CCaptionlessWindowMover(Application &app) : app_(app) {}

    // The window to move.
    void Form(tonvale::Form *form) { form_ = form; }
    [[nodiscard]] tonvale::Form *Form() const { return form_; }

    void HandleMouseDown(double x, double y);
    void HandleMouseMove(double x, double y);
    void HandleMouseUp();

private:
    tonvale::Form &boundForm();

    Application &app_;
    tonvale::Form *form_ = nullptr;
    bool dragging_ = false;
    double pressX_ = 0, pressY_ = 0;
};

} // namespace tonvale

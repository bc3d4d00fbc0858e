// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Form.h"

#include <map>
#include <memory>

namespace tonvale {

class FormWindow;

// Gives a form its window on the desktop when it is shown for the first time, and takes it away
// when it is unloaded. A form that stays hidden never costs one.
class Views {
public:
    explicit Views(Forms &forms);
    ~Views();
    Views(const Views &) = delete;
    Views &operator=(const Views &) = delete;

private:
    struct Release {
        void operator()(FormWindow *window) const;
    };
    struct View {
        Connection shown;
        std::unique_ptr<FormWindow, Release> window;
    };
    void follow(Form &form);

    std::map<const Form *, View> views_;
    Connection loading_, unloaded_;
};

} // namespace tonvale

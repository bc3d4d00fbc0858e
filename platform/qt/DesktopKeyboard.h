// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/WinHook.h"
#include "platform/qt/KeySource.h"

#include <QObject>

#include <memory>

namespace tonvale {

// The keys of the whole desktop where it tells them: on X11 always, on Wayland by its portal. Else
// the keys of our own windows. Nothing runs while nobody listens.
class DesktopKeyboard : public KeyboardHook {
public:
    DesktopKeyboard();
    ~DesktopKeyboard() override;
    DesktopKeyboard(const DesktopKeyboard &) = delete;
    DesktopKeyboard &operator=(const DesktopKeyboard &) = delete;

    Connection listen(Listener listener) override;

private:
    class Switch;
    std::shared_ptr<Switch> switch_;
};

} // namespace tonvale

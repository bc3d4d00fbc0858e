// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <atomic>
#include <functional>

namespace tonvale {

// Brings the news of a frame from any thread to the loop. Frames that come before it has been told
// are no further news.
class FrameBell : public QObject {
public:
    explicit FrameBell(std::function<void()> onFrame) : onFrame_(std::move(onFrame)) {}

    [[nodiscard]] std::function<void()> ring() {
        return [this] {
            if (rung_.exchange(true)) return;
            QMetaObject::invokeMethod(
                this,
                [this] {
                    rung_ = false;
                    onFrame_();
                },
                Qt::QueuedConnection);
        };
    }

private:
    const std::function<void()> onFrame_;
    std::atomic<bool> rung_{false};
};

} // namespace tonvale

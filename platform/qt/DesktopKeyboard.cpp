// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/DesktopKeyboard.h"

#include "platform/qt/FocusKeys.h"
#include "platform/qt/PortalKeys.h"
#include "platform/qt/X11Keys.h"

#include <QGuiApplication>
#include <QTimer>

#include <chrono>

namespace tonvale {

namespace {

// A window of ours that has the focus gets the key as well, by a way of its own. It is to have it
// first: a box that answers to the hook would keep the key from a menu.
constexpr std::chrono::milliseconds kForTheWindow{20};

} // namespace

// Has the sources while there are listeners. A source is never changed from within its own call:
// all that follows from a key, and from a listener's coming or going, comes from the loop.
class DesktopKeyboard::Switch : public QObject {
public:
    [[nodiscard]] Connection add(Listener listener) {
        ++listeners_;
        later([this] { startOrStop(); });
        return pressed_.connect(std::move(listener));
    }
    void removeOne() {
        --listeners_;
        later([this] { startOrStop(); });
    }

private:
    void later(std::function<void()> work) { QMetaObject::invokeMethod(this, std::move(work), Qt::QueuedConnection); }
    void startOrStop() {
        if (listeners_ == 0) {
            desktop_.reset();
            focus_.reset();
        } else if (!desktop_ && !focus_) {
            start();
        }
    }
    void start() {
        const KeySource::Tell tell = [this](std::int32_t code) { later([this, code] { pressed_(code); }); };
        if (isOnX11())
            desktop_ = X11Keys::open([this](std::int32_t code) {
                QTimer::singleShot(kForTheWindow, this, [this, code] { pressed_(code); });
            });
        if (desktop_) return;
        focus_ = std::make_unique<FocusKeys>(tell);
        // From there on they would come twice.
        if (QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
            desktop_ = std::make_unique<PortalKeys>(tell, [this] { focus_.reset(); });
    }

    Signal<std::int32_t> pressed_;
    int listeners_ = 0;
    std::unique_ptr<KeySource> desktop_, focus_;
};

DesktopKeyboard::DesktopKeyboard() : switch_(std::make_shared<Switch>()) {}

DesktopKeyboard::~DesktopKeyboard() = default;

Connection DesktopKeyboard::listen(Listener listener) {
    auto inner = std::make_shared<Connection>(switch_->add(std::move(listener)));
    return Connection([inner, weak = std::weak_ptr<Switch>(switch_)] {
        inner->disconnect();
        if (const auto own = weak.lock()) own->removeOne();
    });
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/qt/KeySource.h"

#include <QObject>

namespace tonvale {

// Sees the keys that windows of this program get.
class FocusKeys : public QObject, public KeySource {
public:
    explicit FocusKeys(Tell tell);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Tell tell_;
};

} // namespace tonvale

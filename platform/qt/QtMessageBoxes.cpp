// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/QtMessageBoxes.h"

#include "controls/DisplayText.h"
#include "platform/qt/owner_window.h"

#include <QMessageBox>
#include <QTimer>

namespace tonvale {

namespace {

constexpr const char *kDefaultTitle = "Orvane Tonvale";

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Critical: return QMessageBox::Critical;
    case BoxIcon::Question: return QMessageBox::Question;
    case BoxIcon::Exclamation: return QMessageBox::Warning;
    case BoxIcon::Information: return QMessageBox::Information;
    case BoxIcon::None: break;
    }
    return QMessageBox::NoIcon;
}

QString shownText(const std::string &text) {
    return QString::fromStdString(displayText(text)).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

void fill(QMessageBox &window, const MessageBox &box) {
    window.setWindowTitle(shownText(box.title.empty() ? kDefaultTitle : box.title));
    window.setIcon(iconOf(box.icon));
    window.setTextFormat(Qt::PlainText);
    window.setText(shownText(box.text));
    if (box.buttons == BoxButtons::Ok) {
        window.setStandardButtons(QMessageBox::Ok);
    } else {
        window.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        window.setDefaultButton(QMessageBox::Yes);
        window.setEscapeButton(QMessageBox::No);
    }
    if (box.place == BoxPlace::SystemModal) window.setWindowFlag(Qt::WindowStaysOnTopHint);
}

} // namespace

BoxResult QtMessageBoxes::show(const MessageBox &box) {
    QMessageBox window;
    fill(window, box);
    placeAboveActiveWindow(window);
    if (box.place != BoxPlace::Normal)
        QTimer::singleShot(0, &window, [&window] {
            window.raise();
            window.activateWindow();
        });
    const int answer = window.exec();
    if (box.buttons == BoxButtons::Ok) return BoxResult::Ok;
    return answer == QMessageBox::Yes ? BoxResult::Yes : BoxResult::No;
}

} // namespace tonvale

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

void setButtons(QMessageBox &window, BoxButtons buttons) {
    if (buttons == BoxButtons::Ok) {
        window.setStandardButtons(QMessageBox::Ok);
        return;
    }
    const bool canCancel = buttons == BoxButtons::YesNoCancel;
    window.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    if (canCancel) window.addButton(QMessageBox::Cancel);
    window.setDefaultButton(buttons == BoxButtons::YesNoButNoPreferred ? QMessageBox::No : QMessageBox::Yes);
    window.setEscapeButton(canCancel ? QMessageBox::Cancel : QMessageBox::No);
}

BoxResult resultOf(int button) {
    switch (button) {
    case QMessageBox::Yes: return BoxResult::Yes;
    case QMessageBox::Cancel: return BoxResult::Cancel;
    default: return BoxResult::No;
    }
}

void fill(QMessageBox &window, const MessageBox &box) {
    window.setWindowTitle(shownText(box.title.empty() ? kDefaultTitle : box.title));
    window.setIcon(iconOf(box.icon));
    window.setTextFormat(Qt::PlainText);
    window.setText(shownText(box.text));
    setButtons(window, box.buttons);
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
    return box.buttons == BoxButtons::Ok ? BoxResult::Ok : resultOf(answer);
}

} // namespace tonvale

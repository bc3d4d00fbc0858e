// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The least that a program with a Qt window can be: what start-up is measured against.

#include <QApplication>
#include <QWidget>

int main(int argc, char *argv[]) {
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(400, 300);
    window.show();
    return QApplication::exec();
}

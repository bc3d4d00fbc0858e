// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Display.h"

#include "ui/PanelPart.h"
#include "ui/PanelStyle.h"
#include "ui/theme.h"

#include <QLoggingCategory>

#include <fontconfig/fontconfig.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace tonvale {

namespace {

const char *whyNoDisplay() {
    const bool named = std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr ||
                       std::getenv("QT_QPA_PLATFORM") != nullptr;
    return named ? "the display cannot be reached" : "there is no display (DISPLAY and WAYLAND_DISPLAY are not set)";
}

// The toolkit aborts where it finds no display. Its own many lines are left out.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext & /*context*/, const QString & /*message*/) {
    if (type != QtFatalMsg) return;
    std::fprintf(stderr, "tonvale: %s\n", whyNoDisplay());
    std::_Exit(1);
}

// To be called before the toolkit starts: a style that it looks for itself costs time.
int &prepared(int &argumentCount) {
    qInstallMessageHandler(endWithoutDisplay);
    QApplication::setStyle(std::make_unique<PanelStyle>().release()); // the application owns it
    QApplication::setDesktopFileName(QStringLiteral("org.orvane.Tonvale"));
    QApplication::setApplicationName(QStringLiteral("tonvale"));
    QApplication::setOrganizationDomain(QStringLiteral("orvane.example"));
    return argumentCount;
}

// Where this fails the toolkit does it once more.
void readFonts() { static_cast<void>(FcInit()); }

} // namespace

Display::Display(char *programName)
    // No argument is the toolkit's: a file may be named like one of its options.
    : fonts_(readFonts), arguments_{programName, nullptr}, application_(prepared(argumentCount_), arguments_) {
    qInstallMessageHandler(nullptr);
    fonts_.join();                                  // two at a time would read all of it twice
    std::setlocale(LC_NUMERIC, "C");                // which the media libraries count on
    QApplication::setQuitOnLastWindowClosed(false); // a window may be hidden and play on
    QApplication::setPalette(theme::palette());
    installPanelAccessibility();
}

} // namespace tonvale

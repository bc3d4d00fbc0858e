// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/DisclaimerView.h"

#include "ui/EmblemWidget.h"
#include "ui/PanelSurface.h"
#include "ui/bind_inputs.h"
#include "ui/children.h"
#include "ui/theme.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QPlainTextEdit>

namespace tonvale {

namespace {

// In device-independent pixels.
constexpr int kMargin = 18, kGap = 16, kInset = 8, kEmblem = 64;
constexpr QSize kTextSize(400, 236);

} // namespace

DisclaimerView::DisclaimerView(Disclaimer &form) : DialogView(form) {
    auto &grid = makeChild<QGridLayout>(*this);
    grid.setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    grid.setSpacing(kGap);
    auto &emblem = makeChild<EmblemWidget>(*this, kEmblem);
    bindControl(bindings(), emblem, form.Image1);
    grid.addWidget(&emblem, 0, 0, Qt::AlignTop);
    auto &glass = makeChild<GlassSurface>(*this);
    auto &around = makeChild<QVBoxLayout>(glass);
    around.setContentsMargins(kInset, kInset, kInset, kInset);
    auto &text = makeChild<QPlainTextEdit>(glass);
    text.setObjectName(QStringLiteral("Text1"));
    text.setAccessibleName(QStringLiteral("Disclaimer"));
    text.setFrameShape(QFrame::NoFrame);
    text.setFixedSize(kTextSize);
    text.setTabChangesFocus(true);
    QPalette colors = text.palette();
    colors.setColor(QPalette::Base, theme::kGlass);
    text.setPalette(colors);
    bind(bindings(), text, form.Text1);
    around.addWidget(&text);
    grid.addWidget(&glass, 0, 1);
    QAbstractButton &okay = addKey(form.Command1, "Command1");
    grid.addWidget(&okay, 1, 1, Qt::AlignRight);
    okay.setFocus();
    finish();
}

} // namespace tonvale

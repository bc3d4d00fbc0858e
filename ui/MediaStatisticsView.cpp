// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/MediaStatisticsView.h"

#include "ui/NameDisplay.h"
#include "ui/PanelSurface.h"
#include "ui/children.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QLabel>

namespace tonvale {

namespace {

// In device-independent pixels.
constexpr int kMargin = 16, kGap = 12, kInset = 16;
constexpr int kRowGap = 6, kColumnGap = 24, kRowHeight = 20, kValueWidth = 300;

} // namespace

MediaStatisticsView::MediaStatisticsView(MediaStatisticsWindow &form) : DialogView(form), model_(form) {
    auto &rows = makeChild<QVBoxLayout>(*this);
    rows.setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    rows.setSpacing(kGap);
    auto &glass = makeChild<GlassSurface>(*this);
    fill(glass);
    rows.addWidget(&glass);
    rows.addWidget(&addKey(model_.Command1, "Command1"), 0, Qt::AlignRight);
    stayBeforeActiveWindow();
    finish();
}

void MediaStatisticsView::fill(QWidget &glass) {
    auto &grid = makeChild<QGridLayout>(glass);
    grid.setContentsMargins(kInset, kInset, kInset, kInset);
    grid.setVerticalSpacing(kRowGap);
    grid.setHorizontalSpacing(kColumnGap);
    QPalette print;
    print.setColor(QPalette::WindowText, theme::kGlassText);
    for (MediaStatisticsWindow::Row &row : model_.Rows) {
        auto &name = makeChild<QLabel>(glass);
        name.setTextFormat(Qt::PlainText);
        name.setPalette(print);
        bind(bindings(), name, row.Name);
        auto &value = makeChild<NameDisplay>(glass);
        value.setFixedSize(kValueWidth, kRowHeight);
        bindings().follow(row.Value.Caption, [&value, &row] { value.setText(shown(row.Value.Caption)); });
        const int line = grid.rowCount();
        grid.addWidget(&name, line, 0);
        grid.addWidget(&value, line, 1);
    }
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/SettingsView.h"

#include "ui/NameDisplay.h"
#include "ui/PanelSurface.h"
#include "ui/bind_inputs.h"
#include "ui/children.h"
#include "ui/text.h"

#include <QCheckBox>
#include <QLabel>
#include <QVBoxLayout>

namespace tonvale {

namespace {

// In device-independent pixels.
constexpr int kMargin = 20, kGap = 12, kInset = 10, kAbovePlace = 8;
constexpr QSize kPlaceSize(320, 20);

} // namespace

SettingsView::SettingsView(Settings &form) : DialogView(form) {
    auto &rows = makeChild<QVBoxLayout>(*this);
    rows.setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    rows.setSpacing(kGap);
    for (CheckBox *box : {&form.Check1, &form.Check2, &form.Check3, &form.Check4, &form.Check6}) {
        auto &widget = makeChild<QCheckBox>(*this);
        bind(bindings(), widget, *box);
        rows.addWidget(&widget);
    }
    rows.addSpacing(kAbovePlace);
    auto &label = makeChild<QLabel>(*this);
    label.setTextFormat(Qt::PlainText);
    bind(bindings(), label, form.Label3);
    rows.addWidget(&label);
    auto &glass = makeChild<GlassSurface>(*this);
    auto &around = makeChild<QVBoxLayout>(glass);
    around.setContentsMargins(kInset, kInset, kInset, kInset);
    auto &place = makeChild<NameDisplay>(glass);
    place.setFixedSize(kPlaceSize);
    bindings().follow(form.Label2.Caption, [&place, &form] { place.setText(shown(form.Label2.Caption)); });
    around.addWidget(&place);
    rows.addWidget(&glass);
    finish();
}

} // namespace tonvale

// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/bind_inputs.h"

#include "ui/text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QSignalBlocker>

namespace tonvale {

void bind(Bindings &bindings, QCheckBox &widget, CheckBox &box) {
    bindings.follow(box.Caption, [&] { widget.setText(shown(box.Caption)); });
    bindings.follow(box.Value, [&] { widget.setChecked(box.Value == 1); });
    bindings.keep(QObject::connect(&widget, &QCheckBox::clicked, &widget,
                                   [&box](bool checked) { box.Value = static_cast<std::int16_t>(checked ? 1 : 0); }));
    bindControl(bindings, widget, box);
}

void bind(Bindings &bindings, QComboBox &widget, ComboBox &box) {
    const auto showRow = [&] { widget.setCurrentIndex(box.ListIndex); };
    bindings.follow(box.List, [&, showRow] {
        const QSignalBlocker blocker(widget);
        widget.clear();
        for (const std::string &row : box.List.get()) widget.addItem(shown(row));
        showRow();
    });
    bindings.follow(box.ListIndex, showRow);
    bindings.keep(QObject::connect(&widget, &QComboBox::activated, &widget, [&box](int row) { box.ListIndex = row; }));
    bindControl(bindings, widget, box);
}

void bind(Bindings &bindings, QPlainTextEdit &widget, TextBox &box) {
    widget.setReadOnly(box.ReadOnly);
    bindings.follow(box.Text, [&] {
        const QString text = shown(box.Text);
        if (text != widget.toPlainText()) widget.setPlainText(text);
    });
    bindControl(bindings, widget, box);
    if (box.ReadOnly) return;
    bindings.keep(QObject::connect(&widget, &QPlainTextEdit::textChanged, &widget,
                                   [&] { box.Text = widget.toPlainText().toStdString(); }));
}

} // namespace tonvale

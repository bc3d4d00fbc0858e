// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/PanelPart.h"

#include <QAccessibleWidget>

#include <memory>

namespace tonvale {

namespace {

class PanelPartInterface : public QAccessibleWidget {
public:
    explicit PanelPartInterface(PanelPart &part) : QAccessibleWidget(&part, part.accessibleRole()), part_(part) {}

    QString text(QAccessible::Text kind) const override {
        // Not every assistive program asks an indicator for its value; all read the description.
        const bool asked = kind == QAccessible::Value || kind == QAccessible::Description;
        return asked ? part_.shownValue() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        return state;
    }

private:
    PanelPart &part_;
};

QAccessibleInterface *makeInterface(const QString & /*className*/, QObject *object) {
    auto *part = dynamic_cast<PanelPart *>(object);
    // The accessibility cache owns what is returned.
    return part != nullptr ? std::make_unique<PanelPartInterface>(*part).release() : nullptr;
}

} // namespace

void PanelPart::announceValue() {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
}

void installPanelAccessibility() { QAccessible::installFactory(makeInterface); }

} // namespace tonvale

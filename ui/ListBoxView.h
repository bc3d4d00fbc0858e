// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/ListBox.h"
#include "ui/ListModel.h"
#include "ui/bind.h"

#include <QListView>
#include <QPointer>

#include <array>
#include <memory>

namespace tonvale {

// Shows a list box: its rows, which of them are selected, which one has the focus, both ways.
class ListBoxView : public QListView {
public:
    ListBoxView(QWidget *parent, ListBox &list);
    ~ListBoxView() override;

    // Lets go of the list box, which may be gone soon.
    void release();

protected:
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    void listen();
    void showSelection(std::size_t first, std::size_t count);
    void showFocus();
    void followEnabled();
    void tellMouse(Event<std::int16_t, double, double> &event, std::int16_t button, QPoint place);
    void tellMove(const QMouseEvent &event);
    void showToolTip(const QPoint &place, const QPoint &placeOnScreen);
    [[nodiscard]] std::int32_t measure(const std::string &row) const;
    void measureLetters();

    ListBox *list_;             // null once released
    bool listChanges_ = false;  // what happens now is the list box's doing
    QPointer<QWidget> standIn_; // that has had the keyboard since the list box was disabled
    std::unique_ptr<ListModel> rows_;
    Bindings bindings_;
    std::array<double, 128> letterWidths_{}; // pixels
};

} // namespace tonvale

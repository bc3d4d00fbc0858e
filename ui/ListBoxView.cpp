// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/ListBoxView.h"

#include "controls/Form.h"
#include "ui/input_codes.h"
#include "ui/units.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tonvale {

namespace {

constexpr int kRowPadding = 6; // device-independent pixels, above and below together
constexpr int kRowsPerWheelStep = 3, kWheelStep = 120;

// Rows are as wide as the list box says, and no row has to be looked at for that.
class RowDelegate : public QStyledItemDelegate {
public:
    RowDelegate(QObject *parent, const ListBox &list) : QStyledItemDelegate(parent), list_(list) {}
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex & /*index*/) const override {
        return {list_.HorizontalExtent, option.fontMetrics.height() + kRowPadding};
    }

private:
    const ListBox &list_;
};

// A path breaks at its separators, and what looks like markup is none.
QString wrapped(const QString &path) {
    return QStringLiteral("<qt>%1</qt>").arg(path.toHtmlEscaped().replace(u'/', QStringLiteral("/\u200b")));
}

} // namespace

ListBoxView::ListBoxView(QWidget *parent, ListBox &list) : QListView(parent), list_(&list) {
    setSelectionMode(ExtendedSelection);
    setUniformItemSizes(true);
    setAlternatingRowColors(true);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollMode(ScrollPerPixel);
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    setAccessibleName(QStringLiteral("PlayList"));
    measureLetters();
    listen();
    setItemDelegate(std::make_unique<RowDelegate>(this, list).release()); // a child
    list.textWidth = [this](const std::string &row) { return measure(row); };
    list.itemFromPoint = [this](std::int32_t x, std::int32_t y) { return indexAt({x, y}).row(); };
}

ListBoxView::~ListBoxView() { release(); }

void ListBoxView::release() {
    if (list_ == nullptr) return;
    ListBox &list = *std::exchange(list_, nullptr); // from here on nothing is told to it
    list.textWidth = nullptr;
    list.itemFromPoint = nullptr;
    bindings_.end();
    setModel(nullptr);
    rows_.reset();
}

// The toolkit moves its own selection and focus when rows come and go. What the list box says counts,
// so it is shown again when that is over; the order of listening sees to that.
void ListBoxView::listen() {
    ListBox &list = *list_;
    const auto begin = [this](auto...) { listChanges_ = true; };
    const auto end = [this](auto...) {
        listChanges_ = false;
        showFocus();
    };
    bindings_.keep(list.rowsAboutToBeInserted.connect(begin));
    bindings_.keep(list.rowsAboutToBeRemoved.connect(begin));
    bindings_.keep(list.rowsAboutToBeReset.connect(begin));
    rows_ = std::make_unique<ListModel>(list);
    setModel(rows_.get());
    bindings_.keep(list.rowsInserted.connect(end));
    bindings_.keep(list.rowsRemoved.connect(end));
    bindings_.keep(list.rowsReset.connect([this, end] {
        showSelection(0, list_->ListCount());
        end();
    }));
    bindings_.keep(
        list.selectionChanged.connect([this](std::size_t first, std::size_t count) { showSelection(first, count); }));
    bindings_.keep(list.ListIndex.onChange([this] { showFocus(); }));
    bindings_.keep(list.HorizontalExtent.onChange([this] { scheduleDelayedItemsLayout(); }));
    bindings_.follow(list.Enabled, [this] { followEnabled(); });
    showSelection(0, list.ListCount());
}

// A list that is disabled loses the keyboard to some neighbour, and gets it back unless the user has
// moved it on since.
void ListBoxView::followEnabled() {
    const bool hadFocus = window()->focusWidget() == this;
    setEnabled(list_->Enabled);
    if (!list_->Enabled)
        standIn_ = hadFocus ? window()->focusWidget() : nullptr;
    else if (standIn_ != nullptr && window()->focusWidget() == standIn_)
        setFocus();
}

void ListBoxView::showSelection(std::size_t first, std::size_t count) {
    const QScopedValueRollback changing(listChanges_, true);
    const auto index = [this](std::size_t row) { return rows_->index(static_cast<int>(row)); };
    QItemSelection selected;
    const std::size_t end = first + count;
    for (std::size_t row = first; row < end; ++row) {
        const std::size_t begin = row;
        while (row < end && list_->Selected(row)) ++row;
        if (row > begin) selected.append(QItemSelectionRange(index(begin), index(row - 1)));
    }
    if (count > 0)
        selectionModel()->select(QItemSelection(index(first), index(end - 1)), QItemSelectionModel::Deselect);
    selectionModel()->select(selected, QItemSelectionModel::Select);
}

void ListBoxView::showFocus() {
    if (listChanges_) return;
    const QScopedValueRollback changing(listChanges_, true);
    const QModelIndex row = rows_->index(list_->ListIndex);
    selectionModel()->setCurrentIndex(row, QItemSelectionModel::NoUpdate);
    if (row.isValid()) scrollTo(row);
}

void ListBoxView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) {
    QListView::selectionChanged(selected, deselected);
    if (list_ == nullptr || listChanges_) return;
    const auto tell = [this](const QItemSelection &selection, bool isSelected) {
        for (const QItemSelectionRange &range : selection)
            list_->userSelected(static_cast<std::size_t>(range.top()), static_cast<std::size_t>(range.height()),
                                isSelected);
    };
    tell(deselected, false);
    tell(selected, true);
    list_->Click();
}

void ListBoxView::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    QListView::currentChanged(current, previous);
    if (list_ == nullptr || listChanges_) return;
    const QScopedValueRollback changing(listChanges_, true);
    list_->ListIndex = current.row();
}

void ListBoxView::tellMouse(Event<std::int16_t, double, double> &event, std::int16_t button, QPoint place) {
    event(button, toTwips(place.x()), toTwips(place.y()));
}

// Only the left button selects.
void ListBoxView::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton) QListView::mousePressEvent(event);
}

void ListBoxView::mouseMoveEvent(QMouseEvent *event) {
    QListView::mouseMoveEvent(event);
    if (list_ != nullptr) tellMove(*event);
}

void ListBoxView::tellMove(const QMouseEvent &event) {
    const std::int16_t button = event.buttons() == Qt::NoButton ? std::int16_t{0} : kLeftButton;
    tellMouse(list_->MouseMove, button, event.position().toPoint());
}

void ListBoxView::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) return;
    QListView::mouseReleaseEvent(event);
    if (list_ == nullptr) return;
    tellMouse(list_->MouseUp, kLeftButton, event->position().toPoint());
    if (list_ != nullptr) list_->Click();
}

void ListBoxView::keyPressEvent(QKeyEvent *event) {
    if (isPlayStopKey(*event) || event->key() == Qt::Key_Escape)
        event->ignore();
    else
        QListView::keyPressEvent(event);
}

// The list does not get the focus anew when a menu or another window gives it back.
void ListBoxView::focusInEvent(QFocusEvent *event) {
    QListView::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    const bool isGivenBack =
        reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
    if (list_ != nullptr && !isGivenBack) list_->GotFocus();
}

// The keyboard's key for menus does what the right button does.
void ListBoxView::contextMenuEvent(QContextMenuEvent *event) {
    if (event->reason() == QContextMenuEvent::Keyboard && list_ != nullptr)
        tellMouse(list_->MouseUp, kRightButton, visualRect(currentIndex()).center());
}

// A list that plays is disabled and can be read nevertheless: it scrolls, it tells what a row is
// called, and its menu opens.
bool ListBoxView::viewportEvent(QEvent *event) {
    if (list_ == nullptr) return QListView::viewportEvent(event);
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        showToolTip(help->pos(), help->globalPos());
        return true;
    }
    if (event->type() == QEvent::MouseButtonRelease && window()->isEnabled()) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton) {
            tellMouse(list_->MouseUp, kRightButton, mouse->position().toPoint());
            return true;
        }
    }
    if (event->type() == QEvent::MouseMove && !isEnabled()) {
        tellMove(*static_cast<const QMouseEvent *>(event));
        return true;
    }
    if (event->type() == QEvent::Wheel && !isEnabled()) {
        const int steps = static_cast<QWheelEvent *>(event)->angleDelta().y() * kRowsPerWheelStep / kWheelStep;
        verticalScrollBar()->setValue(verticalScrollBar()->value() - steps);
        return true;
    }
    return QListView::viewportEvent(event);
}

void ListBoxView::showToolTip(const QPoint &place, const QPoint &placeOnScreen) {
    const std::string &row = list_->ToolTipText;
    QToolTip::showText(placeOnScreen, row.empty() ? QString() : wrapped(shownRow(row)), viewport(),
                       visualRect(indexAt(place)));
}

void ListBoxView::measureLetters() {
    const QFontMetricsF metrics(font());
    for (std::size_t i = 0; i < letterWidths_.size(); ++i)
        letterWidths_[i] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(i)));
}

// Most paths are of plain letters, whose widths are known: a long list is measured at each Add.
std::int32_t ListBoxView::measure(const std::string &row) const {
    double width = 0;
    const bool isPlain = row.size() <= ListModel::kLongestShown && std::ranges::all_of(row, [&](char c) {
                             const auto letter = static_cast<unsigned char>(c);
                             if (letter < ' ' || letter >= letterWidths_.size()) return false;
                             width += letterWidths_[letter];
                             return true;
                         });
    if (!isPlain) width = QFontMetricsF(font()).horizontalAdvance(shownRow(row));
    return static_cast<std::int32_t>(std::lround(toTwips(width)));
}

} // namespace tonvale

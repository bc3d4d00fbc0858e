// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/backend/qt/Session.h"
#include "tests/unit/fakes/FakeLoop.h"
#include "ui/FormWindow.h"
#include "ui/ListBoxView.h"
#include "ui/ToolbarView.h"
#include "ui/dropped_files.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QVBoxLayout>

#include <random>

// What a list window's parts do with the toolkit: the rows both ways, the keyboard, what is dropped.

namespace tonvale {
namespace {

using namespace test;
using Texts = std::vector<std::string>;

// A window with a list, and something else that the keyboard can go to.
class ListView : public SessionTest<Display::None> {
protected:
    ListView() {
        list.AddItems({"a", "b", "c", "d"});
        auto *layout = std::make_unique<QVBoxLayout>(&window).release();
        layout->addWidget(&before);
        layout->addWidget(&view);
        layout->addWidget(&after);
        window.show();
        window.activateWindow();
        view.setFocus();
    }
    ~ListView() override { view.release(); }

    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&window)); }

    [[nodiscard]] Texts selectedInView() const {
        Texts rows;
        for (int row = 0; row < view.model()->rowCount(); ++row)
            if (const QModelIndex index = view.model()->index(row, 0); view.selectionModel()->isSelected(index))
                rows.push_back(index.data().toString().toStdString());
        return rows;
    }
    [[nodiscard]] Texts selectedInList() const {
        Texts rows;
        for (std::size_t row = 0; row < list.ListCount(); ++row)
            if (list.Selected(row)) rows.push_back(list.List(row));
        return rows;
    }

    QWidget window;
    ListBox list;
    QLineEdit before, after;
    ListBoxView view{nullptr, list};
};

TEST_F(ListView, ShowsWhatTheListBoxSaysWhateverHappensToIt) {
    const QAbstractItemModelTester rules(view.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::mt19937 random(5);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    const auto row = [&] { return below(list.ListCount()); };
    int rows = 0;
    const auto text = [&] { return std::to_string(++rows); };
    const std::vector<std::function<void()>> changes = {
        [&] { list.AddItem(text(), below(list.ListCount() + 1)); },
        [&] {
            list.AddItems({text(), text(), text()});
        },
        [&] { list.AddItems(Texts(40, "many")); },
        [&] { list.Selected(row(), below(2) == 0); },
        [&] { list.RemoveItem(row()); },
        [&] { list.setItem(row(), text()); },
        [&] { static_cast<void>(list.RemoveSelected()); },
        [&] {
            for (std::size_t i = 0; i < list.ListCount(); i += 2) list.Selected(i, true);
        },
        [&] { list.ClearSelection(); },
        [&] { QTest::keyClick(&view, below(2) == 0 ? Qt::Key_Up : Qt::Key_Down); },
        [&] { QTest::keyClick(&view, below(2) == 0 ? Qt::Key_Up : Qt::Key_End, Qt::ShiftModifier); },
    };
    for (int i = 0; i < 2000; ++i) {
        const std::size_t change = below(changes.size());
        if (list.ListCount() == 0) list.AddItem(text());
        if (list.ListCount() > 300)
            list.Clear();
        else
            changes[change]();
        ASSERT_EQ(selectedInView(), selectedInList()) << i << ", change " << change;
        ASSERT_EQ(view.currentIndex().row(), list.ListIndex) << i << ", change " << change;
    }
}

TEST_F(ListView, TheKeyboardIsBackAtAListThatIsEnabledAgain) {
    list.Enabled = false;
    EXPECT_NE(window.focusWidget(), &view);
    list.Enabled = true;
    EXPECT_EQ(window.focusWidget(), &view);
}

TEST_F(ListView, TheKeyboardStaysWhereTheUserHasMovedItSince) {
    list.Enabled = false;
    QWidget &other = window.focusWidget() == &before ? after : before;
    other.setFocus();
    list.Enabled = true;
    EXPECT_EQ(window.focusWidget(), &other);
    list.Enabled = false;
    list.Enabled = true;
    EXPECT_EQ(window.focusWidget(), &other) << "the list did not have it";
}

TEST_F(ListView, TheKeyForMenusDoesWhatTheRightButtonDoes) {
    std::vector<std::int16_t> buttons;
    list.MouseUp = [&](std::int16_t button, double, double) { buttons.push_back(button); };
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, {5, 5}, {5, 5}),
        byKey(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(&view, &byMouse);
    EXPECT_EQ(buttons, std::vector<std::int16_t>()) << "the button itself is told when it is released";
    QCoreApplication::sendEvent(&view, &byKey);
    EXPECT_EQ(buttons, std::vector<std::int16_t>{kRightButton});
}

TEST_F(ListView, SpaceSelectsARowAndControlAndSpaceAreForTheHook) {
    QTest::keyClick(&view, Qt::Key_Down);
    list.ClearSelection();
    QTest::keyClick(&view, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(selectedInList(), Texts());
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(selectedInList().size(), 1u);
}

using AToolbar = SessionTest<Display::None>;

TEST_F(AToolbar, IsPushedBySpaceAndReturnAndNotByTheHotKey) {
    Toolbar toolbar({{"Add", "Add Files", "Add File(s) to PlayList"}});
    Texts pushed;
    toolbar.ButtonClick = [&](const ToolbarButton &button) { pushed.push_back(button.Key); };
    Bindings bindings;
    ToolbarView view(nullptr, toolbar, bindings);
    view.show();
    auto *key = view.findChild<QAbstractButton *>();
    ASSERT_NE(key, nullptr);
    QTest::keyClick(key, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(pushed, Texts());
    QTest::keyClick(key, Qt::Key_Space);
    QTest::keyClick(key, Qt::Key_Return);
    EXPECT_EQ(pushed, (Texts{"Add", "Add"}));
    bindings.end();
}

Qt::CursorShape pointerOfTheScreen() {
    const QCursor *const cursor = QGuiApplication::overrideCursor();
    return cursor == nullptr ? Qt::ArrowCursor : cursor->shape();
}

// A window that keeps what is dropped on it.
class DropForm : public Form {
public:
    using Form::Form;
    Texts dropped;
    Qt::CursorShape pointer = Qt::WaitCursor;

private:
    void Form_DropFiles(const Texts &names) override {
        dropped = names;
        pointer = pointerOfTheScreen();
    }
};

// What another program gives when it is asked.
class DraggedFiles : public QMimeData {
public:
    mutable Qt::CursorShape pointer = Qt::ArrowCursor;

protected:
    [[nodiscard]] bool hasFormat(const QString &type) const override { return type == QLatin1String("text/uri-list"); }
    [[nodiscard]] QVariant retrieveData(const QString & /*type*/, QMetaType /*wanted*/) const override {
        pointer = pointerOfTheScreen();
        return QByteArray("file:///b.mp3\r\nhttp://x/y\r\nfile:///a.mp3\r\n");
    }
};

class DropWindow : public FormWindow {
public:
    using FormWindow::dropEvent;
    using FormWindow::FormWindow;
};

using ADrop = SessionTest<Display::None>;

TEST_F(ADrop, IsReadWithThePointerOfAProgramAtWork) {
    FakeLoop loop;
    ErrObject err;
    Forms forms(loop, err);
    DropForm form(forms, "form");
    DropWindow window(form, 0);
    const DraggedFiles files;
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    window.dropEvent(&drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(form.dropped, (Texts{"/b.mp3", "/a.mp3"}));
    EXPECT_EQ(files.pointer, Qt::WaitCursor);
    EXPECT_EQ(form.pointer, Qt::ArrowCursor) << "for the reading of the names alone";
}

TEST(DroppedFiles, AreThePathsOfThisMachineInTheirOrder) {
    const auto of = [](std::string_view list) { return droppedFiles(list, "desk"); };
    EXPECT_EQ(of("file:///b.mp3\r\nfile:///a.mp3\r\n"), (Texts{"/b.mp3", "/a.mp3"}));
    EXPECT_EQ(of("file:///a\nfile:/b\rFILE://localhost/c\r\nfile://DESK/d"), (Texts{"/a", "/b", "/c", "/d"}));
    EXPECT_EQ(of("#comment\r\nhttp://x/a.mp3\r\nfile://other/a.mp3\r\n/a.mp3\r\nsmb://desk/a\r\n\r\n"), Texts());
    EXPECT_EQ(of("file:///caf%E9%20100%25.mp3"), Texts{"/caf\xE9 100%.mp3"});
    EXPECT_EQ(of("file:///100%.mp3\r\nfile:///%4\r\nfile:///%zz"), (Texts{"/100%.mp3", "/%4", "/%zz"}));
    EXPECT_EQ(of("file:///line%0Aend%0D.mp3"), Texts{"/line\nend\r.mp3"}) << "escaped, they are of the name";
    EXPECT_EQ(of("file:///a%00b.mp3\r\nfile:\r\nfile://\r\nfile:a.mp3\r\nfile"), Texts()) << "no name has a zero in it";
    EXPECT_EQ(of(std::string_view("file:///a\0file:///b\0", 20)), (Texts{"/a", "/b"}));
    EXPECT_EQ(of(""), Texts());
}

TEST(ShownRow, IsOneLineOfWhateverBytes) {
    EXPECT_EQ(shownRow("/ü.mp3"), QStringLiteral("/ü.mp3"));
    EXPECT_EQ(shownRow("/\xFC.mp3"), QStringLiteral("/ü.mp3"));
    EXPECT_EQ(shownRow(std::string("a\0b\nc\td", 7)), QStringLiteral("a␀b␊c␉d"));
    const QString cut = shownRow(std::string(1'000'000, 'x'));
    EXPECT_EQ(cut.size(), static_cast<qsizetype>(ListModel::kLongestShown) + 1);
    EXPECT_TRUE(cut.endsWith(QChar(0x2026)));
}

} // namespace
} // namespace tonvale

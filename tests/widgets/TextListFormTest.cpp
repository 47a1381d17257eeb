#include "widgets/TextList.h"

#include "widgets/Manners.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace quorrel::test {
namespace {

/// A list of five lines under a search box, both in a window that holds the focus.
class TextListTest : public testing::Test {
protected:
    void SetUp() override {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(box = new QLineEdit);
        layout->addWidget(list = new TextList);
        list->SetSearchBox(box);
        list->SetLines({"one", "two", "three", "four", "five"});
        QObject::connect(list, &TextList::Clicked, [this] { clicked += list->CurrentText(); });
        QObject::connect(list, &TextList::DoubleClicked, [this] { twice += list->CurrentText(); });
        QObject::connect(list, &TextList::EnterPressed, [this] { enter += list->CurrentText(); });
        window.resize(300, 300);
        window.show();
        window.activateWindow();
        QCoreApplication::processEvents();
        box->setFocus();
    }

    QPoint PlaceOf(int row) { return list->visualRect(list->model()->index(row, 0)).center(); }
    QPoint Below() { return {20, list->viewport()->height() - 2}; }

    void Press(int row, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(list->viewport(), button, {}, PlaceOf(row));
    }
    /// Moves the mouse with the left button held; `QTest` has no held buttons.
    void DragTo(const QPoint& place) {
        QMouseEvent move(QEvent::MouseMove, place, list->viewport()->mapToGlobal(place),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(list->viewport(), &move);
    }
    void Release(const QPoint& place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(list->viewport(), button, {}, place);
    }
    void Click(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(list->viewport(), button, keys, PlaceOf(row));
    }

    /// What was clicked since the last call.
    QString Clicks() { return std::exchange(clicked, {}).join(' '); }
    /// The current line and the selected one are the same, or there is neither.
    void ExpectWhole() {
        const auto selected = list->selectionModel()->selectedIndexes();
        EXPECT_EQ(list->CurrentRow(), selected.isEmpty() ? -1 : selected.first().row());
        EXPECT_EQ(list->currentIndex().isValid(), !selected.isEmpty());
        EXPECT_EQ(list->CurrentText().isEmpty(), selected.isEmpty());
    }

    QWidget window;
    QLineEdit* box = nullptr;
    TextList* list = nullptr;
    QStringList clicked, twice, enter;
};

TEST_F(TextListTest, TheFocusChoosesNothing) {
    for (const auto reason :
         {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::ActiveWindowFocusReason,
          Qt::ShortcutFocusReason, Qt::OtherFocusReason}) {
        list->setFocus(reason);
        EXPECT_TRUE(list->hasFocus());
        EXPECT_EQ(list->CurrentRow(), -1) << reason;
        ExpectWhole();
        box->setFocus();
    }
    QTest::keyClick(box, Qt::Key_Tab);
    QTest::keyClick(list, Qt::Key_Return);
    QTest::keyClick(list, Qt::Key_Space);
    ExpectWhole();
    EXPECT_EQ(Clicks(), "");
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(Clicks(), "one") << "the first arrow key begins at the first line";
}

TEST_F(TextListTest, EachChangeOfTheHighlightIsOneClick) {
    Click(1);
    EXPECT_EQ(Clicks(), "two");
    Click(1);
    EXPECT_EQ(Clicks(), "two") << "the highlighted line once more";
    for (const auto& [key, line] : {std::pair{Qt::Key_Down, "three"},
                                    {Qt::Key_Up, "two"},
                                    {Qt::Key_End, "five"},
                                    {Qt::Key_Down, ""},
                                    {Qt::Key_PageUp, "one"},
                                    {Qt::Key_Home, ""},
                                    {Qt::Key_T, "two"},
                                    {Qt::Key_Return, "two"}}) {
        QTest::keyClick(list, key);
        EXPECT_EQ(Clicks(), line);
        ExpectWhole();
    }
    for (const auto keys : {Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier}) {
        Click(3, Qt::LeftButton, keys);
        Click(3, Qt::LeftButton, keys);
        EXPECT_EQ(list->CurrentText(), "four") << "no key takes the highlight away";
    }
    QTest::keyClick(list, Qt::Key_Space, Qt::ControlModifier);
    ExpectWhole();
    EXPECT_EQ(list->CurrentText(), "four");
}

TEST_F(TextListTest, TheOtherButtonsChooseNothing) {
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        Click(2, button);
        ExpectWhole();
        EXPECT_EQ(list->CurrentRow(), -1);
    }
    Click(0);
    clicked.clear();
    Click(2, Qt::RightButton);
    QTest::mouseDClick(list->viewport(), Qt::RightButton, {}, PlaceOf(2));
    Press(2, Qt::RightButton);
    Release(PlaceOf(3), Qt::RightButton);
    EXPECT_EQ(list->CurrentText(), "one");
    EXPECT_EQ(Clicks() + twice.join(' '), "");
}

TEST_F(TextListTest, ASlippedPressChoosesWhatIsHighlightedAfterIt) {
    Press(1);
    DragTo(PlaceOf(3));
    EXPECT_EQ(list->CurrentText(), "four") << "the highlight goes with the mouse";
    Release(PlaceOf(3));
    EXPECT_EQ(Clicks(), "two four");
    Press(2);
    DragTo(Below());
    Release({-50, -50});
    EXPECT_EQ(list->CurrentText(), "three");
    EXPECT_EQ(Clicks(), "three");
    DragTo(PlaceOf(0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, Below());
    EXPECT_EQ(list->CurrentText(), "three") << "nothing lies under the lines";
    EXPECT_EQ(Clicks(), "");
}

TEST_F(TextListTest, WhereAClickLeadsElsewhereKeysAndAPressOnlyMove) {
    list->SetLeadsElsewhere();
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_PageDown);
    QTest::keyClick(list, Qt::Key_T);
    EXPECT_EQ(list->CurrentText(), "two");
    EXPECT_EQ(Clicks(), "");
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(Clicks(), "two");
    Press(1);
    DragTo(PlaceOf(2));
    EXPECT_EQ(Clicks(), "");
    Release({-50, -50});
    EXPECT_EQ(Clicks(), "three");
    Click(2);
    EXPECT_EQ(Clicks(), "three");
    Click(0, Qt::RightButton);
    EXPECT_EQ(Clicks(), "");
}

TEST_F(TextListTest, DoubleClickAndEnterAreTold) {
    Click(1);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, PlaceOf(1));
    EXPECT_EQ(Clicks(), "two");
    EXPECT_EQ(twice.join(' '), "two");
    QTest::keyClick(list, Qt::Key_Enter);
    EXPECT_EQ(enter.join(' '), "two");
    list->SetLines({});
    QTest::keyClick(list, Qt::Key_Enter);
    EXPECT_EQ(enter.size(), 1) << "nothing is highlighted";
}

TEST_F(TextListTest, CodeFillsWithoutAClickAndKeepsTheLineOnlyWhereAsked) {
    list->SetCurrentRow(2);
    list->SetLines({"three", "four"});
    EXPECT_EQ(list->CurrentRow(), -1);
    ExpectWhole();
    list->SetCurrentRow(1);
    list->Refill({"zero", "four", "five"});
    EXPECT_EQ(list->CurrentText(), "four");
    list->Refill({"fourteen", "five"}, 4);
    EXPECT_EQ(list->CurrentText(), "fourteen");
    list->Refill({"five"});
    ExpectWhole();
    list->Refill({"", "five"});
    EXPECT_EQ(list->CurrentRow(), -1) << "an empty line is not the one that was not there";
    list->SetCurrentRow(1);
    list->SetCurrentRow(-1);
    ExpectWhole();
    list->SetCurrentRow(7);
    ExpectWhole();
    EXPECT_EQ(Clicks(), "");
}

TEST_F(TextListTest, LinesThatComeWithAPressAreNotChosenByIt) {
    list->SetLines({});
    QObject::connect(list, &TextList::LinesWanted, list, [&] { list->SetLines({"new", "newer"}); });
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(list->CurrentRow(), -1);
    QCoreApplication::processEvents();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
    EXPECT_EQ(Clicks(), "new");
}

TEST_F(TextListTest, KeysGoFromTheSearchBoxIntoTheList) {
    int defaults = 0;
    QObject::connect(box, &QLineEdit::returnPressed, [&] { ++defaults; });
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_TRUE(list->hasFocus());
    EXPECT_EQ(Clicks(), "one");
    list->SetCurrentRow(3);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(list->CurrentText(), "four") << "back to the line that was chosen";
    EXPECT_EQ(Clicks(), "");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(list->hasFocus());
    EXPECT_EQ(Clicks(), "one");
    list->SetLines({});
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(box->hasFocus()) << "there is no first line";
    list->SetSearchBox(box, TextList::OnEnter::LinesWanted);
    QObject::connect(list, &TextList::LinesWanted, list, [&] { list->SetLines({"found"}); });
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(defaults, 0) << "Enter is never more than the search";
}

TEST_F(TextListTest, PageKeysBelongToTheListThatHasTheFocus) {
    int turned = 0;
    auto* turn = new QShortcut(Qt::Key_PageDown, &window);
    QObject::connect(turn, &QShortcut::activated, [&] { ++turned; });
    QTest::keyClick(box, Qt::Key_PageDown);
    EXPECT_EQ(turned, 1);
    list->setFocus();
    list->SetCurrentRow(0);
    QTest::keyClick(list, Qt::Key_PageDown);
    EXPECT_EQ(turned, 1);
    EXPECT_EQ(list->CurrentText(), "five");
}

TEST_F(TextListTest, AScreenReaderChoosesAsTheUserDoes) {
    list->selectionModel()->select(list->model()->index(2, 0), QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(Clicks(), "three");
    ExpectWhole();
}

/// The tool tip over a place, as it is read.
QString TipOver(QWidget* widget, const QPoint& place) {
    const QString none = "none";
    QToolTip::showText(widget->mapToGlobal(place), none, widget);
    QHelpEvent help(QEvent::ToolTip, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &help);
    return QToolTip::text() == none ? QString() : QToolTip::text();
}

TEST_F(TextListTest, ACutLineAndAMarkAreToldByTheirTips) {
    InstallManners();
    const QString cut = "A1          <b>Door</b> & " + QString("corridor ").repeated(12);
    list->SetLines({"short", cut});
    EXPECT_EQ(TipOver(list->viewport(), PlaceOf(0)), "");
    EXPECT_EQ(TipOver(list->viewport(), PlaceOf(1)), PlainTip(cut));
    EXPECT_FALSE(list->model()->index(0, 0).data(Qt::DecorationRole).isValid());
    QPixmap red(16, 16);
    red.fill(Qt::red);
    list->SetMark(0, QIcon(red), "Cross-keyed");
    EXPECT_EQ(TipOver(list->viewport(), PlaceOf(0)), PlainTip("Cross-keyed"));
    EXPECT_EQ(list->Lines().value(0), "short");
    EXPECT_TRUE(list->model()->index(1, 0).data(Qt::DecorationRole).isValid())
        << "all lines make room, so that the columns stay in line";
    const QPixmap look = list->viewport()->grab();
    EXPECT_TRUE(look.toImage().pixelColor(list->visualRect(list->model()->index(0, 0)).left() + 8,
                                          PlaceOf(0).y()) == Qt::red);
    list->SetLines({"short"});
    EXPECT_EQ(TipOver(list->viewport(), PlaceOf(0)), "");
}

TEST_F(TextListTest, TheSecondPressOfADoubleClickIsForTheWindowOfTheFirst) {
    InstallManners();
    list->SetLines({"one", "two"});
    TextList former;
    former.SetLines({"one"});
    former.show();
    QCoreApplication::processEvents();
    QTest::mouseClick(former.viewport(), Qt::LeftButton, {}, QPoint(10, 5));
    const QPoint place = PlaceOf(1);
    const auto secondPress = [&] {
        QMouseEvent press(QEvent::MouseButtonDblClick, place, list->viewport()->mapToGlobal(place),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list->viewport(), &press);
    };
    secondPress();
    EXPECT_EQ(list->CurrentRow(), -1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    int doubled = 0;
    QObject::connect(list, &TextList::DoubleClicked, [&] { ++doubled; });
    secondPress();
    EXPECT_EQ(doubled, 1);
}

} // namespace
} // namespace quorrel::test

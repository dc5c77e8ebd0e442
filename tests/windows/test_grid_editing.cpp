#include "position/grid_clipboard.h"
#include "position/grid_display.h"
#include "position/grid_editor.h"
#include "position/grid_lines.h"
#include "position/posi_check.h"
#include "program/commands.h"
#include "window_fixture.h"
#include "windows/main/frmMain.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <algorithm>
#include <memory>
#include <random>

namespace qdw8::test {
namespace {

/// The main window over the rules of the grid, with the system's clipboard. AXIS 3 is out of use.
class GridEditing : public WindowTest {
protected:
    GridEditing() {
        ResetGridCursor();
        for (AxisDevice& device : DevSetting) {
            device = {" 44", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 20000, 100};
        }
        AxisOff[2] = kSet;
        ThePlatform().TheClipboard.GetText = [] {
            return QGuiApplication::clipboard()->text().toStdString();
        };
        ThePlatform().TheClipboard.SetText = [](const std::string& text) {
            QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        };
        ThePlatform().TheClipboard.Clear = [] { QGuiApplication::clipboard()->clear(); };
        QGuiApplication::clipboard()->clear();
        for (std::size_t index = 0; index < kCommands; ++index) {
            SetBuilt(static_cast<Command>(index));
        }
        window = std::make_unique<frmMain>(
            Commands(), MainWindowEvents{[this](Command command) { run(command); },
                                         [] { return false; },
                                         {},
                                         flgdData_RowColChange});
        Screens().flgdData = [this] { window->showGrid(); };
        Screens().flgdDataFinishInput = [this] { return window->finishInput(); };
        Screens().flgdDataFocus = [this] { window->focusGrid(); };
        Screens().frmMainCommands = [this] { window->showCommands(); };
        Screens().frmMainPanel = [this] { window->showPanel(); };
        window->loadResources();
        window->showSized(false);
        Menyu_Yuko();
        CMDBTN_Yuko();
        grid = &Get<QTableView>(*window, "flgdData");
        editor = &Get<QLineEdit>(*window, "flgdDataEdit");
        grid->setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void run(Command command) {
        commands.push_back(command);
        RunCommand(command);
    }

    void show(std::int16_t first, std::int16_t last) {
        ClearPosiTable();
        GridFirst = PosiFirst = first;
        GridLast = PosiLast = last;
        GridRowCount = static_cast<std::int16_t>(last - first + 1);
        QdDataHyoji_3();
    }

    QModelIndex at(int gridRow, int gridColumn) const {
        return grid->model()->index(gridRow - kGridHeadRows, gridColumn - 1);
    }
    void click(int gridRow, int gridColumn) {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, middleOf(gridRow, gridColumn));
    }
    void drag(int row, int column, int toRow, int toColumn) {
        QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, middleOf(row, column));
        QTest::mouseMove(grid->viewport(), middleOf(toRow, toColumn));
        QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, middleOf(toRow, toColumn));
    }
    void clickNumber(int gridRow) {
        QHeaderView& numbers = *grid->verticalHeader();
        const int section = gridRow - kGridHeadRows;
        const int y = numbers.sectionViewportPosition(section) + numbers.sectionSize(section) / 2;
        QTest::mouseClick(numbers.viewport(), Qt::LeftButton, {}, QPoint(5, y));
        QApplication::processEvents();
    }
    QPoint middleOf(int gridRow, int gridColumn) {
        grid->scrollTo(at(gridRow, gridColumn));
        return grid->visualRect(at(gridRow, gridColumn)).center();
    }
    /// Keys go to whatever has the focus, as from a keyboard.
    static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void type(const char* text) {
        for (const char character : std::string(text)) {
            QTest::keyClick(QApplication::focusWidget(), character);
        }
    }
    bool editing() const {
        EXPECT_EQ(editor->isVisible(), flgdData().edit.open);
        return editor->isVisible();
    }
    static std::pair<int, int> current() { return {flgdData().row, flgdData().col}; }
    static void copyOutside(const char* text) {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
    }
    static std::string clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }

    std::unique_ptr<frmMain> window;
    QTableView* grid = nullptr;
    QLineEdit* editor = nullptr;
    std::vector<Command> commands;
};

using Place = std::pair<int, int>;

// ---- how an edit begins ----

TEST_F(GridEditing, TypingF2EnterAndADoubleClickBeginAnEdit) {
    show(1, 5);
    click(3, 1);
    type("4");
    ASSERT_TRUE(editing());
    EXPECT_TRUE(editor->hasFocus());
    EXPECT_EQ(editor->text(), "4");
    EXPECT_EQ(editor->geometry(), grid->visualRect(at(3, 1)));
    EXPECT_EQ(editor->palette().color(QPalette::Base), QColor(0xC0, 0xFF, 0xFF));
    EXPECT_EQ(PaintedColour(*grid, at(3, 1)), QColor(0xC0, 0xFF, 0xFF));
    key(Qt::Key_Escape);
    EXPECT_FALSE(editing());
    for (const Qt::Key begins : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
        key(begins);
        ASSERT_TRUE(editing()) << begins;
        EXPECT_EQ(editor->text(), "30");
        EXPECT_EQ(editor->selectedText(), "30");
        key(Qt::Key_Escape);
    }
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, middleOf(4, 20));
    ASSERT_TRUE(editing());
    EXPECT_EQ(current(), (Place{4, 20}));
    EXPECT_EQ(editor->maxLength(), 40);
}

TEST_F(GridEditing, NoEditWithoutDataOnAnAxisOutOfUseOrInALockedGrid) {
    key(Qt::Key_F2);
    type("5");
    EXPECT_FALSE(editing());
    show(1, 5);
    for (const int column : {9, 10, 11, 12}) {
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, middleOf(3, column));
        EXPECT_FALSE(editing()) << column;
        EXPECT_EQ(current(), (Place{3, column}));
        type("1");
        key(Qt::Key_F2);
        EXPECT_FALSE(editing()) << column;
    }
    click(3, 1);
    const GridLock lock;
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, middleOf(3, 2));
    type("1");
    key(Qt::Key_F2);
    EXPECT_FALSE(editing());
    EXPECT_EQ(current(), (Place{3, 1}));
}

struct ColumnCase {
    int column;
    bool mm;
    int maxLength;
    const char* typed;
    const char* passes; ///< what of it stands in the box
};

TEST_F(GridEditing, EveryColumnTakesItsCharactersUpToItsLength) {
    const std::vector<ColumnCase> cases{
        {1, false, 2, "a-. 567", "56"},   {2, false, 1, "0453", "3"},
        {3, false, 1, "x43", "3"},        {4, false, 7, "1.2x3", "123"},
        {8, true, 7, "x1.2 34", "1.234"}, {4, false, 7, "123456789", "1234567"},
        {17, false, 1, "21", "1"},        {18, false, 1, "4x2", "2"},
        {19, false, 2, "1,5", "15"},      {20, false, 40, "a&b 1.", "a&b 1."}};
    for (const ColumnCase& one : cases) {
        DispMmFlag = FlagOf(one.mm);
        show(1, 3);
        click(2, one.column);
        type(one.typed);
        ASSERT_TRUE(editing()) << one.column;
        EXPECT_EQ(editor->maxLength(), one.maxLength) << one.column;
        EXPECT_EQ(editor->text(), one.passes) << one.column;
        EXPECT_EQ(flgdData().edit.text, one.passes) << one.column;
        key(Qt::Key_Escape);
    }
    EXPECT_EQ(platform.beeps, 0); // a dropped key says nothing
}

TEST_F(GridEditing, AFirstKeyThatTheColumnDropsBeginsNothing) {
    show(1, 3);
    click(2, 17);
    type("x2");
    EXPECT_FALSE(editing());
    EXPECT_EQ(current(), (Place{2, 17}));
}

TEST_F(GridEditing, ThePaddingOfAFigureTakesNoRoom) {
    DispMmFlag = kSet;
    show(1, 3);
    click(2, 4);
    key(Qt::Key_F2);
    EXPECT_EQ(flgdData().edit.text, "  0.000");
    EXPECT_EQ(editor->text(), "0.000");
    key(Qt::Key_Home);
    type("12");
    EXPECT_EQ(editor->text(), "120.000");
    key(Qt::Key_Escape);
    EXPECT_EQ(GridText(2, 4), "  0.000");
    // A longer text that was pasted into the cell is shown in whole, and can only get shorter.
    SetGridText(2, 1, "12345");
    click(2, 1);
    key(Qt::Key_F2);
    EXPECT_EQ(editor->text(), "12345");
    key(Qt::Key_End);
    key(Qt::Key_Left);
    key(Qt::Key_Left);
    key(Qt::Key_Backspace);
    type("67");
    EXPECT_EQ(editor->text(), "1245");
    EXPECT_EQ(editor->cursorPosition(), 2);
}

// ---- how it ends ----

TEST_F(GridEditing, EnterGoesItsWayThroughTheRowAndIntoANewLine) {
    show(1, 2);
    click(2, 4);
    type("7");
    key(Qt::Key_Return);
    EXPECT_FALSE(editing());
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(GridText(2, 4), "7");
    EXPECT_EQ(current(), (Place{2, 5}));
    type("8");
    key(Qt::Key_Enter);
    EXPECT_EQ(current(), (Place{2, 6}));
    click(2, 20);
    type("up");
    key(Qt::Key_Return);
    EXPECT_EQ(current(), (Place{3, 1}));
    click(3, 20);
    key(Qt::Key_F2);
    key(Qt::Key_Return);
    EXPECT_EQ(current(), (Place{4, 1}));
    EXPECT_EQ(grid->model()->rowCount(), 3);
    EXPECT_EQ(grid->model()->headerData(2, Qt::Vertical).toString(), "3");
    EXPECT_EQ(at(4, 1).data().toString(), "30");
    EXPECT_EQ(GridLast, 3);
    EXPECT_EQ(grid->selectionModel()->currentIndex(), at(4, 1));
}

TEST_F(GridEditing, ANewLineBelowTheWindowIsScrolledTo) {
    show(1, 200);
    click(201, 20);
    key(Qt::Key_F2);
    key(Qt::Key_Return);
    EXPECT_EQ(current(), (Place{202, 1}));
    EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(at(202, 1))));
}

TEST_F(GridEditing, EscPutsTheOldTextBack) {
    show(1, 3);
    click(2, 1);
    type("45");
    key(Qt::Key_Escape);
    EXPECT_FALSE(editing());
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(at(2, 1).data().toString(), "30");
    click(3, 3);
    EXPECT_EQ(PaintedColour(*grid, at(2, 1)), grid->palette().color(QPalette::Base));
    click(2, 1);
    EXPECT_EQ(PosiDirtyFlag, kClear);
    EXPECT_EQ(current(), (Place{2, 1}));
}

TEST_F(GridEditing, ARejectedTextBeepsAndStaysInEdit) {
    show(1, 3);
    click(2, 1);
    const std::vector<std::function<void()>> ways{[] { key(Qt::Key_Return); },
                                                  [] { key(Qt::Key_Tab); },
                                                  [] { key(Qt::Key_Down); },
                                                  [this] { click(3, 3); },
                                                  [this] { clickNumber(4); },
                                                  [this] { Get<QPushButton>(*window, "cmdInsertLine").click(); }};
    int beeps = 0;
    for (std::size_t way = 0; way < ways.size(); ++way) {
        type("0");
        ASSERT_EQ(editor->text(), "0") << way;
        ways[way]();
        EXPECT_EQ(platform.beeps, ++beeps) << way;
        ASSERT_TRUE(editing()) << way;
        EXPECT_TRUE(editor->hasFocus()) << way;
        EXPECT_EQ(editor->text(), "30") << way;
        EXPECT_EQ(editor->selectedText(), "30") << way; // typing replaces it
        EXPECT_EQ(GridText(2, 1), "30") << way;
        EXPECT_EQ(current(), (Place{2, 1})) << way;
    }
    EXPECT_EQ(grid->model()->rowCount(), 3) << "no line was inserted";
    EXPECT_EQ(PosiDirtyFlag, kClear);
    type("5");
    key(Qt::Key_Return);
    EXPECT_EQ(GridText(2, 1), "5");
    EXPECT_EQ(current(), (Place{2, 2}));
}

TEST_F(GridEditing, ACommandAClickAndTheKeysThatMoveCommit) {
    show(1, 40);
    click(5, 1);
    type("41");
    key(Qt::Key_Down);
    EXPECT_EQ(GridText(5, 1), "41");
    EXPECT_EQ(current(), (Place{6, 1}));
    type("42");
    key(Qt::Key_Up);
    EXPECT_EQ(current(), (Place{5, 1}));
    type("43");
    key(Qt::Key_PageDown);
    EXPECT_GT(current().first, 8);
    EXPECT_EQ(GridText(5, 1) + GridText(6, 1), "4342");
    click(4, 1);
    type("44");
    click(3, 3);
    EXPECT_EQ(GridText(4, 1), "44");
    EXPECT_EQ(current(), (Place{3, 3}));
    type("2");
    clickNumber(4);
    EXPECT_EQ(GridText(3, 3), "2");
    EXPECT_EQ(flgdData().colSel, 20);
    click(2, 1);
    type("45");
    Get<QPushButton>(*window, "cmdInsertLine").click();
    EXPECT_EQ(commands, std::vector{Command::cmdInsertLine});
    EXPECT_EQ(GridText(3, 1), "45"); // the line that was the first one
    EXPECT_FALSE(editing());
}

TEST_F(GridEditing, TabCommitsAndGoesOnThroughTheRow) {
    show(1, 3);
    click(2, 1);
    type("9");
    key(Qt::Key_Tab);
    EXPECT_FALSE(editing());
    EXPECT_EQ(GridText(2, 1), "9");
    EXPECT_EQ(current(), (Place{2, 2})) << "one cell to the right";
    EXPECT_TRUE(grid->hasFocus());
    type("2");
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(GridText(2, 2), "2");
    EXPECT_FALSE(grid->hasFocus());
    EXPECT_FALSE(editor->hasFocus());
}

TEST_F(GridEditing, ClosingTheWindowNeverHangsOnARejectedText) {
    show(1, 3);
    SetGridText(2, 1, "");
    click(2, 1);
    key(Qt::Key_F2);
    window->close();
    EXPECT_FALSE(editing());
    EXPECT_EQ(GridText(2, 1), "");
}

TEST_F(GridEditing, AnEditFillsTheSelectedRowsOfItsColumn) {
    show(1, 6);
    drag(3, 1, 5, 1);
    type("10");
    key(Qt::Key_Return);
    EXPECT_EQ(at(2, 1).data().toString() + at(3, 1).data().toString() + at(4, 1).data().toString() +
                  at(5, 1).data().toString() + at(6, 1).data().toString(),
              "3010101030");
    EXPECT_EQ(current(), (Place{3, 2}));
    drag(5, 2, 4, 3); // upwards, over two columns: the column of the edit alone
    type("2");
    key(Qt::Key_Return);
    EXPECT_EQ(GridText(5, 2) + GridText(4, 2) + GridText(5, 3) + GridText(4, 3), "2200");
}

// ---- moving and selecting ----

TEST_F(GridEditing, TheKeyboardGoesEverywhere) {
    show(1, 999);
    click(2, 1);
    const std::vector<std::tuple<Qt::Key, Qt::KeyboardModifiers, Place>> keys{
        {Qt::Key_End, {}, {2, 20}},
        {Qt::Key_Home, {}, {2, 1}},
        {Qt::Key_End, Qt::ControlModifier, {1000, 20}},
        {Qt::Key_Home, Qt::ControlModifier, {2, 1}},
        {Qt::Key_Right, {}, {2, 2}},
        {Qt::Key_Down, {}, {3, 2}},
        {Qt::Key_Left, {}, {3, 1}},
        {Qt::Key_Up, {}, {2, 1}}};
    for (const auto& [pressed, modifiers, place] : keys) {
        key(pressed, modifiers);
        EXPECT_EQ(current(), place) << pressed;
        EXPECT_TRUE(grid->viewport()->rect().contains(
            grid->visualRect(at(place.first, place.second)).center()))
            << pressed;
    }
    key(Qt::Key_Down, Qt::ShiftModifier);
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(current(), (Place{2, 1}));
    EXPECT_EQ(Place(flgdData().rowSel, flgdData().colSel), (Place{3, 2}));
}

TEST_F(GridEditing, AKeyRightBehindAClickFindsItsCell) {
    show(1, 5);
    clickNumber(3);
    EXPECT_EQ(current(), (Place{3, 1}));
    EXPECT_EQ(flgdData().colSel, 20);
    // No event loop runs between the two.
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, middleOf(4, 4));
    type("12");
    key(Qt::Key_Return);
    EXPECT_EQ(GridText(4, 4), "12");
}

TEST_F(GridEditing, TheCursorThatGoesHomeLeavesTheViewButOtherDataBeginAtTheTop) {
    show(1, 999);
    click(500, 3);
    const int there = grid->verticalScrollBar()->value();
    ASSERT_GT(there, 400);
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Committed);
    EXPECT_EQ(grid->verticalScrollBar()->value(), there);
    grid->verticalScrollBar()->setValue(700); // by hand
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Committed);
    EXPECT_EQ(grid->verticalScrollBar()->value(), 700);
    show(1, 200);
    EXPECT_EQ(grid->verticalScrollBar()->value(), 0);
}

// ---- the clipboard ----

TEST_F(GridEditing, CopyAndPasteKeysStandForTheCommandThatFits) {
    show(1, 6);
    SetGridText(2, 20, "原点");
    click(2, 20);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "原点");
    click(3, 20);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(at(3, 20).data().toString(), QString::fromUtf8("原点"));
    clickNumber(3);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "30\t3\t0\t0\t30\t3\t0\t0\t30\t3\t0\t0\t30\t3\t0\t0\t0\t0\t0\t原点");
    click(5, 1);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(GridText(5, 20), "原点");
    EXPECT_EQ(at(5, 20).data().toString(), QString::fromUtf8("原点"));
    EXPECT_EQ(grid->model()->headerData(3, Qt::Vertical).toString(), "4");
    EXPECT_EQ(commands, (std::vector{Command::mnuEditCellCopy, Command::mnuEditCellPaste,
                                     Command::mnuEditLineCopy, Command::mnuEditLinePaste}));
    drag(2, 1, 3, 2);
    platform.expectBox("Please perform copy after chosing one cell.");
    key(Qt::Key_C, Qt::ControlModifier);
}

TEST_F(GridEditing, WhatASpreadsheetProgramCopiesIsOfferedAndTaken) {
    show(1, 6);
    click(3, 1);
    EXPECT_FALSE(IsEnabled(Command::mnuEditCellPaste));
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(commands.empty());
    copyOutside("11\r\n12\r\n13\r\n");
    EXPECT_TRUE(IsEnabled(Command::mnuEditCellPaste));
    EXPECT_FALSE(IsEnabled(Command::mnuEditLinePaste));
    drag(3, 1, 6, 1);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(at(3, 1).data().toString() + at(4, 1).data().toString() + at(5, 1).data().toString() +
                  at(6, 1).data().toString(),
              "11121330");
    const std::string line = "1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t12\t13\t14\t15\t16\t1\t2\t19\tend";
    copyOutside((line + "\r\n" + line + "\r\n").c_str());
    EXPECT_TRUE(IsEnabled(Command::mnuEditLinePaste));
    click(5, 1);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(GridText(5, 4) + GridText(6, 20), "4end");
    EXPECT_EQ(GridText(7, 20), "");
    EXPECT_EQ(GridText(5, 0), "4");
    copyOutside("");
    EXPECT_FALSE(IsEnabled(Command::mnuEditCellPaste));
}

TEST_F(GridEditing, APasteIntoTheEditBoxGoesInWholeOrNotAtAll) {
    show(1, 3);
    const std::string full(40, 'c');
    const std::vector<std::tuple<int, std::string, std::string>> cases{
        {1, "45\r\n", "45"},  {1, "4x5", "30"},     {4, "1,234", "0"},
        {4, "-5", "0"},       {4, "12345678", "0"}, {20, "a\tb", ""},
        {20, "\"a\"", "'a'"}, {20, full, full},     {20, full + "c", ""}};
    for (const auto& [column, outside, stands] : cases) {
        copyOutside(outside.c_str());
        click(2, column);
        key(Qt::Key_F2);
        key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(editor->text().toStdString(), stands) << outside;
        EXPECT_EQ(flgdData().edit.text, stands) << outside;
        key(Qt::Key_Escape);
    }
    EXPECT_EQ(platform.beeps, 6);
    // A quote that is typed is seen to change, and the cursor stays where it is.
    click(2, 20);
    type("ab");
    key(Qt::Key_Left);
    type("\"");
    EXPECT_EQ(editor->text(), "a'b");
    EXPECT_EQ(editor->cursorPosition(), 2);
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "a'b");
    EXPECT_TRUE(commands.empty());
}

TEST_F(GridEditing, WithoutACurrentCellAKeyOnlyEnters) {
    show(1, 300);
    grid->verticalScrollBar()->setValue(100);
    GridHome();
    for (const Qt::Key nothing : {Qt::Key_7, Qt::Key_F2, Qt::Key_Return, Qt::Key_Delete}) {
        key(nothing);
        EXPECT_FALSE(editing());
        EXPECT_EQ(current(), (Place{0, 0}));
    }
    key(Qt::Key_Down);
    EXPECT_EQ(current(), (Place{102, 1})) << "where the user looks";
    EXPECT_EQ(PosiDirtyFlag, kClear);
}

TEST_F(GridEditing, DeleteEmptiesComments) {
    show(1, 3);
    SetGridText(2, 20, "one");
    SetGridText(3, 20, "two");
    click(2, 1);
    key(Qt::Key_Delete);
    drag(2, 20, 3, 20);
    key(Qt::Key_Delete);
    EXPECT_EQ(GridText(2, 1) + GridText(2, 20) + GridText(3, 20), "30");
    EXPECT_EQ(PosiDirtyFlag, kSet);
}

// ---- everything together ----

TEST_F(GridEditing, WhateverTheUserDoesScreenAndDataAgree) {
    show(1, 30);
    click(2, 1);
    std::mt19937 random(4);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    const std::vector<Qt::Key> keys{Qt::Key_Return, Qt::Key_Return,   Qt::Key_Escape, Qt::Key_F2,
                                    Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left,   Qt::Key_Right,
                                    Qt::Key_Home,   Qt::Key_PageDown, Qt::Key_End,    Qt::Key_Tab,
                                    Qt::Key_0,      Qt::Key_1,        Qt::Key_3,      Qt::Key_9};
    int edits = 0;
    for (int step = 0; step < 1500; ++step) {
        const int rows = static_cast<int>(flgdData().rows.size());
        switch (below(8)) {
        case 0:
            if (rows > kGridHeadRows) {
                click(kGridHeadRows + below(rows - kGridHeadRows), 1 + below(20));
            }
            break;
        case 1:
            if (rows > kGridHeadRows) {
                clickNumber(kGridHeadRows + below(rows - kGridHeadRows));
            }
            break;
        case 2:
            if (below(4) == 0) {
                Get<QPushButton>(*window, "cmdInsertLine").click();
            } else if (below(4) == 0 && rows > 8) {
                Get<QPushButton>(*window, "cmdDeleteLine").click();
            }
            break;
        case 3:
            if (flgdData().row == flgdData().rowSel && flgdData().row >= kGridHeadRows &&
                flgdData().col == flgdData().colSel) {
                key(below(2) == 0 ? Qt::Key_C : Qt::Key_V, Qt::ControlModifier);
            }
            break;
        default: {
            const Qt::Key pressed = keys[static_cast<std::size_t>(below(16))];
            const bool shift = below(6) == 0 && pressed != Qt::Key_Tab;
            key(pressed, shift ? Qt::ShiftModifier : Qt::NoModifier);
            if (pressed == Qt::Key_Tab && !editing()) {
                grid->setFocus();
            }
        }
        }
        edits += editing() ? 1 : 0;
        const FlexGrid& data = flgdData();
        ASSERT_EQ(grid->model()->rowCount() + kGridHeadRows, static_cast<int>(data.rows.size()));
        ASSERT_EQ(GridLast - GridFirst + 1 + kGridHeadRows, static_cast<int>(data.rows.size()));
        ASSERT_GE(data.row, kGridHeadRows) << step;
        ASSERT_LT(data.row, static_cast<int>(data.rows.size()));
        const QItemSelection seen = grid->selectionModel()->selection();
        ASSERT_EQ(seen.size(), 1) << step;
        ASSERT_EQ(seen.first().top() + kGridHeadRows, SelectedRows().first) << step;
        ASSERT_EQ(seen.first().bottom() + kGridHeadRows, SelectedRows().last) << step;
        ASSERT_EQ(seen.first().left() + 1, std::min(data.col, data.colSel)) << step;
        if (editing()) {
            ASSERT_EQ(editor->geometry(), grid->visualRect(at(data.row, data.col))) << step;
        }
    }
    EXPECT_GT(edits, 100);
}

// ---- the input method ----

TEST_F(GridEditing, TheInputMethodIsOfferedInTheCommentAlone) {
    show(1, 3);
    for (const int column : {1, 4, 17, 20, 19}) {
        const bool offered = column == 20;
        click(2, column);
        EXPECT_EQ(grid->testAttribute(Qt::WA_InputMethodEnabled), offered) << column;
        key(Qt::Key_F2);
        EXPECT_EQ(editor->testAttribute(Qt::WA_InputMethodEnabled), offered) << column;
        key(Qt::Key_Escape);
        EXPECT_EQ(grid->testAttribute(Qt::WA_InputMethodEnabled), offered) << column;
        // The rules leave it as it is in the comment and close it everywhere else.
        EXPECT_EQ(platform.imeOpen, false) << column;
    }
    platform.imeOpen = true;
    click(2, 20);
    EXPECT_TRUE(platform.imeOpen);
}

TEST_F(GridEditing, AComposedCommentBeginsInTheGridAndEndsInTheEditBox) {
    show(1, 3);
    SetGridText(2, 20, "old");
    click(2, 20);
    QInputMethodEvent composing(QString::fromUtf8("げん"), {});
    QApplication::sendEvent(grid, &composing);
    ASSERT_TRUE(editing());
    EXPECT_TRUE(grid->hasFocus()); // or the composition would be lost
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("原点"));
    QApplication::sendEvent(grid, &composed);
    EXPECT_TRUE(editor->hasFocus());
    EXPECT_EQ(editor->text(), QString::fromUtf8("原点"));
    key(Qt::Key_Return);
    EXPECT_EQ(GridText(2, 20), "原点");
    click(2, 1);
    QInputMethodEvent digits;
    digits.setCommitString(QString::fromUtf8("５"));
    QApplication::sendEvent(grid, &digits);
    EXPECT_FALSE(editing());
}

} // namespace
} // namespace qdw8::test

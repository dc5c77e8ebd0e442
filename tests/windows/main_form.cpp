#include "main_form.h"

#include "parameter/para_set.h"
#include "position/grid_display.h"
#include "position/grid_editor.h"
#include "program/commands.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace qdw8::test {

MainForm::MainForm() {
    for (AxisDevice& device : DevSetting) {
        device = {" 44", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 20000, 100};
    }
    ThePlatform().TheClipboard = {[] { return QGuiApplication::clipboard()->text().toStdString(); },
                                  [](const std::string& text) {
                                      QGuiApplication::clipboard()->setText(
                                          QString::fromStdString(text));
                                  },
                                  [] { QGuiApplication::clipboard()->clear(); }};
    QGuiApplication::clipboard()->clear();
    RegisterCommands();
    const auto run = [this](Command command) {
        commands.emplace_back(NameOf(command));
        RunCommand(command);
    };
    const auto query = [this] {
        closed += "query ";
        return mayClose;
    };
    window = std::make_unique<frmMain>(
        Commands(), MainWindowEvents{run, query, [this] { closed += "unload "; },
                                     flgdData_RowColChange, OpenDroppedPosiFile});
    Screens().flgdData = [this] { window->showGrid(); };
    Screens().flgdDataFocus = [this] { window->focusGrid(); };
    Screens().flgdDataFinishInput = [this] { return window->finishInput(); };
    Screens().frmMainCommands = [this] { window->showCommands(); };
    Screens().frmMainPanel = [this] { window->showPanel(); };
    Screens().frmSelectPosiNo2 = Screens().frmSelectPosiNo3 = [] {};
    Screens().frmDataShogo = [] { return std::int16_t{0}; };
    Screens().frmSelection = [](const SelectionQuestion&) { return kSelectionCancelled; };
    ThePlatform().CommonDialog1.ShowFile = [](const FileQuestion&) { return std::nullopt; };
    Set_MainFormStr();
    window->loadResources();
    window->showSized(false);
    CMDBTN_Yuko();
    ToolBar_Yuko();
    Menyu_Yuko();
    grid = &Get<QTableView>(*window, "flgdData");
    editor = &Get<QLineEdit>(*window, "flgdDataEdit");
    grid->setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

MainForm::~MainForm() {
    Screens() = {};
}

void MainForm::show(std::int16_t first, std::int16_t last) {
    ClearPosiTable();
    GridFirst = PosiFirst = first;
    GridLast = PosiLast = last;
    GridRowCount = static_cast<std::int16_t>(last - first + 1);
    QdDataHyoji_3();
}

void MainForm::loadParameters() {
    for (const ParaItem& item : ParaItems()) {
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            const int number = static_cast<int>(item.row * kAxes + axis);
            SetParaValue(ParaSet, item, axis, item.low + number % (item.high - item.low + 1));
            ParaSet.parts[axis] = {" 52", axis % 2 == 0 ? "L" : "H",
                                   static_cast<std::int16_t>(100 + 50 * axis)};
            ParaSet.Actuator[axis] = BuildActuator(ParaSet.parts[axis]);
        }
    }
    ParaLoadedFlag = kSet;
}

QModelIndex MainForm::at(int row, int column) const {
    return grid->model()->index(row - kGridHeadRows, column - 1);
}

QPoint MainForm::middleOf(int row, int column) const {
    grid->scrollTo(at(row, column));
    return grid->visualRect(at(row, column)).center();
}

std::string MainForm::shown(int row, int column) const {
    const std::string seen = at(row, column).data().toString().toStdString();
    EXPECT_EQ(seen, GridText(row, column));
    return seen;
}

std::string MainForm::down(int column, int first, int last) const {
    std::string all;
    for (int row = first; row <= last; ++row) {
        all += (row == first ? "" : " ") + shown(row, column);
    }
    return all;
}

void MainForm::click(int row, int column) {
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, middleOf(row, column));
}

void MainForm::doubleClick(int row, int column) {
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, middleOf(row, column));
}

void MainForm::drag(int row, int column, int toRow, int toColumn) {
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, middleOf(row, column));
    QTest::mouseMove(grid->viewport(), middleOf(toRow, toColumn));
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, middleOf(toRow, toColumn));
    QApplication::processEvents();
}

void MainForm::clickNumber(int row) {
    QHeaderView& numbers = *grid->verticalHeader();
    const int section = row - kGridHeadRows;
    const int y = numbers.sectionViewportPosition(section); // its very edge is the row, too
    QTest::mouseClick(numbers.viewport(), Qt::LeftButton, {}, QPoint(5, y));
}

bool MainForm::editing() const {
    EXPECT_EQ(editor->isVisible(), flgdData().edit.open);
    return editor->isVisible();
}

void MainForm::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void MainForm::type(const char* text) {
    for (const char character : std::string(text)) {
        QTest::keyClick(QApplication::focusWidget(), character);
    }
}

void MainForm::copyOutside(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

std::string MainForm::clipboard() {
    return QGuiApplication::clipboard()->text().toStdString();
}

void MainForm::press(const QString& name) {
    if (auto* button = window->findChild<QPushButton*>(name)) {
        QTest::mouseClick(button, Qt::LeftButton);
    } else {
        Get<QAction>(*window, name).trigger();
    }
}

bool MainForm::isOn(const QString& name) const {
    if (const auto* button = window->findChild<QPushButton*>(name)) {
        return button->isEnabled();
    }
    return Get<QAction>(*window, name).isEnabled();
}

QString MainForm::text(const char* label) const {
    return Get<QLabel>(*window, label).text();
}

MainForm::Place MainForm::place() {
    const FlexGrid& data = flgdData();
    return {data.row, data.col, data.rowSel, data.colSel};
}

} // namespace qdw8::test

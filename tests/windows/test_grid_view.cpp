#include "windows/main/grid_view.h"

#include "app/screens.h"
#include "window_fixture.h"
#include "windows/controls/group_header.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QTest>
#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace qdw8::test {
namespace {

using Cells = std::array<int, 4>; ///< current row and column, other end

class GridViewTest : public WindowTest {
protected:
    GridViewTest()
        : view({[this](int row, int column, int rowSel, int columnSel) {
                    SelectCells(row, column, rowSel, columnSel);
                    moves.push_back({row, column, rowSel, columnSel});
                },
                {}}) {
        Screens().flgdData = [this] { view.refresh(); };
        view.loadResources();
        view.resize(1000, 500);
        view.show();
    }

    static void fill(int positions) {
        FreezeGrid();
        SetGridRows(positions + kGridHeadRows);
        for (int row = kGridHeadRows; row < positions + kGridHeadRows; ++row) {
            SetGridText(row, 0, std::to_string(row - 1));
            for (int column = 1; column < kGridColumns; ++column) {
                SetGridText(row, column, std::to_string(row) + "/" + std::to_string(column));
            }
        }
        ThawGrid();
    }

    QModelIndex at(int gridRow, int gridColumn) const {
        return view.model()->index(gridRow - kGridHeadRows, gridColumn - 1);
    }

    QString shown(int gridRow, int gridColumn) const {
        return at(gridRow, gridColumn).data().toString();
    }

    QPoint middleOf(int gridRow, int gridColumn) const {
        return view.visualRect(at(gridRow, gridColumn)).center();
    }

    QSet<std::pair<int, int>> selected() const {
        QSet<std::pair<int, int>> cells;
        for (const QModelIndex& index : view.selectionModel()->selectedIndexes()) {
            cells.insert({index.row() + kGridHeadRows, index.column() + 1});
        }
        return cells;
    }

    GridView view;
    std::vector<Cells> moves;
};

TEST_F(GridViewTest, HeadsInTwoRows) {
    SetPanelText(&MainPanel::axisHeader, 1, "AXIS 2:QD- 44L-100E_");
    SetPanelText(&MainPanel::posiHeader, 1, "Posi2(mm)");
    view.refreshHeads();
    const QAbstractItemModel& model = *view.model();
    const auto head = [&model](int gridColumn, int role) {
        return model.headerData(gridColumn - 1, Qt::Horizontal, role).toString();
    };
    EXPECT_EQ(head(1, GroupHeader::kGroupRole), "AXIS 1");
    EXPECT_EQ(head(4, GroupHeader::kGroupRole), "AXIS 1");
    EXPECT_EQ(head(5, GroupHeader::kGroupRole), "AXIS 2:QD- 44L-100E_");
    EXPECT_EQ(head(17, GroupHeader::kGroupRole), "Common");
    const std::vector<std::pair<int, const char*>> labels{
        {1, "VEL"},   {2, "ACC"},  {3, "WAY"},  {8, "Posi2(mm)"}, {13, "VEL"},
        {17, "ITPL"}, {18, "OUT"}, {19, "S/M"}, {20, "COMMENT"}};
    for (const auto& [column, label] : labels) {
        EXPECT_EQ(head(column, Qt::DisplayRole), label) << column;
    }
    EXPECT_EQ(view.model()->columnCount(), 20);
    EXPECT_GE(view.horizontalHeader()->height(), 2 * view.fontMetrics().height());
}

TEST_F(GridViewTest, AHeadThatNamesItsActuatorIsNotCutOff) {
    SetPanelText(&MainPanel::axisHeader, 2, "AXIS 3:QD-J52H-300E_(Old)");
    view.refreshHeads();
    int width = 0;
    for (int column = 8; column < 12; ++column) {
        width += view.columnWidth(column);
    }
    EXPECT_GE(width, view.fontMetrics().horizontalAdvance("AXIS 3:QD-J52H-300E_(Old)"));
}

TEST_F(GridViewTest, ShowsTheCellsOfTheUnit) {
    EXPECT_EQ(view.model()->rowCount(), 0);
    fill(3);
    EXPECT_EQ(view.model()->rowCount(), 3);
    EXPECT_EQ(shown(2, 1), "2/1");
    EXPECT_EQ(shown(4, 20), "4/20");
    EXPECT_EQ(view.model()->headerData(2, Qt::Vertical).toString(), "3");
    SetGridText(4, 20, "changed");
    EXPECT_EQ(shown(4, 20), "changed");
    SetGridRows(kGridHeadRows);
    EXPECT_EQ(view.model()->rowCount(), 0);
}

TEST_F(GridViewTest, AFrozenGridIsNotShown) {
    fill(5);
    FreezeGrid();
    SetGridRows(3);
    view.refresh();
    EXPECT_EQ(view.model()->rowCount(), 5);
    EXPECT_EQ(shown(6, 1), ""); // a repaint of a row that is gone by now
    view.grab();
    ThawGrid();
    EXPECT_EQ(view.model()->rowCount(), 1);
}

TEST_F(GridViewTest, FixedColoursHaveDarkTextOnThem) {
    QPalette night = view.palette();
    night.setColor(QPalette::Base, Qt::black);
    night.setColor(QPalette::Text, Qt::white);
    view.setPalette(night);
    fill(1);
    SetGridColour(2, 5, CellColour::Band);
    SetGridColour(2, 9, CellColour::OffAxis);
    EXPECT_EQ(PaintedColour(view, at(2, 1)), QColor(Qt::black)); // the palette's
    EXPECT_EQ(PaintedColour(view, at(2, 5)), QColor(0xFF, 0xFF, 0xC0));
    EXPECT_EQ(PaintedColour(view, at(2, 9)), QColor(0xE0, 0xE0, 0xE0));
    const QImage picture = view.viewport()->grab().toImage();
    for (const int column : {1, 5, 9}) {
        const QRect cell = view.visualRect(at(2, column));
        int darkest = 255;
        int lightest = 0;
        for (int x = cell.left() + 2; x < cell.right() - 2; ++x) {
            for (int y = cell.top() + 2; y < cell.bottom() - 2; ++y) {
                darkest = std::min(darkest, picture.pixelColor(x, y).lightness());
                lightest = std::max(lightest, picture.pixelColor(x, y).lightness());
            }
        }
        EXPECT_LT(darkest, 80) << column;
        EXPECT_GT(lightest, 175) << column;
    }
}

TEST_F(GridViewTest, ClicksAndKeysAreHandedBack) {
    fill(6);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middleOf(3, 4));
    QApplication::processEvents();
    QTest::keyClick(&view, Qt::Key_Right);
    QApplication::processEvents();
    QTest::keyClick(&view, Qt::Key_Down);
    QApplication::processEvents();
    EXPECT_EQ(moves, (std::vector<Cells>{{3, 4, 3, 4}, {3, 5, 3, 5}, {4, 5, 4, 5}}));
    EXPECT_EQ(flgdData().row, 4);
}

TEST_F(GridViewTest, ABlockCountsFromTheCellWhereItBegan) {
    fill(6);
    const auto drag = [this](QPoint from, QPoint to) {
        moves.clear();
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, from);
        QTest::mouseMove(view.viewport(), to);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, to);
        QApplication::processEvents();
    };
    drag(middleOf(3, 4), middleOf(5, 6));
    ASSERT_FALSE(moves.empty());
    EXPECT_EQ(moves.back(), (Cells{3, 4, 5, 6}));
    drag(middleOf(6, 7), middleOf(4, 7));
    ASSERT_FALSE(moves.empty());
    EXPECT_EQ(moves.back(), (Cells{6, 7, 4, 7}));
}

TEST_F(GridViewTest, APositionNumberSelectsTheWholeLine) {
    fill(6);
    QHeaderView& numbers = *view.verticalHeader();
    const int y = numbers.sectionViewportPosition(3) + numbers.sectionSize(3) / 2;
    QTest::mouseClick(numbers.viewport(), Qt::LeftButton, {}, QPoint(5, y));
    QApplication::processEvents();
    EXPECT_EQ(moves, (std::vector<Cells>{{5, 1, 5, 20}}));
}

TEST_F(GridViewTest, ShowsTheSelectionOfTheUnitWithoutHandingItBack) {
    fill(6);
    SelectCells(3, 2, 5, 3);
    view.refresh();
    EXPECT_EQ(selected(),
              (QSet<std::pair<int, int>>{{3, 2}, {3, 3}, {4, 2}, {4, 3}, {5, 2}, {5, 3}}));
    GridHome();
    QApplication::processEvents();
    EXPECT_TRUE(selected().isEmpty());
    EXPECT_TRUE(moves.empty());
}

TEST_F(GridViewTest, ALockedGridTakesNothing) {
    fill(6);
    SelectCells(3, 2, 3, 2);
    std::optional<GridLock> lock(std::in_place);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middleOf(5, 5));
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::mouseClick(view.verticalHeader()->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
    QApplication::processEvents();
    EXPECT_TRUE(moves.empty());
    lock.reset();
    EXPECT_EQ(selected(), (QSet<std::pair<int, int>>{{3, 2}}));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middleOf(5, 5));
    QApplication::processEvents();
    EXPECT_EQ(moves, (std::vector<Cells>{{5, 5, 5, 5}}));
}

} // namespace
} // namespace qdw8::test

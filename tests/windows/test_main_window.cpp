#include "main_form.h"

#include "app/main_panel.h"
#include "position/posi_columns.h"
#include "program/commands.h"

#include <QLabel>
#include <QPushButton>

namespace qdw8::test {
namespace {

class MainWindow : public MainForm {
protected:
    void expectStates(const char* when) {
        for (std::size_t index = 0; index < kCommands; ++index) {
            const auto command = static_cast<Command>(index);
            const std::string name(NameOf(command));
            EXPECT_EQ(isOn(QString::fromStdString(name)), IsEnabled(command)) << name << when;
        }
    }
    bool isLit(const char* lamp) { return Get<QLabel>(*window, lamp).isVisible(); }
    QImage grey(const char* lamp) {
        return Get<QLabel>(*window, lamp)
            .grab()
            .toImage()
            .convertToFormat(QImage::Format_Grayscale8);
    }
};

TEST_F(MainWindow, ShowsTheCommandStates) {
    expectStates(" with no selection");
    show(1, 3);
    click(2, 1);
    expectStates(" with a selection");
    EXPECT_TRUE(isOn("LineCopy"));
    const CommandsAway away;
    { const CommandsAway inner; }
    expectStates(" in a batch");
    EXPECT_FALSE(isOn("mnuFileNew"));
    // A click that comes before the window has looked at the states again.
    Screens().frmMainCommands = {};
    SetEnabled(Command::cmdReset, true);
    Get<QPushButton>(*window, "cmdReset").setEnabled(true);
    SetEnabled(Command::cmdReset, false);
    press("cmdReset");
    EXPECT_TRUE(commands.empty());
}

TEST_F(MainWindow, ShowsThePanel) {
    const std::vector<std::tuple<bool MainPanel::*, const char*, const char*, QString>> lamps{
        {&MainPanel::imgPortGreen, "imgPortGreen", "imgPortLed", "RS-232C: ON"},
        {&MainPanel::imgGreenLedOnline, "imgGreenLedOnline", "imgWhiteOnline", "ONLINE: ON"},
        {&MainPanel::imgHomeGreen, "imgHomeGreen", "imgHomeWhite", "Home: ON"},
        {&MainPanel::imgAlarmLed, "imgAlarmLed", "imgAlarmWhite", "ALARM: ON"}};
    for (const auto& [field, coloured, white, on] : lamps) {
        EXPECT_FALSE(isLit(coloured)) << coloured;
        SetPanel(field, true);
        EXPECT_TRUE(isLit(coloured)) << coloured;
        EXPECT_EQ(Get<QLabel>(*window, coloured).accessibleName(), on);
        EXPECT_NE(grey(coloured), grey(white)) << "lamps differ in shape too";
    }
    EXPECT_NE(grey("imgPortGreen"), grey("imgAlarmLed"));
    EXPECT_EQ(text("sbStatusBar(1)"), "Online");
    SetPanelLine({LinePanel::Sign::Bad, "COM1: /dev/ttyS0", false, "It is not there."});
    EXPECT_EQ(Get<QWidget>(*window, "FrameLine").accessibleName(),
              "RS-232C COM1: /dev/ttyS0, port closed - It is not there.");
    EXPECT_TRUE(isLit("imgLine(2)") && !isLit("imgLine(0)"));
    Get<QWidget>(*window, "FrameLine").setFocus();
    SetPanelLine({LinePanel::Sign::Bad, "COM2: /dev/ttyS1", false, "It is not there, either."});
    EXPECT_TRUE(Get<QWidget>(*window, "FrameLine").accessibleDescription().contains("either"));
    SetPanel(&MainPanel::lblAlarmNo, "14");
    SetPanel(&MainPanel::lblErrorComment, "No Error");
    SetPanel(&MainPanel::lblFileName, "Inside of C/T");
    SetPanelText(&MainPanel::lblDeviceType, 3, "QD- 44L-100E_");
    SetPanelScale("<1>1mm = 200Pulse", "<1>1Pulse= 0.005mm");
    EXPECT_EQ(text("lblAlarmNo") + text("lblErrorComment") + text("lblFileName"),
              "14No ErrorInside of C/T");
    EXPECT_EQ(Get<QLabel>(*window, "lblFileName").accessibleName(), "File Name Inside of C/T");
    EXPECT_EQ(text("lblDeviceType(0)") + text("lblDeviceType(3)"), "QD- 44L-100E_");
    EXPECT_EQ(text("sbStatusBar(2)") + text("sbStatusBar(3)"),
              "<1>1mm = 200Pulse<1>1Pulse= 0.005mm");
}

TEST_F(MainWindow, NamesTheFileInItsTitle) {
    EXPECT_EQ(window->windowTitle(), "QD-W8[*]");
    ShowPosiFileName("New Data");
    EXPECT_EQ(window->windowTitle(), "New Data[*] - QD-W8");
    TakePosiFile("/tmp/a[*].qdd");
    window->showCommands();
    EXPECT_EQ(window->windowTitle(), "a[*][*].qdd[*] - QD-W8");
}

TEST_F(MainWindow, ColoursAreTheToldOnesAndAHeadIsNotCutOff) {
    QPalette night = grid->palette();
    night.setColor(QPalette::Base, Qt::black);
    night.setColor(QPalette::Text, Qt::white);
    grid->setPalette(night);
    show(1, 1);
    EXPECT_EQ(PaintedColour(*grid, at(2, 1)), QColor(Qt::black)); // the palette's
    SetGridColour(2, 9, CellColour::OffAxis);
    const std::vector<std::pair<int, QColor>> fixed{{5, QColor(0xFF, 0xFF, 0xC0)},
                                                    {9, QColor(0xE0, 0xE0, 0xE0)}};
    for (const auto& [column, colour] : fixed) {
        EXPECT_EQ(PaintedColour(*grid, at(2, column)), colour);
    }
    const QString head = QStringLiteral("AXIS 3:QD-J52H-300E_(Old)");
    SetPanelText(&MainPanel::axisHeader, 2, head.toStdString());
    int width = 0;
    for (int column = 8; column < 12; ++column) {
        width += grid->columnWidth(column);
    }
    EXPECT_GE(width, grid->fontMetrics().horizontalAdvance(head));
}

TEST_F(MainWindow, ACellThatChangedInAnyWayIsRepaintedAndNoOther) {
    show(1, 3);
    QStringList told;
    QObject::connect(
        grid->model(), &QAbstractItemModel::dataChanged, [&told](auto& from, auto& to) {
            EXPECT_EQ(from, to);
            told << QStringLiteral("%1 %2").arg(from.row() + kGridHeadRows).arg(from.column() + 1);
        });
    QObject::connect(grid->model(), &QAbstractItemModel::headerDataChanged,
                     [&told] { told << QStringLiteral("numbers"); });
    SetGridText(2, 0, "7");
    SetGridText(2, 1, "31");
    SetGridColour(3, 2, CellColour::OffAxis);
    SetGridBad(4, 20, true);
    SetGridText(3, 1, GridText(3, 1));
    EXPECT_EQ(told.join(QLatin1Char(',')), "numbers,2 1,3 2,4 20");
}

TEST_F(MainWindow, AFrozenGridIsNotShown) {
    show(1, 5);
    FreezeGrid();
    SetGridRows(3);
    SetGridText(2, 0, "7");
    window->showGrid();
    EXPECT_EQ(grid->model()->rowCount(), 5);
    EXPECT_EQ(at(6, 1).data(), ""); // a repaint of a row that is gone by now
    grid->grab();
    ThawGrid();
    EXPECT_EQ(grid->model()->rowCount(), 1);
    EXPECT_EQ(grid->model()->headerData(0, Qt::Vertical), "7") << "numbers are repainted";
}

} // namespace
} // namespace qdw8::test

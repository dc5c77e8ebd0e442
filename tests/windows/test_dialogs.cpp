#include "app/string_table.h"
#include "position/posi_reader.h"
#include "position/posi_verify.h"
#include "window_fixture.h"
#include "windows/controls/group_header.h"
#include "windows/dialogs/frmDataShogo.h"
#include "windows/dialogs/frmProcessing.h"
#include "windows/dialogs/frmSelectPosiNo2.h"
#include "windows/dialogs/frmSelectPosiNo3.h"
#include "windows/dialogs/frmSelectPosiNo4.h"
#include "windows/dialogs/frmSelection.h"
#include "windows/dialogs/frmSplash.h"
#include "windows/dialogs/frmSyogoKekka.h"
#include "windows/dialogs/frmTrance.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <functional>

namespace qdw8::test {
namespace {

class DialogTest : public WindowTest {
protected:
    DialogTest() {
        modalIsUp.setSingleShot(true);
        QObject::connect(&modalIsUp, &QTimer::timeout, [this] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            script(*dialog);
        });
    }

    /// Runs the script once the next modal dialog is up.
    void whenUp(std::function<void(QWidget&)> todo) {
        script = std::move(todo);
        modalIsUp.start();
    }

    static void click(QWidget& dialog, const QString& name) {
        QTest::mouseClick(&Get<QAbstractButton>(dialog, name), Qt::LeftButton);
    }

    static QString boxText(const QWidget& dialog, const QString& name) {
        return Get<QLineEdit>(dialog, name).text();
    }

    static SelectionQuestion question(bool mustAnswer = false) {
        return {ResText(471), ResText(44), {ResText(45), ResText(46), ResText(47)}, mustAnswer};
    }

    QTimer modalIsUp;
    std::function<void(QWidget&)> script;
};

// ---- frmSelection ----

TEST_F(DialogTest, SelectionGivesTheChoice) {
    for (const int choice : {0, 1, 2}) {
        whenUp([choice](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Select");
            EXPECT_TRUE(Get<QRadioButton>(dialog, "optSelectKomoku(0)").isChecked());
            Get<QRadioButton>(dialog, QStringLiteral("optSelectKomoku(%1)").arg(choice)).click();
            click(dialog, "cmdSelectOk");
        });
        EXPECT_EQ(AskSelection(nullptr, question()), choice);
    }
}

TEST_F(DialogTest, SelectionCanBeCancelledInEveryWay) {
    const std::vector<std::function<void(QWidget&)>> ways{
        [](QWidget& dialog) { click(dialog, "cmdSelectCancel"); },
        [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QWidget& dialog) { dialog.close(); }};
    for (const auto& way : ways) {
        whenUp(way);
        EXPECT_EQ(AskSelection(nullptr, question()), kSelectionCancelled);
    }
}

TEST_F(DialogTest, SelectionThatMustBeAnsweredStays) {
    whenUp([this](QWidget& dialog) {
        const auto& cancel = Get<QPushButton>(dialog, "cmdSelectCancel");
        EXPECT_FALSE(cancel.isVisible());
        EXPECT_FALSE(cancel.isEnabled());
        for (int i = 0; i < 2; ++i) {
            platform.expectBox("Finish QD-W8.", BoxButtons::OkCancel, BoxAnswer::Cancel);
        }
        QTest::keyClick(&dialog, Qt::Key_Escape);
        dialog.close();
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(AskSelection(nullptr, question(true)), 0);
}

TEST_F(DialogTest, LongChoicesAreBrokenAndLoseNothing) {
    for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{0}}) {
        speak(base);
        frmSelection dialog(question());
        dialog.show();
        EXPECT_LT(dialog.width(), 800);
        const auto& option = Get<QRadioButton>(dialog, "optSelectKomoku(1)");
        EXPECT_TRUE(option.text().contains('\n'));
        const QString joint = base == 0 ? QString() : QStringLiteral(" ");
        EXPECT_EQ(option.text().replace('\n', joint).toStdString(), ResText(46));
    }
}

TEST_F(DialogTest, TwoChoicesAndAnAmpersand) {
    frmSelection dialog({"A", "B", {"this & that", "other"}, false});
    EXPECT_EQ(Get<QRadioButton>(dialog, "optSelectKomoku(0)").text(), "this && that");
    EXPECT_EQ(dialog.findChild<QRadioButton*>("optSelectKomoku(2)"), nullptr);
}

// ---- frmTrance, frmProcessing ----

TEST_F(DialogTest, TranceShowsTheTransfer) {
    frmTrance dialog;
    const auto& bar = Get<QProgressBar>(dialog, "prgBar1");
    const auto& cancel = Get<QPushButton>(dialog, "cmdTranceCancel");
    TransferRunFlag = kSet;
    ShowTrance(1000, ResText(368));
    dialog.showState();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(dialog.isModal());
    EXPECT_EQ(dialog.windowTitle(), "QD-W8 Communicating,now...");
    EXPECT_EQ(Get<QLabel>(dialog, "lblSetumei").text(), "Reading data from controller...");
    EXPECT_EQ(bar.maximum(), 1000);
    EXPECT_EQ(bar.value(), 0);
    EXPECT_TRUE(cancel.isVisible());

    for (const auto& way : {+[](QWidget& open) { click(open, "cmdTranceCancel"); },
                            +[](QWidget& open) { QTest::keyClick(&open, Qt::Key_Escape); }}) {
        TransferCancelFlag = kClear;
        way(dialog);
        EXPECT_EQ(TransferCancelFlag, kSet);
        EXPECT_TRUE(dialog.isVisible());
    }

    UnloadTrance();
    dialog.showState();
    EXPECT_FALSE(dialog.isVisible());

    TransferRunFlag = kClear;
    ShowTrance(4, ResText(378));
    dialog.showState();
    EXPECT_FALSE(cancel.isVisible());
    EXPECT_EQ(bar.maximum(), 4);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(DialogTest, TranceIsPaintedSeldomButEndsRight) {
    frmTrance dialog;
    const auto& bar = Get<QProgressBar>(dialog, "prgBar1");
    int changes = 0;
    QObject::connect(&bar, &QProgressBar::valueChanged, [&changes] { ++changes; });
    ShowTrance(100000, "");
    dialog.showState();
    for (int row = 1; row <= 50000; ++row) {
        SetTranceValue(row);
        dialog.showState();
    }
    EXPECT_LT(changes, 25000); // far from every row
    // What was held back comes by itself.
    EXPECT_TRUE(QTest::qWaitFor([&bar] { return bar.value() == 50000; }));
    SetTranceValue(99999);
    dialog.showState();
    SetTranceValue(100000);
    dialog.showState();
    EXPECT_EQ(bar.value(), 100000); // the end at once
}

TEST_F(DialogTest, ProcessingFollowsItsFlagAndCantBeClosed) {
    frmProcessing dialog;
    ProcessingShownFlag = kSet;
    speak(0);
    dialog.showState();
    EXPECT_EQ(dialog.windowTitle().toStdString(), ResText(1901));
    EXPECT_EQ(Get<QLabel>(dialog, "lblProcessing").text().toStdString(), ResText(1902));
    dialog.close();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    ProcessingShownFlag = kClear;
    dialog.showState();
    EXPECT_FALSE(dialog.isVisible());
}

// ---- range dialogs ----

TEST_F(DialogTest, BoxesTakeThreeDigitsAndNothingElse) {
    GridFirst = 1;
    GridLast = 15;
    frmSelectPosiNo3 dialog;
    dialog.show();
    auto& start = Get<QLineEdit>(dialog, "txtStartPosiNo");
    auto& end = Get<QLineEdit>(dialog, "txtEndPosiNo");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_TRUE(start.hasFocus());
    EXPECT_EQ(start.selectedText(), "1"); // typing replaces it
    QTest::keyClicks(&start, "a-.4 x5");
    QTest::sendKeyEvent(QTest::Click, &start, Qt::Key_unknown, QString::fromUtf8("６"), {});
    EXPECT_EQ(start.text(), "45");
    QTest::keyClicks(&start, "6");
    QTest::keyClicks(&start, "7"); // the box is full
    EXPECT_EQ(start.text(), "456");
    start.selectAll();
    QTest::keyClicks(&start, "8");
    EXPECT_EQ(start.text(), "8");
    QTest::keyClick(&start, Qt::Key_Backspace);
    EXPECT_EQ(start.text(), "");
    QApplication::clipboard()->setText("123");
    QTest::keyClick(&start, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(start.text(), "");
    QTest::keyClick(&start, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(end.hasFocus());
    EXPECT_EQ(end.selectedText(), "15");
    QTest::keyClick(&end, Qt::Key_Enter);
    EXPECT_TRUE(Get<QPushButton>(dialog, "cmdOk").hasFocus());
}

TEST_F(DialogTest, ReadRange) {
    frmSelectPosiNo2 dialog;
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), "Data Renge Setting");
    EXPECT_EQ(boxText(dialog, "txtStartPosiNo"), "1");
    EXPECT_EQ(boxText(dialog, "txtEndPosiNo"), "15");
    const std::vector<const char*> dependent{"txtStartPosiNo", "txtEndPosiNo", "lblStartPosiMoji",
                                             "lblEndPosiMoji"};
    const auto expectEnabled = [&](bool enabled) {
        for (const char* name : dependent) {
            EXPECT_EQ(Get<QWidget>(dialog, name).isEnabled(), enabled) << name;
        }
        const auto& box = Get<QLineEdit>(dialog, "txtStartPosiNo");
        EXPECT_EQ(box.palette().color(QPalette::Base),
                  dialog.palette().color(enabled ? QPalette::Base : QPalette::Window));
    };
    expectEnabled(false);
    Get<QRadioButton>(dialog, "optSelectPosiNo(1)").click();
    expectEnabled(true);

    Get<QLineEdit>(dialog, "txtStartPosiNo").setText("20");
    platform.expectBox("Invalid value in Position No.");
    click(dialog, "cmdOk");
    EXPECT_TRUE(dialog.isVisible());
    Get<QLineEdit>(dialog, "txtEndPosiNo").setText("30");
    click(dialog, "cmdOk");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(PosiFirst, 20);
    EXPECT_EQ(PosiLast, 30);
    EXPECT_EQ(RangeCancelFlag, kClear);

    dialog.show();
    Get<QRadioButton>(dialog, "optSelectPosiNo(0)").click();
    expectEnabled(false);
    click(dialog, "cmdOk");
    EXPECT_EQ(PosiFirst, 1);
    EXPECT_EQ(PosiLast, 999);
}

TEST_F(DialogTest, GridRange) {
    GridFirst = 5;
    GridLast = 10;
    frmSelectPosiNo3 dialog;
    dialog.show();
    EXPECT_EQ(boxText(dialog, "txtStartPosiNo"), "5");
    EXPECT_EQ(boxText(dialog, "txtEndPosiNo"), "10");
    Get<QLineEdit>(dialog, "txtStartPosiNo").setText("4");
    platform.expectBox("Invalid value in Position No.");
    click(dialog, "cmdOk");
    EXPECT_TRUE(dialog.isVisible());
    Get<QLineEdit>(dialog, "txtStartPosiNo").setText("6");
    click(dialog, "cmdOk");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(PosiFirst, 6);
    EXPECT_EQ(PosiLast, 10);
}

TEST_F(DialogTest, VerifyRangeShowsBothSidesAndWhatTheyHaveInCommon) {
    FileFirst = 5;
    FileLast = 20;
    GridFirst = 1;
    GridLast = 10;
    ASSERT_EQ(CompareFileRange(), 0);
    PosiFirst = 1;
    PosiLast = 10;
    frmSelectPosiNo4 dialog(true);
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), "Data Renge Setting");
    const auto label = [&dialog](const char* name) { return Get<QLabel>(dialog, name).text(); };
    EXPECT_EQ(label("lblFileMoji"), "File:");
    EXPECT_EQ(label("lblFileStartNo") + "-" + label("lblFileEndNo"), "5-20");
    EXPECT_EQ(label("lblPcMoji"), "PC-Soft:");
    EXPECT_EQ(label("lblPcStartNo") + "-" + label("lblPcEndNo"), "1-10");
    EXPECT_EQ(label("lblRangeMoji"), "Range:");
    EXPECT_FALSE(Get<QLabel>(dialog, "lblSyogoHuka").isVisible());
    EXPECT_TRUE(Get<QWidget>(dialog, "PictureVerifyRange").isVisible());
    auto& start = Get<QLineEdit>(dialog, "txtStartPosiNo");
    auto& end = Get<QLineEdit>(dialog, "txtEndPosiNo");
    EXPECT_EQ(start.text() + "-" + end.text(), "5-10");
    EXPECT_EQ(start.mapTo(&dialog, QPoint()).x(), Get<QLabel>(dialog, "lblFileStartNo").x());

    struct Range {
        const char* start;
        const char* end;
        bool box;
        int first; ///< what is set
        int last;
    };
    const std::vector<Range> refused{
        {"8", "6", false, 1, 10}, // a start behind the end says nothing
        {"4", "9", true, 1, 9},   // the number that is right is set all the same
        {"6", "11", true, 6, 9},
        {"", "7", true, 6, 7},
    };
    for (const Range& one : refused) {
        start.setText(one.start);
        end.setText(one.end);
        if (one.box) {
            platform.expectBox("Invalid value in Position No.");
        }
        click(dialog, "cmdOk");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(PosiFirst, one.first) << one.start;
        EXPECT_EQ(PosiLast, one.last) << one.end;
    }
    start.setText("7");
    end.setText("7");
    click(dialog, "cmdOk");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(PosiFirst, 7);
    EXPECT_EQ(PosiLast, 7);
    EXPECT_EQ(RangeCancelFlag, kClear);
}

TEST_F(DialogTest, VerifyRangeWithoutAnythingInCommonOnlySaysSo) {
    FileFirst = 11;
    FileLast = 20;
    GridFirst = PosiFirst = 1;
    GridLast = PosiLast = 10;
    ASSERT_EQ(CompareFileRange(), 1);
    whenUp([](QWidget& dialog) {
        EXPECT_EQ(Get<QLabel>(dialog, "lblSyogoHuka").text(),
                  "There is no range that can be collated with bettween the data indicated in "
                  "display and the data read file.");
        EXPECT_TRUE(Get<QLabel>(dialog, "lblSyogoHuka").isVisible());
        EXPECT_FALSE(Get<QWidget>(dialog, "PictureVerifyRange").isVisible());
        EXPECT_EQ(Get<QLabel>(dialog, "lblFileStartNo").text(), "11");
        QTest::keyClick(&dialog, Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
    ShowSelectPosiNo4(nullptr, false);
    EXPECT_EQ(PosiFirst, 1);
    EXPECT_EQ(PosiLast, 10);
    EXPECT_EQ(RangeCancelFlag, kClear);
}

// ---- frmDataShogo ----

TEST_F(DialogTest, DataShogoAsksForTheOtherSide) {
    const std::vector<std::pair<std::function<void(QWidget&)>, int>> ways{
        {[](QWidget& dialog) { click(dialog, "cmdFileDataShogo"); }, 1},
        {[](QWidget& dialog) { click(dialog, "cmdCtDataShogo"); }, 2},
        {[](QWidget& dialog) { click(dialog, "cmdCancelOfShogo"); }, 0},
        {[](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }, 0},
        {[](QWidget& dialog) { dialog.close(); }, 0},
        {[](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); }, 1}};
    for (const auto& [way, result] : ways) {
        whenUp([&way](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Select Position Data to reference");
            EXPECT_EQ(Get<QLabel>(dialog, "lblDataShogo").text(),
                      "Please select Position Data for verification.");
            EXPECT_EQ(Get<QPushButton>(dialog, "cmdFileDataShogo").text(), "Position Data file");
            EXPECT_EQ(Get<QPushButton>(dialog, "cmdCtDataShogo").text(), "Inside of C/T");
            way(dialog);
        });
        EXPECT_EQ(AskDataShogo(nullptr), result);
    }
}

TEST_F(DialogTest, LeavingARangeDialogSetsTheCancelFlag) {
    const std::vector<std::function<void(QWidget&)>> ways{
        [](QWidget& dialog) { click(dialog, "cmdCancel"); },
        [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QWidget& dialog) { dialog.close(); }};
    const std::vector<void (*)(QWidget*)> dialogs{
        ShowSelectPosiNo2, ShowSelectPosiNo3,
        [](QWidget* parent) { ShowSelectPosiNo4(parent, true); },
        [](QWidget* parent) { ShowSelectPosiNo4(parent, false); }};
    for (const auto show : dialogs) {
        for (const auto& way : ways) {
            RangeCancelFlag = kSet; // left over; opening clears it
            whenUp([&way](QWidget& dialog) {
                EXPECT_EQ(RangeCancelFlag, kClear);
                way(dialog);
            });
            show(nullptr);
            EXPECT_EQ(RangeCancelFlag, kSet);
        }
    }
}

// ---- frmSyogoKekka ----

TEST_F(DialogTest, ResultWindow) {
    AxisOff[1] = kSet;
    PosiFirst = 3;
    MarkPosiCell(0, 2); // before the range
    MarkPosiCell(3, 3);
    MarkPosiCell(18, 999);
    frmSyogoKekka dialog;
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), "The result of a position data check");
    EXPECT_EQ(Get<QLabel>(dialog, "lblSyogoKekka").text(),
              "Invalid value in some data. It is as follows for details.");
    const auto& table = Get<QTableView>(dialog, "flgdSyogoKekka");
    const QAbstractItemModel& model = *table.model();
    ASSERT_EQ(model.rowCount(), 2);
    ASSERT_EQ(model.columnCount(), 20);
    const QColor red(0xFF, 0x80, 0x80);
    for (int column = 0; column < 20; ++column) {
        const QModelIndex first = model.index(0, column);
        const QModelIndex second = model.index(1, column);
        EXPECT_EQ(first.data(), column == 0 ? "3" : column == 4 ? "X" : "O") << column;
        EXPECT_EQ(second.data(), column == 0 ? "999" : column == 19 ? "X" : "O") << column;
        EXPECT_EQ(first.data(Qt::BackgroundRole).value<QColor>() == red, column == 4);
        EXPECT_EQ(table.columnWidth(column) == 0, column >= 5 && column <= 8) << column;
    }
    const auto head = [&model](int column, int role) {
        return model.headerData(column, Qt::Horizontal, role).toString();
    };
    EXPECT_EQ(head(0, Qt::DisplayRole), "No.");
    EXPECT_EQ(head(1, Qt::DisplayRole), "VEL1");
    EXPECT_EQ(head(12, Qt::DisplayRole), "Posi3");
    EXPECT_EQ(head(17, Qt::DisplayRole), "ITPL");
    EXPECT_EQ(head(19, Qt::DisplayRole), "S/M");
    EXPECT_EQ(head(13, GroupHeader::kGroupRole), "AXIS 4");
    EXPECT_EQ(head(19, GroupHeader::kGroupRole), "Common");
    click(dialog, "cmdCloseSyogokekka");
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(DialogTest, ResultWindowOfAVerify) {
    SyogoMode = kSet;
    speak(0);
    whenUp([](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), ResText(2301));
        EXPECT_EQ(Get<QLabel>(dialog, "lblSyogoKekka").text().toStdString(), ResText(2303));
        click(dialog, "cmdCloseSyogokekka");
    });
    ShowSyogoKekka(nullptr);
}

TEST_F(DialogTest, SplashNamesTheProgram) {
    frmSplash splash;
    EXPECT_EQ(Get<QLabel>(splash, "lblProductName").text(), "QD-W8");
    EXPECT_EQ(Get<QLabel>(splash, "lblVersion").text(), "QD-W8 Ver1.40");
}

} // namespace
} // namespace qdw8::test

#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "main_form.h"
#include "position/check_result.h"
#include "position/posi_reader.h"
#include "position/posi_verify.h"
#include "windows/dialogs/frmDataShogo.h"
#include "windows/dialogs/frmGiveUp.h"
#include "windows/dialogs/frmProcessing.h"
#include "windows/dialogs/frmSelectPosiNo2.h"
#include "windows/dialogs/frmSelectPosiNo3.h"
#include "windows/dialogs/frmSelectPosiNo4.h"
#include "windows/dialogs/frmSelection.h"
#include "windows/dialogs/frmSyogoKekka.h"
#include "windows/dialogs/frmTrance.h"

#include <QApplication>
#include <QClipboard>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

namespace qdw8::test {
namespace {

/// What a user does to a dialog, in the order told: "cmdOk" is clicked, "Esc" and other keys are
/// pressed, "close" is the title bar, "txtEndPosiNo=30" is put into a box.
void Do(QWidget& dialog, const QString& steps) {
    for (const QString& step : steps.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList sides = step.split(QLatin1Char('='));
        if (sides.size() == 2) {
            Get<QLineEdit>(dialog, sides[0]).setText(sides[1]);
        } else if (step == QLatin1String("close")) {
            dialog.close();
        } else if (auto* button = dialog.findChild<QAbstractButton*>(step)) {
            button->click();
        } else {
            QTest::keyClick(&dialog, QKeySequence(step)[0].key());
        }
    }
}

class Dialogs : public MainForm {
protected:
    Dialogs() {
        modalIsUp.setSingleShot(true);
        QObject::connect(&modalIsUp, &QTimer::timeout, [this] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            Do(*dialog, steps);
            stayed = dialog->isVisible();
            Do(*dialog, after);
        });
        GridFirst = PosiFirst = 1;
        GridLast = PosiLast = 10;
        FileFirst = 5;
        FileLast = 20;
        CompareFileRange();
    }
    /// The user does the steps once the next modal dialog is up, and, after a look whether it is
    /// still there, what comes then.
    void user(const QString& first, const QString& then = {}) {
        steps = first;
        after = then;
        modalIsUp.start();
    }

    QTimer modalIsUp;
    QString steps;
    QString after;
    bool stayed = false;
};

const std::vector<const char*> kLeave{"cmdCancel", "Esc", "close"};

TEST_F(Dialogs, SelectionGivesTheChoice) {
    const SelectionQuestion question{"Select", "?", {"a", "b", "c"}, false};
    const std::vector<std::pair<const char*, int>> ways{{"Return", 0},
                                                        {"optSelectKomoku(1) cmdSelectOk", 1},
                                                        {"optSelectKomoku(2) cmdSelectOk", 2},
                                                        {"cmdSelectCancel", -1},
                                                        {"Esc", -1},
                                                        {"close", -1}};
    for (const auto& [way, result] : ways) {
        user(way);
        EXPECT_EQ(AskSelection(window.get(), question), result) << way;
    }
}

TEST_F(Dialogs, AQuestionThatMustBeAnsweredEndsTheProgramOrStays) {
    const SelectionQuestion question{"Select", "?", {"a", "b"}, true, {"AXIS 1: one | two"}};
    platform.expectBox("Finish QD-W8.", BoxButtons::OkCancel, BoxAnswer::Cancel);
    user("close", "Return");
    EXPECT_EQ(AskSelection(window.get(), question), 0);
    EXPECT_TRUE(stayed);
    EXPECT_EQ(ProgramEndFlag, kClear);
    platform.expectBox("Finish QD-W8.", BoxButtons::OkCancel, BoxAnswer::Ok);
    user("close");
    EXPECT_EQ(AskSelection(window.get(), question), kSelectionCancelled);
    EXPECT_EQ(ProgramEndFlag, kSet);
}

TEST_F(Dialogs, LongChoicesAreBrokenAndLoseNothing) {
    for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{0}}) {
        speak(base);
        frmSelection dialog({"", ResText(44), {ResText(45), ResText(46), ResText(47)}, false});
        dialog.show();
        EXPECT_LT(dialog.width(), 800);
        const QString joint = base == 0 ? QString() : QStringLiteral(" ");
        const auto& option = Get<QRadioButton>(dialog, "optSelectKomoku(1)");
        EXPECT_EQ(option.text().replace('\n', joint).toStdString(), ResText(46));
    }
}

TEST_F(Dialogs, TranceShowsTheTransferUntilItEnds) {
    frmTrance dialog(window.get());
    Screens().frmTrance = [&dialog] { dialog.showState(); };
    const auto& bar = Get<QProgressBar>(dialog, "prgBar1");
    int changes = 0;
    QObject::connect(&bar, &QProgressBar::valueChanged, [&changes] { ++changes; });
    {
        const TransferShown shown(100000, 368, TransferShown::Cancel::Yes);
        EXPECT_FALSE(dialog.isModal());
        for (const char* way : {"Esc", "close", "cmdTranceCancel"}) {
            TransferCancelFlag = kClear;
            Do(dialog, way);
            EXPECT_EQ(TransferCancelFlag, kSet) << way;
            EXPECT_TRUE(dialog.isVisible());
        }
        EXPECT_EQ(GrpMoveStopFlag, kClear);
        OfferGiveUp();
        Do(dialog, "Esc");
        EXPECT_EQ(GrpMoveStopFlag, kSet);
        WithdrawGiveUp();
        for (int row = 1; row <= 50000; ++row) {
            shown.moveTo(row);
        }
        EXPECT_LT(changes, 25000); // far from every row
        // What was held back comes by itself.
        EXPECT_TRUE(QTest::qWaitFor([&bar] { return bar.value() == 50000; }));
        shown.moveTo(99999);
        shown.moveTo(100001);
        EXPECT_EQ(bar.value(), 100000); // the end at once, and no further
    }
    EXPECT_FALSE(dialog.isVisible());
    const TransferShown shown(4, 378);
    EXPECT_EQ(bar.value(), 0);
    TransferCancelFlag = kClear;
    Do(dialog, "Esc");
    EXPECT_EQ(TransferCancelFlag, kClear);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(Dialogs, WhatDoesNotBlockStandsInFrontOfTheWindowThatStartedTheWork) {
    frmTrance trance(window.get());
    frmGiveUp giveUp(window.get());
    frmProcessing processing(window.get());
    Screens().frmTrance = [&] { trance.showState(); };
    Screens().frmGiveUp = [&] { giveUp.showState(); };
    Screens().frmProcessing = [&] { processing.showState(); };
    const auto run = [&](QWidget* starter) {
        OfferGiveUp();
        ShowProcessing();
        {
            const TransferShown shown(4, 368);
            for (QWidget* dialog : std::vector<QWidget*>{&trance, &giveUp, &processing}) {
                EXPECT_EQ(dialog->parentWidget(), starter) << dialog->objectName().toStdString();
                EXPECT_TRUE(dialog->isVisible());
            }
        }
        Do(giveUp, "Return");
        EXPECT_EQ(GrpMoveStopFlag, kClear) << "an Enter gives up nothing";
        Do(giveUp, "Esc");
        EXPECT_EQ(GrpMoveStopFlag, kSet);
        EXPECT_TRUE(giveUp.isVisible()) << "the end of the wait takes it away";
        GrpMoveStopFlag = kClear;
        processing.close();
        EXPECT_TRUE(processing.isVisible());
        WithdrawGiveUp();
        UnloadProcessing();
        EXPECT_FALSE(giveUp.isVisible() || processing.isVisible() || trance.isVisible());
    };
    run(window.get());
    {
        QDialog modal(window.get());
        modal.setModal(true);
        modal.show();
        run(&modal);
    }
    run(window.get()); // they haven't gone with it
}

TEST_F(Dialogs, BoxesTakeThreeDigitsAndNothingElse) {
    frmSelectPosiNo3 dialog;
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    auto& start = Get<QLineEdit>(dialog, "txtStartPosiNo");
    EXPECT_EQ(start.selectedText(), "1"); // typing replaces it
    QTest::keyClicks(&start, "a-.4 x5");
    QTest::sendKeyEvent(QTest::Click, &start, Qt::Key_unknown, QString::fromUtf8("６"), {});
    EXPECT_EQ(start.text(), "45");
    QTest::keyClicks(&start, "67"); // the box is full
    EXPECT_EQ(start.text(), "456");
    start.selectAll();
    QTest::keyClicks(&start, "8");
    copyOutside("123");
    QTest::keyClick(&start, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(start.text(), "8");
    QTest::keyClick(&start, Qt::Key_Backspace);
    EXPECT_EQ(start.text(), "");
    QTest::keyClick(&start, Qt::Key_Return);
    auto& end = Get<QLineEdit>(dialog, "txtEndPosiNo");
    EXPECT_EQ(end.selectedText(), "10");
    QTest::keyClick(&end, Qt::Key_Enter);
    EXPECT_TRUE(Get<QPushButton>(dialog, "cmdOk").hasFocus());
}

TEST_F(Dialogs, RangesAreTakenOrRefused) {
    struct Case {
        void (*show)(QWidget*);
        const char* steps;
        const char* box; ///< behind a refusal
        int first;
        int last;
    };
    const auto overlap = [](QWidget* parent) { ShowSelectPosiNo4(parent, true); };
    const auto apart = [](QWidget* parent) { ShowSelectPosiNo4(parent, false); };
    const char* const invalid = "Invalid value in Position No.";
    const std::vector<Case> cases{
        {ShowSelectPosiNo2, "cmdOk", nullptr, 1, 999},
        {ShowSelectPosiNo2, "optSelectPosiNo(1) txtStartPosiNo=20 txtEndPosiNo=30 cmdOk", nullptr,
         20, 30},
        {ShowSelectPosiNo2, "optSelectPosiNo(1) txtStartPosiNo=20 cmdOk", invalid, 1, 10},
        {ShowSelectPosiNo3, "txtStartPosiNo=6 cmdOk", nullptr, 6, 10},
        {ShowSelectPosiNo3, "txtStartPosiNo=0 cmdOk", invalid, 1, 10},
        {overlap, "cmdOk", nullptr, 5, 10},
        {overlap, "txtStartPosiNo=7 txtEndPosiNo=7 Return", nullptr, 7, 7},
        {overlap, "txtStartPosiNo=8 txtEndPosiNo=6 cmdOk", "", 1, 10},     // refused without a word
        {overlap, "txtStartPosiNo=4 txtEndPosiNo=9 cmdOk", invalid, 1, 9}, // what is right is set
        {apart, "Return", nullptr, 1, 10}};
    for (const Case& one : cases) {
        PosiFirst = 1;
        PosiLast = 10;
        if (one.box != nullptr && *one.box != '\0') {
            platform.expectBox(one.box);
        }
        user(one.steps, one.box != nullptr ? "Esc" : "");
        one.show(window.get());
        EXPECT_EQ(stayed, one.box != nullptr) << one.steps;
        EXPECT_EQ(PosiFirst, one.first) << one.steps;
        EXPECT_EQ(PosiLast, one.last) << one.steps;
        EXPECT_EQ(IsSet(RangeCancelFlag), one.box != nullptr) << one.steps;
        for (const char* leave : kLeave) {
            RangeCancelFlag = kClear;
            user(leave);
            one.show(window.get());
            EXPECT_EQ(RangeCancelFlag, kSet) << leave;
        }
    }
}

TEST_F(Dialogs, TheBoxesOfAReadAreThereForItsSecondChoiceOnly) {
    frmSelectPosiNo2 dialog;
    dialog.show();
    for (const bool enabled : {false, true, false}) {
        Get<QRadioButton>(dialog, enabled ? "optSelectPosiNo(1)" : "optSelectPosiNo(0)").click();
        for (const char* name :
             {"txtStartPosiNo", "txtEndPosiNo", "lblStartPosiMoji", "lblEndPosiMoji"}) {
            EXPECT_EQ(Get<QWidget>(dialog, name).isEnabled(), enabled) << name;
        }
        EXPECT_EQ(Get<QLineEdit>(dialog, "txtStartPosiNo").palette().color(QPalette::Base),
                  dialog.palette().color(enabled ? QPalette::Base : QPalette::Window));
    }
}

TEST_F(Dialogs, DataShogoAsksForTheOtherSide) {
    const std::vector<std::pair<const char*, int>> ways{
        {"cmdFileDataShogo", 1}, {"Return", 1}, {"cmdCtDataShogo", 2},
        {"cmdCancelOfShogo", 0}, {"Esc", 0},    {"close", 0}};
    for (const auto& [way, result] : ways) {
        user(way);
        EXPECT_EQ(AskDataShogo(window.get()), result) << way;
    }
}

TEST_F(Dialogs, TheResultWindowLeadsToTheCell) {
    AxisOff[2] = kClear;
    AxisOff[1] = kSet;
    show(1, 999);
    PosiFirst = 3;
    MarkPosiCell(0, 2); // before the range
    MarkPosiCell(3, 3);
    MarkPosiCell(18, 999);
    frmSyogoKekka dialog(window.get());
    dialog.show();
    EXPECT_EQ(dialog.pos() - window->frameGeometry().topLeft(), QPoint(33, 33));
    auto& table = Get<QTableView>(dialog, "flgdSyogoKekka");
    const QAbstractItemModel& model = *table.model();
    ASSERT_EQ(model.rowCount(), 2);
    ASSERT_EQ(model.columnCount(), 20);
    const QColor red(0xFF, 0x80, 0x80);
    for (int column = 0; column < 20; ++column) {
        const QModelIndex first = model.index(0, column);
        EXPECT_EQ(first.data(), column == 0 ? "3" : column == 4 ? "X" : "O") << column;
        EXPECT_EQ(model.index(1, column).data(), column == 0 ? "999" : column == 19 ? "X" : "O");
        EXPECT_EQ(first.data(Qt::BackgroundRole).value<QColor>() == red, column == 4);
        EXPECT_EQ(table.columnWidth(column) == 0, column >= 5 && column <= 8) << column;
    }
    for (const auto& [row, column, target] : std::vector<std::tuple<int, int, Place>>{
             {0, 9, {4, 9, 4, 9}}, {1, 0, {1000, 19, 1000, 19}}}) {
        dialog.show();
        const QPoint cell = table.visualRect(model.index(row, column)).center();
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(place(), target);
        EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(at(target[0], target[1]))));
    }
    dialog.show();
    Do(dialog, "cmdCloseSyogokekka");
    EXPECT_FALSE(dialog.isVisible());
}

} // namespace
} // namespace qdw8::test

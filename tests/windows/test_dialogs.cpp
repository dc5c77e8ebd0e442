// The rows of dialogs.txt, and what takes more than a row.

#include "app/command_states.h"
#include "app/move_defaults.h"
#include "every_window.h"
#include "link/port.h"
#include "main_form.h"
#include "parameter/factory_lists.h"
#include "parameter/para_device.h"
#include "parameter/para_fields.h"
#include "parameter/para_window.h"
#include "platform/qt/qt_platform.h"
#include "print/print_select.h"
#include "setup/detail_edit.h"
#include "support/boxes.h"
#include "support/simulated_line.h"
#include "support/story.h"
#include "tables/groups.h"
#include "tables/grp_table.h"
#include "tables/macros.h"
#include "windows/device/frmDevice2.h"
#include "windows/device/frmDevice3.h"

#include <QApplication>
#include <QComboBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTabBar>
#include <QTest>
#include <QTimer>

namespace qdw8::test {
namespace {

QString Looked(const QWidget& at) {
    QString seen;
    if (const auto* list = qobject_cast<const QComboBox*>(&at)) {
        seen = list->currentText();
        for (int row = 0; row < list->count(); ++row) {
            seen += (row == 0 ? " of " : " ") + list->itemText(row);
        }
    } else if (const auto* edit = qobject_cast<const QLineEdit*>(&at)) {
        seen = edit->hasSelectedText() ? '[' + edit->selectedText() + ']' : edit->text();
        const QPalette window = edit->window()->palette();
        const QColor base = edit->palette().color(QPalette::Base);
        const bool grey = base == window.color(QPalette::Window);
        const bool refused = base == QColor(0xFF, 0x80, 0x80);
        return seen + (edit->isEnabled() ? "" : " off") + (grey ? " grey" : "") +
               (base == QColor(0xE0E0E0) ? " E0E0E0" : "") +
               (!refused ? QString()
                : at.findChild<QWidget*>("imgRefused")
                    ? " refused: " + edit->toolTip().section('\n', 0, 0)
                    : QStringLiteral(" without a sign"));
    } else {
        seen = at.property("text").toString();
    }
    return seen + (at.property("checked").toBool() ? " x" : "") + (at.isEnabled() ? "" : " off") +
           (at.isVisible() ? "" : " hidden");
}

class Dialogs : public MainForm {
protected:
    Dialogs() {
        ThePlatform().programFolder = QDW8_DATA_DIR;
        ThePlatform().settingsFolder = "/home/user";
        ThePlatform().ShowMessageBox = [this](const BoxQuestion& asked) {
            told << QString::fromStdString(asked.text).replace("\r\n", " ");
            const bool no = std::exchange(answerNo, false);
            return asked.buttons == BoxButtons::OkCancel ? no ? BoxAnswer::Cancel : BoxAnswer::Ok
                   : no                                  ? BoxAnswer::No
                                                         : BoxAnswer::Yes;
        };
        ThePlatform().CommonDialog1.ShowFile = [this](const FileQuestion& asked) {
            told << QString::fromStdString(asked.title);
            return std::nullopt;
        };
        Screens().frmDevice2 = [this] {
            told << "frmDevice2";
            DeviceCancelled = kSet;
        };
        Screens().frmDeviceShow = [this] {
            told << (CommandsTaken() ? "frmDevice" : "not locked");
        };
        FirstDeviceSetFlag = kSet;
        AxisOff = {kClear, kClear, kSet, kSet};
        DevSetting[0] = {" 44", "L", 100, kClear, kClear, kSet, kSet, 2, 400, 20000, 100};
        DevSetting[1] = {"J52", "L", 50, kSet, kClear, kSet, kSet, 2, 400, 10000, 50};
        DevSettei = DevSetting;
        GridFirst = PosiFirst = 1;
        GridLast = PosiLast = 10;
        FileFirst = 5;
        FileLast = 20;
        CompareFileRange();
        loadParameters();
        LoadParameta2();
    }

    void step(QWidget& dialog, const QString& what) {
        const auto focus = [&dialog] {
            return dialog.focusWidget() != nullptr ? dialog.focusWidget() : &dialog;
        };
        const auto key = [](QWidget& at, const QString& name) {
            const QKeyCombination pressed = QKeySequence(name)[0];
            QTest::keyClick(&at, pressed.key(), pressed.keyboardModifiers());
        };
        const auto put = [](QWidget& at, const QString& text) {
            auto* list = qobject_cast<QComboBox*>(&at);
            auto* edit = list != nullptr ? list->lineEdit() : qobject_cast<QLineEdit*>(&at);
            edit->setFocus();
            edit->selectAll();
            QTest::keyClicks(edit, text);
        };
        const qsizetype arrow = what.indexOf(" -> ");
        if (what == "close") {
            dialog.close();
        } else if (what == "no") {
            answerNo = true;
        } else if (what == "focus") {
            told << focus()->objectName();
        } else if (what == "walk") {
            QWidget* const first = focus();
            QStringList walked;
            do {
                walked << focus()->objectName();
                key(*focus(), "Tab");
            } while (focus() != first && walked.size() < 40);
            told << walked.join(' ');
        } else if (what.startsWith('\'')) {
            for (const QChar typed : what.mid(1)) {
                QTest::sendKeyEvent(QTest::Click, focus(), Qt::Key_unknown, QString(typed), {});
            }
        } else if (what.startsWith("tab ")) {
            auto& bar = Get<QTabBar>(dialog, "qt_tabwidget_tabbar");
            QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(what.mid(4).toInt()).center());
            told << QString::number(bar.currentIndex());
        } else if (what.startsWith("paste ")) {
            copyOutside(what.mid(6).toStdString());
            key(*focus(), "Ctrl+V");
        } else if (what.startsWith('<')) {
            key(*focus(), what.mid(1, what.size() - 2));
            // A button that is reached by its letter is seen going down and up.
            const auto buttons = dialog.findChildren<QAbstractButton*>();
            EXPECT_TRUE(QTest::qWaitFor([&buttons] {
                return std::none_of(buttons.begin(), buttons.end(),
                                    [](const auto* button) { return button->isDown(); });
            }));
        } else if (what.startsWith('?')) {
            told << Looked(Get<QWidget>(dialog, what.mid(1)));
        } else if (arrow > 0) {
            auto& list = Get<QComboBox>(dialog, what.left(arrow));
            const int row = list.findText(what.mid(arrow + 4));
            ASSERT_GE(row, 0);
            list.setFocus();
            while (list.currentIndex() != row) {
                key(list, list.currentIndex() < row ? "Down" : "Up");
            }
        } else if (what.contains('=')) {
            put(Get<QWidget>(dialog, what.section('=', 0, 0)), what.section('=', 1));
        } else if (auto* field = dialog.findChild<QLineEdit*>(what)) {
            // By a hand that isn't quite still.
            const QPoint at = field->rect().center();
            QTest::mousePress(field, Qt::LeftButton, {}, at);
            QTest::mouseMove(field, at + QPoint(2, 0));
            QTest::mouseRelease(field, Qt::LeftButton, {}, at + QPoint(2, 0));
        } else {
            Get<QAbstractButton>(dialog, what).click();
        }
    }
    void steps(QWidget& dialog, const QString& all) {
        for (const QString& what : all.split(" ; ")) {
            step(dialog, what);
        }
    }
    /// What a user does once the next modal dialog is up.
    void user(const QString& all) {
        QTimer::singleShot(0, window.get(), [this, all] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            dialog->activateWindow();
            ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == dialog; }));
            const QSize whole = dialog->size();
            steps(*dialog, all);
            EXPECT_EQ(dialog->size(), whole) << "nothing jumps";
            if (dialog->isVisible()) {
                told << "stays";
                dialog->close();
            }
        });
    }
    QString device(std::size_t axis) const {
        return QString::fromStdString(FamilyText[axis] + DevSettei[axis].DevSize + ' ') +
               QString::number(DevSettei[axis].DevStroke) +
               (IsSet(DevSettei[axis].NewType) ? "" : " old");
    }
    /// Row and numbers of what isn't as it was when the window opened.
    static QString changed(const SmallTable& table) {
        const Numbers now = table.take(Held::Shown);
        const std::int16_t fresh = &table == &Groups() ? 1 : 0;
        const auto fields = static_cast<std::size_t>(table.fields);
        QStringList rows;
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (now[i] != fresh) {
                rows << QString("%1.%2=%3").arg(i / fields + 1).arg(i % fields).arg(now[i]);
            }
        }
        return rows.join(' ');
    }
    /// Opens the dialog and tells what it has handed back.
    QString opened(const QString& name) {
        QWidget* parent = window.get();
        if (name.startsWith("frmSelection")) {
            return QString::number(AskSelection(
                parent,
                {"Select", "?", {"a", "b", "c"}, name.endsWith("answered"), {"one | two"}}));
        }
        if (name == "frmDataShogo") {
            return QString::number(AskDataShogo(parent));
        }
        if (name.startsWith("frmDevice2")) {
            StartDeviceSelectFlag = FlagOf(name.endsWith("start"));
            ShowDevice2(parent);
            return device(0) + ", " + device(1) + (IsSet(DeviceCancelled) ? ", cancelled" : "");
        }
        if (name == "frmDevice3") {
            Screens().frmParameta2Show = [this](bool modal) {
                told << (modal ? "parameters" : "not modal");
            };
            QTimer::singleShot(0, qApp, [] { EXPECT_EQ(KeepAxisFlag, kSet); });
            ShowDevice3(parent);
            EXPECT_EQ(KeepAxisFlag, kClear);
            platform.run(2000);
            return device(0) + ", " + device(1);
        }
        if (name == "frmOptions2") {
            ShowOptions2(parent);
            return QString("COM%1, %2 stored, speed %3")
                .arg(PortNo)
                .arg(platform.settings.size())
                .arg(VelOf100Pls);
        }
        if (name == "frmAbout") {
            ShowAbout(parent);
            return QString::fromStdString(ThePlatform().TheClipboard.GetText()).section('\n', 0, 0);
        }
        if (name == "frmPrintSelect") {
            show(1, 10);
            LoadPrintSelect();
            ShowPrintSelect(parent);
            const PrintRange range = ChosenPrintRange();
            return !PrintSelect.accepted ? "nothing"
                                         : QString("%1-%2").arg(range.first).arg(range.last) +
                                               (PrintSelect.chkPrintPosi ? ", positions" : "") +
                                               (PrintSelect.chkPrintPara ? ", parameters" : "");
        }
        if (name == "frmPrintPreview") {
            drawPages(3);
            const std::int16_t result = ShowPrintPreview(parent);
            ThePlatform().ThePrinter.KillDoc();
            return QString::number(result);
        }
        if (name == "frmGrp") {
            frmGrp form(parent);
            Screens().frmGrp = Screens().frmMainCommands = [&form] { form.showState(); };
            form.exec();
            return changed(Groups());
        }
        if (name == "frmSqMcr") {
            frmSqMcr form(parent);
            Screens().frmSqMcr = Screens().frmMainCommands = [&form] { form.showState(); };
            form.exec();
            return changed(Macros());
        }
        if (name == "frmParameta2") {
            frmParameta2 form(parent);
            Screens().frmParameta2 = Screens().frmMainCommands = [&form] { form.showState(); };
            form.open(true);
            EXPECT_TRUE(QTest::qWaitFor([&form] { return !form.isVisible(); }));
            Screens().frmParameta2 = Screens().frmMainCommands = {};
            return IsSet(ParaEditedFlag) ? "edited" : "closed";
        }
        if (name == "frmDevice") {
            const auto next = AskStrokeCalculator(parent);
            return next ? QString("%1(%2)").arg(RowOf(next->control).name).arg(next->axis) + ' ' +
                              QString::fromStdString(ParaFields.txtAxisStroke[1])
                        : "nothing";
        }
        name.endsWith('2')   ? ShowSelectPosiNo2(parent)
        : name.endsWith('3') ? ShowSelectPosiNo3(parent)
                             : ShowSelectPosiNo4(parent, name.endsWith('4'));
        return QString("%1 %2").arg(PosiFirst).arg(PosiLast) +
               (IsSet(RangeCancelFlag) ? ", cancelled" : "");
    }

    static void drawPages(int count) {
        InstallQtPrinter();
        const Printer& paper = ThePlatform().ThePrinter;
        for (int page = 0; page < count; ++page) {
            if (page > 0) {
                paper.NewPage();
            }
            paper.Print(20, 20, std::string(80, 'M'));
        }
    }

    QStringList told;
    bool answerNo = false;
};

class DialogRows : public Dialogs, public testing::WithParamInterface<std::string> {};

TEST_P(DialogRows, GoAsTold) {
    const QStringList sides = QString::fromStdString(GetParam()).split(" | ");
    user(sides[1]);
    const QString result = opened(sides[0]);
    told << "= " + result + (IsSet(ProgramEndFlag) ? ", end of the program" : "");
    EXPECT_EQ(told.join(" ; ").toStdString(), sides[2].toStdString());
}

INSTANTIATE_TEST_SUITE_P(Told, DialogRows, testing::ValuesIn(LinesOf("windows/dialogs.txt")));

TEST_F(Dialogs, ThePreviewShowsWhatIsPrintedAtAnySize) {
    drawPages(1);
    frmPrintPreview preview(window.get());
    preview.show();
    auto& area = Get<QScrollArea>(preview, "areaPage");
    const auto inkAt = [&area](double xMm, double yMm) {
        const QImage page = area.widget()->grab().toImage();
        const double scale = (page.width() - 16) / 210.0;
        int dark = 0;
        for (int x = 0; x < scale * 10; ++x) {
            const QPoint at(static_cast<int>(8 + xMm * scale) + x,
                            static_cast<int>(8 + yMm * scale));
            dark += qGray(page.pixel(at)) < 128 ? 1 : 0;
        }
        return dark;
    };
    const int wide = area.widget()->width();
    EXPECT_NEAR(wide, area.viewport()->width(), 30);
    EXPECT_GT(inkAt(60, 27), 3); // 5 mm from the edge, and half a line down
    EXPECT_EQ(inkAt(10, 27) + inkAt(60, 35), 0);
    step(preview, "cmdZoomIn");
    EXPECT_GT(area.widget()->width(), wide * 6 / 5);
    EXPECT_GT(inkAt(60, 27), 3);
    step(preview, "cmdWholePage");
    EXPECT_LE(area.widget()->height(), area.viewport()->height());
    step(preview, "cmdPreviewPdf");
    EXPECT_EQ(told.join(' '), "Save as PDF ...");
    ThePlatform().ThePrinter.KillDoc();
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
        for (const char* way : {"<Esc>", "cmdTranceCancel"}) {
            TransferCancelFlag = kClear;
            step(dialog, way);
            EXPECT_EQ(TransferCancelFlag, kSet) << way;
            EXPECT_TRUE(dialog.isVisible());
        }
        TransferCancelFlag = kClear;
        step(dialog, "close");
        EXPECT_TRUE(dialog.isVisible());
        step(dialog, "<Space>");
        step(dialog, "<Return>");
        EXPECT_EQ(TransferCancelFlag, kClear) << "typed for something else";
        step(dialog, "<Tab>");
        step(dialog, "<Space>");
        EXPECT_EQ(TransferCancelFlag, kSet);
        {
            QDialog box(window.get());
            box.setModal(true);
            box.show();
            TransferCancelFlag = kClear;
            QTest::keyClick(&box, Qt::Key_Escape);
            EXPECT_EQ(TransferCancelFlag, kClear) << "the Escape of the box in front";
            EXPECT_FALSE(box.isVisible());
        }
        EXPECT_TRUE(QTest::qWaitFor([&dialog] { return dialog.isActiveWindow(); }));
        QTest::keyClick(grid, Qt::Key_Escape);
        EXPECT_EQ(TransferCancelFlag, kSet) << "whichever window is active";
        EXPECT_EQ(GrpMoveStopFlag, kClear);
        OfferGiveUp();
        step(dialog, "<Esc>");
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
    {
        const TransferShown printing(5, 3265, TransferShown::Cancel::Yes, 3260);
        EXPECT_EQ(dialog.windowTitle(), "Print") << "nothing is on the line";
    }
    const TransferShown shown(4, 378);
    EXPECT_EQ(dialog.windowTitle(), "QD-W8 Communicating,now...");
    EXPECT_EQ(bar.value(), 0);
    TransferCancelFlag = kClear;
    step(dialog, "<Esc>");
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
        step(giveUp, "<Return>");
        step(giveUp, "<Space>");
        EXPECT_EQ(GrpMoveStopFlag, kClear) << "an Enter or a blank gives up nothing";
        QTest::keyClick(starter, Qt::Key_Escape);
        EXPECT_EQ(GrpMoveStopFlag, kSet) << "whichever window is active";
        EXPECT_TRUE(starter->isVisible());
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

TEST_F(Dialogs, TheResultWindowLeadsToTheCell) {
    AxisOff = {kClear, kSet, kClear, kClear};
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
    step(dialog, "cmdCloseSyogokekka");
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(Dialogs, TheOptionsStandOnTheCornerOfTheMainWindowAndOnTheScreen) {
    const QRect screen = window->screen()->availableGeometry();
    for (const QPoint& corner : {screen.topLeft(), screen.bottomRight() - QPoint(50, 50)}) {
        window->move(corner);
        frmOptions2 dialog(window.get());
        dialog.show();
        EXPECT_TRUE(screen.contains(dialog.frameGeometry()));
        EXPECT_EQ(dialog.pos() == corner + QPoint(33, 33), corner == screen.topLeft());
    }
}

TEST_F(Dialogs, AWindowThatGoesWhileAListHasTheFocusChangesNothing) {
    const auto before = DevSettei;
    const auto leave = [this](auto* dialog) {
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
        step(*dialog, "comboDeviceSize(0)=52");
        delete dialog;
    };
    leave(new frmDevice2);
    leave(new frmDevice3);
    EXPECT_EQ(DevSettei, before);
}

TEST_F(Dialogs, WindowsOfTablesAreLockedWhileACommandOfOneRuns) {
    SimulatedLine line(platform);
    line.controller.setTurnaround(50);
    frmGrp groups(window.get());
    frmSqMcr macros(window.get());
    frmTrance transfer(window.get());
    Screens().frmGrp = Screens().frmMainCommands = [&] {
        groups.showState();
        macros.showState();
    };
    Screens().frmTrance = [&transfer] { transfer.showState(); };
    macros.show();
    groups.show();
    ASSERT_TRUE(QTest::qWaitFor([&groups] { return QApplication::activeWindow() == &groups; }));
    GrpTable[8] = {4095, -7, 0}; // more than can be typed, as a file may have it
    groups.showState();
    step(groups, "?txtGrpStartNo(7)");
    step(groups, "?txtGrpEndNo(7)");
    step(groups, "txtGrpEndNo(7)=5");
    platform.after(1000, [&] {
        EXPECT_EQ(transfer.parentWidget(), &groups);
        for (const char* off : {"?txtGrpEndNo(7)", "?cmdWriteGrp", "?cmdCloseGrpWindow"}) {
            step(groups, off);
        }
        step(macros, "?cmdWriteSMtoCt");
        step(macros, "?txtSmData(0)");
        groups.close();
        EXPECT_TRUE(groups.isVisible());
    });
    step(groups, "cmdReadGrp");
    step(groups, "focus");
    step(groups, "?txtGrpEndNo(7)");
    step(macros, "?cmdWriteSMtoCt");
    EXPECT_EQ(told.join(" ; ").toStdString(),
              "4095 ; -7 ; Read the Group Data from controller, OK? ; 5 off grey ; "
              "&Write to C/T off ; &Close off ; &Write to C/T off ;  off grey ; txtGrpEndNo(7) ; "
              "[71] ; &Write to C/T");
}

TEST_F(Dialogs, OnlineWindowWritesIntoTheController) {
    SimulatedLine line(platform);
    line.controller.setAxisMask(0b0011);
    line.controller.setTurnaround(50);
    frmDevice3 dialog;
    dialog.show();
    step(dialog, "comboDeviceStroke(0) -> 300");
    bool seen = false;
    platform.after(100, [&] {
        seen = true;
        for (const char* name : {"cmdPrmCtWrite", "cmdDeviceSet", "cmdDeviceCancel"}) {
            EXPECT_FALSE(Get<QPushButton>(dialog, name).isEnabled()) << name;
        }
        EXPECT_FALSE(Get<QWidget>(dialog, "comboDeviceStroke(0)").isEnabled());
        dialog.close();
        EXPECT_TRUE(dialog.isVisible());
    });
    step(dialog, "cmdPrmCtWrite");
    EXPECT_TRUE(seen);
    step(dialog, "<Space>"); // meant for the box
    EXPECT_EQ(told.join(' ').toStdString(), BoxText("written"));
    EXPECT_NE(dialog.focusWidget(), &Get<QWidget>(dialog, "cmdPrmCtWrite"));
    EXPECT_TRUE(Get<QPushButton>(dialog, "cmdPrmCtWrite").isEnabled());
    EXPECT_EQ(DevSetting[0].DevStroke, 300);
    dialog.close();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(DeviceCancelled, kClear);
}

} // namespace
} // namespace qdw8::test

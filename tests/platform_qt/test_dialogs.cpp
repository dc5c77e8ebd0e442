#include "platform/platform.h"
#include "platform/qt/dialog_places.h"
#include "platform/qt/qt_file_dialog.h"
#include "platform/qt/qt_platform.h"
#include "pump_until.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <map>

namespace qdw8 {
namespace {

/// A window is active, in a folder with the files "there.qdd" and "UP.QDD" and the folder "sub".
class QtDialogs : public ::testing::Test {
protected:
    QtDialogs() {
        InstallQtMessageBox();
        InstallQtCommonDialog();
        InstallQtDialogPlaces();
        window->setGeometry(100, 80, 500, 400);
        window->show();
        EXPECT_TRUE(PumpUntil([&] { return window->isActiveWindow(); }));
        QDir::setCurrent(folder.path());
        QDir(folder.path()).mkdir("sub");
        for (const char* name : {"there.qdd", "UP.QDD"}) {
            EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        }
    }
    ~QtDialogs() override {
        SetStandardTexts({});
        QDir::setCurrent(before);
        delete window;
    }

    /// Shows a box, does that to it, and gives the answer.
    static BoxAnswer ask(const BoxQuestion& question,
                         const std::function<void(QMessageBox& box)>& act) {
        WhenShown("MessageBox", [&](QWidget& box) { act(dynamic_cast<QMessageBox&>(box)); });
        return ThePlatform().ShowMessageBox(question);
    }
    static void click(QWidget& box, const QString& button) {
        QTest::mouseClick(box.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    /// What the file dialog answers when the name is typed: the path below the folder, or "" if it
    /// stayed. What Qt asks on the way is answered with No or Ok, and kept in `asked`.
    std::string type(const QString& name) {
        asked.clear();
        WhenShown("CommonDialog1", [&](QWidget& dialog) {
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
            QTimer look;
            QObject::connect(&look, &QTimer::timeout, &look, [this] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                    asked = box->text();
                    box->buttons().constLast()->click();
                }
            });
            look.start(1);
            dynamic_cast<QDialog&>(dialog).accept();
            if (dialog.isVisible()) {
                dialog.close();
            }
        });
        const auto answer = ThePlatform().CommonDialog1.ShowFile(question);
        const QString path = QString::fromStdString(answer ? answer->path : "");
        EXPECT_EQ(QFileInfo(path).fileName().toStdString(), answer ? answer->title : "");
        QDir::setCurrent(folder.path());
        return path.isEmpty() ? "" : QDir(folder.path()).relativeFilePath(path).toStdString();
    }

    QPointer<QWidget> window = new QWidget;
    QTemporaryDir folder;
    QString before = QDir::currentPath();
    QString asked;
    FileQuestion question{
        FileQuestion::Kind::Save, "Save As...", "Data(*.qdd)|*.qdd", "qdd", "Posi.qdd", "",
        kOverwritePrompt};
};

TEST_F(QtDialogs, EveryButtonAnswersForItselfAndClosingForTheMildest) {
    const std::map<QString, BoxAnswer> answers = {{"Ok", BoxAnswer::Ok},
                                                  {"Cancel", BoxAnswer::Cancel},
                                                  {"Yes", BoxAnswer::Yes},
                                                  {"No", BoxAnswer::No}};
    const std::pair<BoxButtons, QString> rows[] = {{BoxButtons::Ok, "Ok"},
                                                   {BoxButtons::OkCancel, "Ok Cancel"},
                                                   {BoxButtons::YesNo, "Yes No"},
                                                   {BoxButtons::YesNoCancel, "Yes No Cancel"}};
    for (const auto& [buttons, names] : rows) {
        const BoxQuestion box{"text", buttons, "", {}};
        for (const QString& name : names.split(' ')) {
            EXPECT_EQ(ask(box, [&](QWidget& shown) { click(shown, name); }), answers.at(name));
        }
        for (const bool byKey : {false, true}) {
            const BoxAnswer closed = ask(box, [&](QWidget& shown) {
                byKey ? QTest::keyClick(&shown, Qt::Key_Escape) : void(shown.close());
                EXPECT_EQ(shown.isVisible(), box.buttons == BoxButtons::YesNo);
                if (shown.isVisible()) {
                    click(shown, "No");
                }
            });
            EXPECT_EQ(closed, answers.at(names.section(' ', -1)));
        }
    }
    EXPECT_EQ(ask({"text", BoxButtons::OkCancel, "", {}}, [&](QWidget&) { delete window; }),
              BoxAnswer::Cancel)
        << "a window that goes takes its box along";
}

TEST_F(QtDialogs, ABoxShowsTextTitleIconAndWordsAsGiven) {
    StandardTexts texts;
    texts.yes = "はい(&Y)";
    SetStandardTexts(texts);
    for (const char* title : {"", "Select"}) {
        ask({"<b>line\r\n\r\nline</b>", BoxButtons::YesNo, title, BoxIcon::Question},
            [&](QMessageBox& box) {
                EXPECT_EQ(box.text(), "<b>line\n\nline</b>");
                EXPECT_EQ(box.textFormat(), Qt::PlainText);
                EXPECT_EQ(box.windowTitle().toStdString(), *title == 0 ? "QD-W8" : title);
                EXPECT_EQ(box.icon(), QMessageBox::Question);
                EXPECT_EQ(box.parentWidget(), window);
                EXPECT_EQ(box.findChild<QPushButton*>("Yes")->text().toStdString(), "はい(&Y)");
                click(box, "No");
            });
    }
}

TEST_F(QtDialogs, ABoxStandsOverItsWindowAndGoesAlongUntilTheUserMovesIt) {
    const QRect screen = window->screen()->availableGeometry();
    const auto isCentred = [&](const QWidget& box) {
        return (box.frameGeometry().center() - window->frameGeometry().center()).manhattanLength() <
               4;
    };
    ask({"text", BoxButtons::Ok, "", {}}, [&](QMessageBox& box) {
        EXPECT_TRUE(isCentred(box));
        window->move(200, 150);
        EXPECT_TRUE(PumpUntil([&] { return isCentred(box); }));
        box.move(3, 3);
        window->move(-450, -350);
        QCoreApplication::processEvents();
        EXPECT_EQ(box.pos(), QPoint(3, 3));
        click(box, "Ok");
    });
    QDialog dialog(window);
    for (const QSize size : {QSize(200, 100), screen.size() * 2}) {
        dialog.resize(size);
        dialog.show();
        EXPECT_TRUE(screen.contains(dialog.frameGeometry()));
        dialog.hide();
        window->move(100, 80);
    }
    dialog.resize(200, 100);
    dialog.show();
    EXPECT_TRUE(isCentred(dialog)) << "the second time as the first";
    QDialog placed(window);
    placed.move(5, 6);
    placed.show();
    EXPECT_EQ(placed.pos(), QPoint(5, 6));
}

TEST_F(QtDialogs, ANameToSaveUnderGetsTheExtensionAndTheQuestionIsAboutThatName) {
    const char* const rows[][3] = {{"表 1", "表 1.qdd", ""},
                                   {"2024.11.21", "2024.11.21.qdd", ""},
                                   {"sub/a.QDD", "sub/a.QDD", ""},
                                   {"there", "", "there.qdd"},
                                   {"UP.QDD", "", "UP.QDD"},
                                   {" ", "", ""},
                                   {".qdd", "", ""},
                                   {"sub/.QDD", "", ""},
                                   {"sub", "", ""}};
    for (const auto& [typed, answer, box] : rows) {
        EXPECT_EQ(type(typed), answer) << typed;
        EXPECT_EQ(asked.section('\n', 0, 0).section(' ', 0, 0).toStdString(), box) << typed;
    }
    question.flags = 0;
    EXPECT_EQ(type("there"), "there.qdd");
    question.defaultExt.clear();
    EXPECT_EQ(type("plain"), "plain");
}

TEST_F(QtDialogs, AMissingFileToOpenIsRefusedOnlyWhenToldTo) {
    question.kind = FileQuestion::Kind::Open;
    question.flags = 0;
    EXPECT_EQ(type("missing"), "missing.qdd");
    question.flags = kFileMustExist;
    EXPECT_EQ(type("missing"), "");
    EXPECT_NE(asked, "");
    EXPECT_EQ(type("there"), "there.qdd");
    EXPECT_EQ(type("UP.QDD"), "UP.QDD");
}

TEST_F(QtDialogs, TheFileDialogShowsProposalAndKindsAndStartsWhereTheLastOneEnded) {
    EXPECT_EQ(NameFilters("位置(*.qdd)|*.qdd|All Files(*.*)|*.*"),
              (QStringList{"位置(*.qdd)", "All Files(*)"}));
    EXPECT_EQ(NameFilters("Lists|*.lst;*.txt|No pattern"), QStringList("Lists (*.lst *.txt)"));
    for (const char* start : {"", "sub"}) {
        WhenShown("CommonDialog1", [&](QWidget& widget) {
            auto& dialog = dynamic_cast<QFileDialog&>(widget);
            EXPECT_EQ(dialog.windowTitle(), "Save As...");
            EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "Posi.qdd");
            EXPECT_EQ(dialog.directory(), QDir(folder.filePath(start)));
            dialog.setDirectory(folder.filePath("sub"));
            dynamic_cast<QDialog&>(dialog).accept();
        });
        EXPECT_TRUE(ThePlatform().CommonDialog1.ShowFile(question).has_value());
    }
}

TEST_F(QtDialogs, ThePrinterDialogsComeUpWithOrWithoutAPrinter) {
    const auto show = [](int flags, bool accept) {
        WhenShown("CommonDialog1", [accept](QWidget& dialog) {
            dynamic_cast<QDialog&>(dialog).done(accept ? QDialog::Accepted : QDialog::Rejected);
        });
        return ThePlatform().CommonDialog1.ShowPrinter({flags, 1});
    };
    EXPECT_FALSE(show(0, false).has_value());
    EXPECT_FALSE(show(64, false).has_value());
    InstallQtPrinter();
    SetPrinterOutputFile(folder.filePath("paper.pdf").toStdString());
    EXPECT_EQ(show(0, true), 1);
    SetPrinterOutputFile("");
}

} // namespace
} // namespace qdw8

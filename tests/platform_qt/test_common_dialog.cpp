#include "platform/platform.h"
#include "platform/qt/qt_file_dialog.h"
#include "platform/qt/qt_platform.h"
#include "pump_until.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

namespace qdw8 {
namespace {

/// In a folder with the files "there.qdd" and "UP.QDD" and the folder "sub".
class QtCommonDialog : public ::testing::Test {
protected:
    QtCommonDialog() {
        InstallQtCommonDialog();
        QDir::setCurrent(folder.path());
        QDir(folder.path()).mkdir("sub");
        for (const char* name : {"there.qdd", "UP.QDD"}) {
            QFile(folder.filePath(name)).open(QIODevice::WriteOnly);
        }
    }
    ~QtCommonDialog() override { QDir::setCurrent(before); }

    /// What the dialog answers when the name is typed: the path below the folder, or "" if it
    /// stayed. What Qt asks on the way is answered with No or Ok, and its text kept in `asked`.
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

    QTemporaryDir folder;
    QString before = QDir::currentPath();
    QString asked;
    FileQuestion question{
        FileQuestion::Kind::Save, "Save As...", "Data(*.qdd)|*.qdd", "qdd", "", "",
        kOverwritePrompt};
};

TEST(QtFileDialogFilter, Entries) {
    EXPECT_EQ(NameFilters("位置(*.qdd)|*.qdd|All Files(*.*)|*.*"),
              (QStringList{"位置(*.qdd)", "All Files(*)"}));
    EXPECT_EQ(NameFilters("Lists|*.lst;*.txt"), QStringList("Lists (*.lst *.txt)"));
    EXPECT_EQ(NameFilters("No pattern"), QStringList());
}

TEST_F(QtCommonDialog, ANameToSaveUnderGetsTheExtensionAndTheQuestionIsAboutThatName) {
    const char* const rows[][3] = {{"表 1", "表 1.qdd", ""},
                                   {"2024.11.21", "2024.11.21.qdd", ""},
                                   {"sub/a.QDD", "sub/a.QDD", ""},
                                   {"there", "", "there.qdd"},
                                   {"UP.QDD", "", "UP.QDD"},
                                   {"", "", ""},
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

TEST_F(QtCommonDialog, AMissingFileToOpenIsRefusedOnlyWhenToldTo) {
    question.kind = FileQuestion::Kind::Open;
    question.flags = 0;
    EXPECT_EQ(type("missing"), "missing.qdd");
    question.flags = kFileMustExist;
    EXPECT_EQ(type("missing"), "");
    EXPECT_NE(asked, "");
    EXPECT_EQ(type("there"), "there.qdd");
    EXPECT_EQ(type("UP.QDD"), "UP.QDD");
}

TEST_F(QtCommonDialog, ShowsTheProposalAndStartsWhereTheLastOneEnded) {
    question.fileName = "Posi.qdd";
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

TEST_F(QtCommonDialog, ThePrinterDialogsComeUpWithOrWithoutAPrinter) {
    for (const int flags : {0, 64}) {
        WhenShown("CommonDialog1", [](QWidget& dialog) { dialog.close(); });
        EXPECT_FALSE(ThePlatform().CommonDialog1.ShowPrinter({flags, 1}).has_value());
    }
    InstallQtPrinter();
    SetPrinterOutputFile(folder.filePath("paper.pdf").toStdString());
    WhenShown("CommonDialog1", [](QWidget& dialog) { dynamic_cast<QDialog&>(dialog).accept(); });
    EXPECT_EQ(ThePlatform().CommonDialog1.ShowPrinter({0, 1}), 1);
    SetPrinterOutputFile("");
}

} // namespace
} // namespace qdw8

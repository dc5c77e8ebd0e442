#include "platform/platform.h"
#include "platform/qt/qt_file_dialog.h"
#include "platform/qt/qt_platform.h"
#include "pump_until.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace qdw8 {
namespace {

class QtCommonDialog : public ::testing::Test {
protected:
    QtCommonDialog() {
        InstallQtCommonDialog();
        QDir::setCurrent(folder.path());
    }
    ~QtCommonDialog() override { QDir::setCurrent(before); }

    std::string path(const char* name) const { return folder.filePath(name).toStdString(); }

    static void makeFile(const std::string& name) {
        QFile file(QString::fromStdString(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    QTemporaryDir folder;
    QString before = QDir::currentPath();
};

void Type(QWidget& dialog, const char* name) {
    auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(edit, nullptr);
    edit->setText(QString::fromUtf8(name));
}

void Accept(QWidget& dialog) {
    dynamic_cast<QDialog&>(dialog).accept();
}

/// Types a name and presses the accept button; Qt's own box that this must raise is answered with
/// `button`, and the dialog, which has to be up still, is cancelled.
void TypeAndMeetBox(const char* name, QMessageBox::StandardButton button, bool& met) {
    WhenShown("CommonDialog1", [=, &met](QWidget& dialog) {
        Type(dialog, name);
        WhenShown(QString(), [&met, button](QWidget& widget) {
            auto* box = qobject_cast<QMessageBox*>(&widget);
            met = box != nullptr;
            if (box != nullptr) {
                box->button(button)->click();
            }
        });
        // The box runs inside this call.
        QMetaObject::invokeMethod(&dialog, "accept");
        EXPECT_TRUE(dialog.isVisible());
        dynamic_cast<QDialog&>(dialog).reject();
    });
}

TEST(QtFileDialogFilter, Entries) {
    const struct {
        const char* filter;
        QStringList entries;
    } rows[] = {
        {"Position Data(*.qdd)|*.qdd|All Files(*.*)|*.*", {"Position Data(*.qdd)", "All Files(*)"}},
        {"位置データ(*.qdd)|*.qdd", {"位置データ(*.qdd)"}},
        {"Lists|*.lst;*.txt", {"Lists (*.lst *.txt)"}},
        {"No pattern", {}},
        {"", {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(NameFilters(row.filter), row.entries) << row.filter;
    }
}

TEST_F(QtCommonDialog, SavingAddsTheExtensionAndMovesToTheFolder) {
    FileQuestion question;
    question.kind = FileQuestion::Kind::Save;
    question.title = "Save Position data As...";
    question.filter = "Position Data(*.qdd)|*.qdd|All Files(*.*)|*.*";
    question.defaultExt = "qdd";
    question.fileName = "Posi.qdd";
    question.flags = kOverwritePrompt;
    QDir(folder.path()).mkdir("sub");

    WhenShown("CommonDialog1", [&](QWidget& widget) {
        auto& dialog = dynamic_cast<QFileDialog&>(widget);
        EXPECT_EQ(dialog.windowTitle().toStdString(), question.title);
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text().toStdString(), "Posi.qdd");
        EXPECT_EQ(dialog.directory(), QDir(folder.path()));
        Type(dialog, "sub/表 1");
        Accept(dialog);
    });
    const auto answer = ThePlatform().CommonDialog1.ShowFile(question);
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->path, path("sub/表 1.qdd"));
    EXPECT_EQ(answer->title, "表 1.qdd");
    EXPECT_EQ(QDir::currentPath(), folder.filePath("sub"));

    WhenShown("CommonDialog1", [&](QWidget& widget) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(widget).directory(), QDir(folder.filePath("sub")));
        widget.close();
    });
    EXPECT_FALSE(ThePlatform().CommonDialog1.ShowFile(question).has_value());
}

TEST_F(QtCommonDialog, OverwritingAsksOnlyWhenToldTo) {
    makeFile(path("old.qdd"));
    FileQuestion question;
    question.kind = FileQuestion::Kind::Save;
    question.defaultExt = "qdd";
    question.flags = kOverwritePrompt;
    bool asked = false;
    TypeAndMeetBox("old", QMessageBox::No, asked);
    EXPECT_FALSE(ThePlatform().CommonDialog1.ShowFile(question).has_value());
    EXPECT_TRUE(asked);

    question.flags = 0;
    WhenShown("CommonDialog1", [](QWidget& dialog) {
        Type(dialog, "old");
        Accept(dialog);
    });
    const auto answer = ThePlatform().CommonDialog1.ShowFile(question);
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->path, path("old.qdd"));
}

TEST_F(QtCommonDialog, OpeningAMissingFileIsRefusedOnlyWhenToldTo) {
    FileQuestion question;
    question.defaultExt = "qdd";
    question.flags = kFileMustExist;
    bool told = false;
    TypeAndMeetBox("missing", QMessageBox::Ok, told);
    EXPECT_FALSE(ThePlatform().CommonDialog1.ShowFile(question).has_value());
    EXPECT_TRUE(told);

    for (const int flags : {kFileMustExist, 0}) {
        const char* name = flags == 0 ? "missing" : "there";
        makeFile(path("there.qdd"));
        question.flags = flags;
        WhenShown("CommonDialog1", [&](QWidget& dialog) {
            Type(dialog, name);
            Accept(dialog);
        });
        const auto answer = ThePlatform().CommonDialog1.ShowFile(question);
        ASSERT_TRUE(answer.has_value());
        EXPECT_EQ(answer->title, std::string(name) + ".qdd");
    }
}

TEST_F(QtCommonDialog, ThePrinterDialogsComeUpWithOrWithoutAPrinter) {
    for (const int flags : {0, 64}) {
        WhenShown("CommonDialog1", [](QWidget& dialog) { dialog.close(); });
        EXPECT_FALSE(ThePlatform().CommonDialog1.ShowPrinter({flags, 1}).has_value());
    }
    InstallQtPrinter();
    SetPrinterOutputFile(path("paper.pdf"));
    WhenShown("CommonDialog1", [](QWidget& dialog) { Accept(dialog); });
    EXPECT_EQ(ThePlatform().CommonDialog1.ShowPrinter({0, 1}), 1);
    ThePlatform().ThePrinter.Print(20, 20, "text");
    ThePlatform().ThePrinter.EndDoc();
    EXPECT_TRUE(QFile::exists(folder.filePath("paper.pdf")));
    SetPrinterOutputFile("");
}

} // namespace
} // namespace qdw8

// Message boxes and dialogs, told in dialogs.txt, and where they stand.

#include "platform/platform.h"
#include "platform/qt/dialog_places.h"
#include "platform/qt/kept_places.h"
#include "platform/qt/qt_file_dialog.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/screen_watch.h"
#include "platform/qt/shared_printer.h"
#include "pump.h"
#include "support/story.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>

namespace qdw8::test {
namespace {

/// Calls `act` from the event loop as soon as a modal window of this name is on the screen.
void WhenShown(const QString& name, const std::function<void(QDialog& dialog)>& act) {
    auto* look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, name, act] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog != nullptr && dialog->objectName() == name && dialog->isVisible()) {
            look->deleteLater();
            look->stop();
            act(*dialog);
        }
    });
    look->start(1);
}

void Click(const QWidget& box, const QString& button) {
    QTest::mouseClick(box.findChild<QPushButton*>(button), Qt::LeftButton);
}

class DialogPlayer {
public:
    DialogPlayer() {
        InstallQtMessageBox();
        InstallQtCommonDialog();
        InstallQtDialogPlaces();
        InstallQtPrinter();
        window->setGeometry(100, 80, 500, 400);
        window->show();
        EXPECT_TRUE(PumpUntil([&] { return window->isActiveWindow(); }));
        QDir::setCurrent(folder.path());
        QDir(folder.path()).mkdir("sub");
        for (const char* name : {"there.qdd", "UP.QDD", "taken-9.pdf"}) {
            EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        }
    }
    ~DialogPlayer() {
        EXPECT_FALSE(QSettings(QSettings::UserScope, "QtProject").isWritable());
        SetPrinterOutputFile("");
        SetStandardTexts({});
        QDir::setCurrent(before);
        delete window;
    }
    void tell(const std::string& line) const { PlayVerb(verbs, line); }

    QPointer<QWidget> window = new QWidget;

private:
    std::string box(const QString& text) {
        const QStringList kinds{"Ok", "Ok Cancel", "Yes No", "Yes No Cancel"};
        const QString act = text.section(" / ", 1);
        bool stays = false;
        WhenShown("MessageBox", [&](QDialog& dialog) {
            const auto& its = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(its.text(), "<b>line\n\nline</b>");
            EXPECT_EQ(its.textFormat(), Qt::PlainText);
            EXPECT_EQ(its.icon(), QMessageBox::Question);
            shown = its.windowTitle() + ", " + its.buttons().constFirst()->text();
            act == "gone"     ? delete window
            : act == "escape" ? QTest::keyClick(&dialog, Qt::Key_Escape)
            : act == "enter"  ? QTest::keyClick(&dialog, Qt::Key_Return)
            : act == "close"  ? void(dialog.close())
                              : Click(dialog, act);
            stays = window && dialog.isVisible();
            if (stays) {
                Click(dialog, "No");
            }
        });
        const auto buttons = static_cast<BoxButtons>(kinds.indexOf(text.section(" / ", 0, 0)));
        const auto answer = static_cast<std::size_t>(ThePlatform().ShowMessageBox(
            {"<b>line\r\n\r\nline</b>", buttons, title, BoxIcon::Question, mild}));
        const char* const names[] = {"Ok", "Cancel", "Yes", "No"};
        return stays ? "stays" : names[answer];
    }
    /// "whole" if nothing of a box with a list of so many numbers is cut off.
    static std::string list(const std::string& count) {
        std::string text = "No. ";
        for (int number = 1; number <= std::stoi(count); ++number) {
            text += std::to_string(number) + ",";
        }
        bool whole = false;
        WhenShown("MessageBox", [&](QDialog& dialog) {
            const auto& label = *dialog.findChild<QLabel*>("qt_msgbox_label");
            const QRect needed = label.fontMetrics().boundingRect(
                QRect(0, 0, label.width(), 1 << 20), Qt::TextWordWrap, label.text());
            whole = QRect(QPoint(), label.size()).contains(needed) &&
                    dialog.screen()->availableGeometry().contains(dialog.frameGeometry()) &&
                    QString(label.text()).remove(QChar(0x200B)).toStdString() == text;
            Click(dialog, "Ok");
        });
        ThePlatform().ShowMessageBox({text, BoxButtons::Ok, "", {}});
        return whole ? "whole" : "cut";
    }
    void answerMildly(const std::function<void()>& act) {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                asked = box->text().section('\n', 0, 0).section(' ', 0, 0).section('/', -1);
                box->buttons().constLast()->click();
            }
        });
        look.start(1);
        act();
    }
    std::string type(const std::string& name) {
        asked.clear();
        WhenShown("CommonDialog1", [&](QDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
            shown = dialog.windowTitle() + ", " + edit->text() + ", " +
                    QDir(folder.path())
                        .relativeFilePath(dynamic_cast<QFileDialog&>(dialog).directory().path());
            edit->setText(QString::fromStdString(name));
            answerMildly([&dialog] { dialog.accept(); });
            if (dialog.isVisible()) {
                dialog.close();
            }
        });
        const auto answer = ThePlatform().CommonDialog1.ShowFile(question);
        const QString path = QString::fromStdString(answer ? answer->path : "");
        EXPECT_EQ(QFileInfo(path).fileName().toStdString(), answer ? answer->title : "");
        return path.isEmpty() ? "" : QDir(folder.path()).relativeFilePath(path).toStdString();
    }
    static std::string printer(const std::string& text) {
        WhenShown("CommonDialog1", [accept = text.ends_with("accept")](QDialog& dialog) {
            dialog.done(accept ? QDialog::Accepted : QDialog::Rejected);
        });
        const PrinterAnswer answer =
            ThePlatform().CommonDialog1.ShowPrinter({std::stoi(text), false});
        return std::to_string(static_cast<int>(answer));
    }

    std::string paper(const QString& name, const QString& button) {
        asked.clear();
        WhenShown("CommonDialog1", [&](QDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>("filename");
            shown = QFileInfo(edit->text()).fileName();
            edit->setText(name);
            answerMildly([&] { Click(dialog, button); });
            if (dialog.isVisible()) {
                dialog.close();
            }
        });
        const PrinterAnswer answer = ThePlatform().CommonDialog1.ShowPrinter({0, true});
        return answer == PrinterAnswer::Cancel
                   ? ""
                   : QDir(folder.path())
                         .relativeFilePath(SharedPrinter().outputFileName())
                         .toStdString();
    }

    QTemporaryDir folder;
    QString before = QDir::currentPath();
    std::string title;
    bool mild = false;
    QString asked;
    QString shown;
    FileQuestion question{
        FileQuestion::Kind::Save, "Save As...", "Data(*.qdd)|*.qdd", "qdd", "Posi.qdd", "",
        kOverwritePrompt};
    const Verbs verbs{
        {"box", [this](auto& text) { return box(QString::fromStdString(text)); }},
        {"list", list},
        {"title", Does([this](auto& text) { title = text; })},
        {"mild", Does([this](auto&) { mild = true; })},
        {"words", Does([](auto& yes) { SetStandardTexts({.yes = yes}); })},
        {"type", [this](auto& name) { return type(name); }},
        {"asked", [this](auto&) { return asked.toStdString(); }},
        {"shown", [this](auto&) { return shown.toStdString(); }},
        {"save", Does([this](auto& flags) { question.flags = std::stoi(flags); })},
        {"open", Does([this](auto& flags) {
             question.kind = FileQuestion::Kind::Open;
             question.flags = std::stoi(flags);
         })},
        {"ext", Does([this](auto& text) { question.defaultExt = text; })},
        {"filters", [](auto& text) { return NameFilters(text).join(';').toStdString(); }},
        {"printer", [](auto& text) { return printer(text); }},
        {"look",
         [this](auto& name) { return paper(QString::fromStdString(name), "cmdPrintPreview"); }},
        {"print",
         [this](auto& name) { return paper(QString::fromStdString(name), "cmdPrinterPrint"); }},
        {"paper", Does([this](auto& name) {
             SetPrinterOutputFile(folder.filePath(QString::fromStdString(name)).toStdString());
         })}};
};

TEST(QtDialogs, ComeOutAsTold) {
    TellStories<DialogPlayer>(QDW8_SOURCE_DIR "/tests/platform_qt/dialogs.txt", 8);
}

TEST(QtDialogs, ABoxStandsOverItsWindowAndGoesAlongUntilTheUserMovesIt) {
    const DialogPlayer player;
    QWidget& window = *player.window;
    const QRect screen = window.screen()->availableGeometry();
    const auto isCentred = [&](const QWidget& box) {
        return (box.frameGeometry().center() - window.frameGeometry().center()).manhattanLength() <
               4;
    };
    WhenShown("MessageBox", [&](QDialog& box) {
        EXPECT_TRUE(isCentred(box));
        window.move(200, 150);
        EXPECT_TRUE(PumpUntil([&] { return isCentred(box); }));
        box.move(3, 3);
        window.move(-450, -350);
        QCoreApplication::processEvents();
        EXPECT_EQ(box.pos(), QPoint(3, 3));
        Click(box, "Ok");
    });
    ThePlatform().ShowMessageBox({"text", BoxButtons::Ok, "", {}});
    QDialog dialog(&window);
    for (const QSize size : {QSize(200, 100), screen.size() * 2, QSize(200, 100)}) {
        dialog.resize(size);
        dialog.show();
        EXPECT_TRUE(screen.contains(dialog.frameGeometry()));
        dialog.hide();
        window.move(100, 80);
    }
    dialog.show();
    EXPECT_TRUE(isCentred(dialog)) << "as at the first time";
    auto* text = new QLabel("short", &dialog);
    (new QVBoxLayout(&dialog))->addWidget(text);
    dialog.layout()->setSizeConstraint(QLayout::SetFixedSize);
    text->setFixedWidth(370); // its size comes only now
    EXPECT_TRUE(PumpUntil([&] { return dialog.width() > 370; }));
    EXPECT_TRUE(isCentred(dialog));
    dialog.move(3, 3);
    text->setFixedWidth(200);
    EXPECT_TRUE(PumpUntil([&] { return dialog.width() < 370; }));
    EXPECT_EQ(dialog.pos(), QPoint(3, 3)) << "where the user has put it";
    QDialog placed(&window);
    placed.move(5, 6);
    placed.show();
    EXPECT_EQ(placed.pos(), QPoint(5, 6));
}

TEST(QtDialogs, AWindowComesBackWhereItWasAndShowsTheOthersWhenItIsNew) {
    const DialogPlayer player;
    QWidget& window = *player.window;
    const QRect screen = window.screen()->availableGeometry();
    ForgetPlaces();
    const auto open = [&](const char* name, QSize size) {
        auto made = std::make_unique<QDialog>(&window);
        made->setObjectName(name);
        KeepPlace(*made);
        made->resize(size);
        made->show();
        return made;
    };
    const auto first = open("first", {300, 200});
    auto over = open("over", {320, 240});
    EXPECT_TRUE(screen.contains(over->frameGeometry()));
    EXPECT_FALSE(over->frameGeometry().contains(first->frameGeometry().topLeft()));
    over->setGeometry(33, 44, 222, 111);
    over->hide();
    over = open("over", {320, 240});
    EXPECT_EQ(over->geometry(), QRect(33, 44, 222, 111));
    over->move(screen.bottomRight() + QPoint(500, 500)); // on a screen that is gone
    over->hide();
    over->show();
    EXPECT_TRUE(screen.contains(over->geometry()));
    QDialog result(&window);
    EXPECT_EQ(KeepSize(result, {9, 9}), QSize(9, 9));
    result.resize(250, 150);
    result.show();
    result.hide();
    EXPECT_EQ(KeepSize(result, {9, 9}), QSize(250, 150));
}

TEST(QtDialogs, WhatStoodOnAScreenThatGoesOrShrinksComesBackOntoWhatIsLeft) {
    InstallQtScreenWatch();
    const DialogPlayer player;
    QWidget& window = *player.window;
    QDialog dialog(&window);
    dialog.show();
    QScreen& left = *window.screen();
    const QRect room = left.availableGeometry();
    const auto comesBack = [&room](const QWidget& of) {
        return PumpUntil([&] { return room.contains(of.frameGeometry()); });
    };
    window.setGeometry(room.translated(room.width(), 90));
    dialog.move(-900, -900);
    emit qGuiApp->screenRemoved(&left);
    EXPECT_TRUE(comesBack(window) && comesBack(dialog));
    window.setGeometry(room.adjusted(50, 50, 50, 50));
    emit left.availableGeometryChanged(room);
    EXPECT_TRUE(comesBack(window));
}

} // namespace
} // namespace qdw8::test

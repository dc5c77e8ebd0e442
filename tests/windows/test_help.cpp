// The manual as it stands in the tree, in both languages, and the window that shows it.

#include "app/string_table.h"
#include "main_form.h"
#include "platform/cp932_text.h"
#include "platform/whole_file.h"
#include "program/commands.h"
#include "windows/help/frmHelp.h"

#include <QDir>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QWindow>

namespace qdw8::test {
namespace {

QStringList All(const QString& text, const char* pattern) {
    QStringList found;
    const QRegularExpression expression(QString::fromLatin1(pattern),
                                        QRegularExpression::MultilineOption);
    for (const auto& match : expression.globalMatch(text)) {
        found << match.captured(1);
    }
    return found;
}

QStringList PlacesOn(const QString& body) {
    return All(body, "name=\"([^\"]*)\"");
}

QString FileOfTree(const char* path) {
    return QString::fromStdString(FromCp932(ReadWholeFile(std::string(QDW8_SOURCE_DIR) + path)));
}

class Help : public MainForm {
protected:
    Help() {
        ThePlatform().programFolder = QDW8_SOURCE_DIR;
        InstallHelpKey(owner, [this](const HelpAsked& asked) { ShowHelp(help, asked); });
    }

    /// What leads nowhere, pictures that no page shows, and numbers that have no row.
    static QStringList faultsOf(const Manual& manual) {
        QStringList faults;
        QStringList leads = manual.names.values();
        for (const auto& [word, place] : manual.words) {
            leads << place;
        }
        QStringList pictures = QDir(manual.folder + "/pictures").entryList(QDir::Files);
        QStringList places = pictures.replaceInStrings(QRegularExpression("^"), "pictures/");
        for (const ManualPage& row : manual.rows) {
            const QString body = row.file.isEmpty() ? QString() : PageBody(manual, row.file);
            faults << All(body, "(\\{\\d+\\})");
            leads << All(body, "src=\"([^\"]*)\"");
            for (const QString& link : All(body, "href=\"([^\"]*)\"")) {
                leads << (link.startsWith(u'#') ? row.file + link : link);
            }
            for (const QString& place : PlacesOn(body)) {
                places << row.file + u'#' + place;
            }
            places << (body.isEmpty() ? QString() : row.file);
        }
        for (const QString& lead : leads) {
            faults << (places.contains(lead) ? QString() : lead);
        }
        for (const QString& picture : pictures) {
            faults << (leads.contains(picture) ? QString() : picture);
        }
        return faults;
    }

    /// Windows, commands and alarms that have no place.
    static QStringList gapsOf(const Manual& manual, const char* alarmList) {
        QStringList gaps;
        for (const QString& name : All(FileOfTree("/tests/windows/forms.txt"), "^(frm\\w+)")) {
            gaps << (manual.names.contains(name) ? QString() : name);
        }
        const QStringList told = PlacesOn(PageBody(manual, "commands.html"));
        for (const CommandRow& row : Commands().rows) {
            const std::string_view name = NameOf(row.entry ? row.entry->name : row.button->name);
            const QString place = QString::fromLatin1(name.data(), qsizetype(name.size()));
            gaps << (told.contains(place) ? QString() : place);
        }
        const QString alarms = PageBody(manual, "alarms.html");
        for (const QString& alarm : All(FileOfTree(alarmList), "^\".*\",\"(.*)\"")) {
            gaps << (alarms.contains(u'>' + alarm + u'<') ? QString() : alarm);
        }
        return gaps;
    }

    std::string file() const {
        return help->findChild<QTextBrowser*>()->source().fileName().toStdString();
    }
    std::string marked() const {
        return help->findChild<QTextBrowser*>()->textCursor().selectedText().toStdString();
    }

    std::unique_ptr<frmHelp> help;
    QObject owner;
};

TEST_F(Help, TheManualIsWhole) {
    std::vector<QString> before;
    for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{0}}) {
        speak(base);
        const Manual manual = ReadManual().value_or(Manual{});
        QStringList wrong = faultsOf(manual);
        wrong << gapsOf(manual, base == 0 ? "/data/errorjpn.lst" : "/data/erroreng.lst");
        wrong.removeAll(QString());
        EXPECT_EQ(wrong.join(u' ').toStdString(), "");
        std::vector<QString> now;
        for (const ManualPage& row : manual.rows) {
            now.push_back(row.file);
        }
        EXPECT_TRUE(before.empty() || before == now) << "both languages have the same pages";
        before = now;
    }
}

TEST_F(Help, F1OpensThePageOfWhatIsInFront) {
    platform.expectBox(ResText(414));
    ThePlatform().programFolder = "/nowhere";
    key(Qt::Key_F1);
    ThePlatform().programFolder = QDW8_SOURCE_DIR;
    key(Qt::Key_F1);
    EXPECT_EQ(file(), "main.html");
    EXPECT_EQ(help->windowTitle(), "The main window - Help");
    help->resize(640, 500);
    EXPECT_EQ(help->findChild<QTextBrowser*>()->horizontalScrollBar()->maximum(), 0)
        << "the picture is cut off";
    // In front of a box, at its message; and the pages can be used while it is up.
    QMessageBox box(window.get());
    box.setObjectName("MessageBox");
    box.setText(QString::fromStdString(ResText(433) + "\r\n" + ResText(434)));
    box.open();
    QTest::keyClick(&box, Qt::Key_F1);
    EXPECT_EQ(file() + ' ' + marked(), "messages.html " + ResText(433));
    EXPECT_EQ(help->windowHandle()->transientParent(), box.windowHandle());
    EXPECT_FALSE(help->geometry().contains(box.geometry()));
    QTest::keyClick(help.get(), Qt::Key_F1);
    EXPECT_EQ(file(), "help.html");
    QTest::keyClick(&Get<QWidget>(*window, "FrameLine"), Qt::Key_F1);
    EXPECT_EQ(file(), "connect.html");
}

TEST_F(Help, WordsAreFoundInIndexAndText) {
    ShowHelp(help, {});
    EXPECT_EQ(file(), "start.html");
    Get<QLineEdit>(*help, "txtSearch").setText("cabinet  OVERHEAT");
    auto& found = Get<QListWidget>(*help, "lstFound");
    QTest::keyClick(&Get<QLineEdit>(*help, "txtSearch"), Qt::Key_Return);
    EXPECT_EQ(file(), "alarms.html");
    EXPECT_FALSE(help->findChild<QTextBrowser*>()->extraSelections().isEmpty());
    Get<QLineEdit>(*help, "txtSearch").setText("cabinet nowhere");
    EXPECT_EQ(found.item(0)->text().toStdString(), ResText(3331));
    auto& index = Get<QListWidget>(*help, "lstIndex");
    Get<QLineEdit>(*help, "txtIndex").setText("DIALO");
    for (int row = 0; row < index.count(); ++row) {
        index.setCurrentRow(index.item(row)->isHidden() ? index.currentRow() : row);
    }
    EXPECT_EQ(file(), "connect.html") << "the only one that is left";
}

TEST_F(Help, TheWholeManualIsSavedAsPdf) {
    ShowHelp(help, {});
    const std::string path = testing::TempDir() + "help.pdf";
    ThePlatform().CommonDialog1.ShowFile = [&](const FileQuestion&) {
        return std::optional(FileAnswer{path, "help.pdf"});
    };
    QTest::mouseClick(&Get<QPushButton>(*help, "cmdSavePdf"), Qt::LeftButton);
    const std::string pdf = ReadWholeFile(path);
    EXPECT_TRUE(pdf.starts_with("%PDF-"));
    EXPECT_GT(All(QString::fromLatin1(pdf.data(), qsizetype(pdf.size())), "(/Type /Page\n)").size(),
              27);
}

} // namespace
} // namespace qdw8::test

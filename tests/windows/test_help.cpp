// The manual as it stands in the tree, in both languages, and the window that shows it.

#include "app/string_table.h"
#include "main_form.h"
#include "platform/whole_file.h"
#include "program/commands.h"
#include "windows/help/frmHelp.h"

#include <QDir>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>

namespace qdw8::test {
namespace {

QStringList All(const QString& text, const char* pattern) {
    QStringList found;
    for (const auto& match : QRegularExpression(QLatin1String(pattern)).globalMatch(text)) {
        found << match.captured(1);
    }
    return found;
}

class Help : public MainForm {
protected:
    Help() { ThePlatform().programFolder = QDW8_SOURCE_DIR; }

    /// What leads nowhere, and what is said in numbers that have no row.
    static std::string faultsOf(const Manual& manual) {
        QStringList faults;
        QStringList leads = manual.names.values();
        for (const auto& [word, place] : manual.words) {
            leads << place;
        }
        QStringList reached;
        for (const ManualPage& row : manual.rows) {
            const QString body = row.file.isEmpty() ? QString() : PageBody(manual, row.file);
            faults << All(body, "(\\{\\d+\\})");
            leads << All(body, "src=\"([^\"]*)\"") << row.file;
            for (const QString& link : All(body, "href=\"([^\"]*)\"")) {
                leads << (link.startsWith(u'#') ? row.file + link : link);
            }
            reached << row.file;
        }
        for (const QString& lead : leads) {
            const QString file = lead.section(u'#', 0, 0);
            const QString place = lead.section(u'#', 1);
            const bool there = QFile::exists(manual.folder + u'/' + file) &&
                               (file.startsWith("pictures/") || reached.contains(file)) &&
                               (place.isEmpty() ||
                                All(PageBody(manual, file), "name=\"([^\"]*)\"").contains(place));
            faults << (there ? QString() : lead);
        }
        // Nothing lies about that no page shows.
        for (const QString& name : QDir(manual.folder + "/pictures").entryList(QDir::Files)) {
            faults << (leads.contains("pictures/" + name) ? QString() : name);
        }
        faults.removeAll(QString());
        return faults.join(' ').toStdString();
    }
};

TEST_F(Help, TheManualIsWhole) {
    for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{0}}) {
        speak(base);
        const Manual manual = ReadManual().value_or(Manual{});
        EXPECT_EQ(faultsOf(manual), "");
    }
}

TEST_F(Help, F1OpensThePageOfWhatIsInFront) {
    std::unique_ptr<frmHelp> help;
    QObject owner;
    InstallHelpKey(owner, [&help](const HelpAsked& asked) { ShowHelp(help, asked); });
    platform.expectBox(ResText(414));
    ThePlatform().programFolder = "/nowhere";
    key(Qt::Key_F1);
    EXPECT_FALSE(help);
    ThePlatform().programFolder = QDW8_SOURCE_DIR;
    key(Qt::Key_F1);
    const auto* page = help->findChild<QTextBrowser*>();
    EXPECT_EQ(page->source().fileName().toStdString(), "main.html");
}

} // namespace
} // namespace qdw8::test

#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <optional>
#include <utility>
#include <vector>

/// The manual as it lies beside the program: a folder of pages for each language, with the file
/// `contents.txt` that tells their order, what they are about and where they belong.
///
/// A line of that file at the margin is the title of a chapter. One that begins with a tab is a
/// page, in four fields between tabs: its file, its title, the names of the windows and controls
/// that it belongs to, with blanks between them, and the words of the index, with semicolons. A
/// name or a word may end in "=" and a place on the page.
///
/// A page is what stands between the beginning and the end of an HTML body, without its title.
/// {203} in it is that row of the string table, as a control shows it: what the user reads in the
/// manual is what he sees on the screen.
namespace qdw8 {

struct ManualPage {
    QString file; ///< empty: a chapter
    QString title;
};

struct Manual {
    QString folder;
    std::vector<ManualPage> rows; ///< chapters and pages, in their order; a page is among them
    /// Where the names and words lead: "file.html" or "file.html#place".
    QHash<QString, QString> names;
    std::vector<std::pair<QString, QString>> words; ///< sorted as the language has it

    /// The first page.
    QString home() const;
    /// Where the first of the names that has a place leads; else the first page.
    QString placeOf(const QStringList& asked) const;
    /// The title of a page, empty for a file that is none.
    QString titleOf(const QString& file) const;
    QUrl url(const QString& place) const;
};

/// The manual in the language of the run, beside the program. Nothing: it isn't there.
std::optional<Manual> ReadManual();

/// A page as the browser takes it, with its title; empty if its file can't be read.
QString PageHtml(const Manual& manual, const QString& file);
/// What stands on it below the title, the texts put in.
QString PageBody(const Manual& manual, const QString& file);
/// The style sheet of all languages, for the head of a document.
QString StyleSheet(const Manual& manual);

/// The pages that hold all the words of a question, the one that is most about them first.
class ManualSearch {
public:
    explicit ManualSearch(const Manual& of) : manual(of) {}
    /// Files. The first call reads all pages.
    QStringList find(const QString& question);

private:
    void read();

    const Manual& manual;
    std::vector<std::pair<QString, QString>> texts; ///< file and what it says, in small letters
};

/// The words of a question.
QStringList WordsOf(const QString& question);

} // namespace qdw8

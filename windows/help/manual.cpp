#include "windows/help/manual.h"

#include "app/Module1.h"
#include "platform/platform.h"
#include "windows/controls/texts.h"

#include <QCollator>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>
#include <exception>

namespace qdw8 {
namespace {

constexpr int kTitleWeight = 20; ///< a word in the title tells more than one in the text
/// Characters. A short page with a word is more about it than a long list that has it, too.
constexpr double kShortPage = 500.0;

std::optional<QString> ReadText(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QString::fromUtf8(file.readAll());
}

/// "word=place" of a page leads to "file#place".
std::pair<QString, QString> Lead(const QString& file, const QString& entry) {
    const QString place = entry.section(u'=', 1);
    return {entry.section(u'=', 0, 0).trimmed(), place.isEmpty() ? file : file + u'#' + place};
}

void TakeLine(Manual& manual, const QString& line) {
    const QStringList fields = line.split(u'\t');
    if (!line.startsWith(u'\t')) {
        manual.rows.push_back({{}, line});
        return;
    }
    const QString& file = fields.value(1);
    manual.rows.push_back({file, fields.value(2)});
    for (const QString& name : fields.value(3).split(u' ', Qt::SkipEmptyParts)) {
        manual.names.insert(Lead(file, name).first, Lead(file, name).second);
    }
    for (const QString& word : fields.value(4).split(u';', Qt::SkipEmptyParts)) {
        manual.words.push_back(Lead(file, word));
    }
}

/// The row of the string table as a control shows it: without the mark of the mnemonic, or the
/// whole bracket that was put behind for one.
QString Shown(const QString& number) {
    static const QRegularExpression bracket(QStringLiteral("\\(&.\\s*\\)"));
    try {
        QString text = ResQText(static_cast<std::int16_t>(number.toInt()));
        return text.remove(bracket).remove(u'&').trimmed().toHtmlEscaped();
    } catch (const std::exception&) {
        return u'{' + number + u'}'; // one wrong number leaves the rest of the page readable
    }
}

} // namespace

QString Manual::home() const {
    const auto first = std::find_if(rows.begin(), rows.end(),
                                    [](const ManualPage& row) { return !row.file.isEmpty(); });
    return first == rows.end() ? QString() : first->file;
}

QString Manual::placeOf(const QStringList& asked) const {
    const auto known = std::find_if(asked.begin(), asked.end(),
                                    [this](const QString& name) { return names.contains(name); });
    return known == asked.end() ? home() : names.value(*known);
}

QString Manual::titleOf(const QString& file) const {
    const auto page = std::find_if(rows.begin(), rows.end(), [&file](const ManualPage& row) {
        return !file.isEmpty() && row.file == file;
    });
    return page == rows.end() ? QString() : page->title;
}

QUrl Manual::url(const QString& place) const {
    QUrl url = QUrl::fromLocalFile(folder + u'/' + place.section(u'#', 0, 0));
    if (place.contains(u'#')) {
        url.setFragment(place.section(u'#', 1));
    }
    return url;
}

std::optional<Manual> ReadManual() {
    const bool japanese = LanguageBase == 0;
    Manual manual;
    manual.folder = QString::fromStdString(ThePlatform().programFolder) +
                    QLatin1String(japanese ? "/manual/ja" : "/manual/en");
    const auto contents = ReadText(manual.folder + QLatin1String("/contents.txt"));
    if (!contents) {
        return {};
    }
    for (const QString& line : contents->split(u'\n', Qt::SkipEmptyParts)) {
        TakeLine(manual, line);
    }
    if (!QFile::exists(manual.folder + u'/' + manual.home())) {
        return {};
    }
    QCollator collator(QLocale(japanese ? QLocale::Japanese : QLocale::English));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(
        manual.words.begin(), manual.words.end(),
        [&collator](const auto& a, const auto& b) { return collator(a.first, b.first); });
    return manual;
}

QString StyleSheet(const Manual& manual) {
    return QStringLiteral("<style>") +
           ReadText(manual.folder + QLatin1String("/../style.css")).value_or(QString()) +
           QStringLiteral("</style>");
}

QString PageBody(const Manual& manual, const QString& file) {
    static const QRegularExpression number(QStringLiteral("\\{(\\d{1,4})\\}"));
    const QString text = ReadText(manual.folder + u'/' + file).value_or(QString());
    QString body;
    qsizetype from = 0;
    for (const QRegularExpressionMatch& match : number.globalMatch(text)) {
        body += text.mid(from, match.capturedStart() - from) + Shown(match.captured(1));
        from = match.capturedEnd();
    }
    return body + text.mid(from);
}

QString PageHtml(const Manual& manual, const QString& file) {
    const QString body = PageBody(manual, file);
    if (body.isEmpty()) {
        return {};
    }
    return QStringLiteral("<html><head>") + StyleSheet(manual) +
           QStringLiteral("</head><body><h1>") + manual.titleOf(file).toHtmlEscaped() +
           QStringLiteral("</h1>") + body + QStringLiteral("</body></html>");
}

QStringList WordsOf(const QString& question) {
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    return question.toLower().split(blanks, Qt::SkipEmptyParts);
}

void ManualSearch::read() {
    for (const ManualPage& page : manual.rows) {
        if (!page.file.isEmpty()) {
            QTextDocument text;
            text.setHtml(PageBody(manual, page.file));
            texts.emplace_back(page.file, text.toPlainText().toLower());
        }
    }
}

QStringList ManualSearch::find(const QString& question) {
    if (texts.empty()) {
        read();
    }
    const QStringList words = WordsOf(question);
    std::vector<std::pair<double, QString>> found;
    for (const auto& [file, text] : texts) {
        const QString title = manual.titleOf(file).toLower();
        qsizetype all = 0;
        const bool fits =
            !words.isEmpty() && std::all_of(words.begin(), words.end(), [&](const QString& word) {
                const qsizetype times = text.count(word) + kTitleWeight * title.count(word);
                all += times;
                return times > 0;
            });
        if (fits) {
            found.emplace_back(
                static_cast<double>(all) / (kShortPage + static_cast<double>(text.size())), file);
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    QStringList files;
    for (const auto& [share, file] : found) {
        files += file;
    }
    return files;
}

} // namespace qdw8

#include "story.h"

#include "gui.h"
#include "words.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <QVector>

namespace e2e {

namespace {

struct Line {
    QString place;
    QStringList words;
};

/// A story, or a word that is made of others: its parameters, and what it does.
struct Part {
    QStringList head;
    QVector<Line> lines;
};

QHash<QString, Part> stories;
QHash<QString, Part> made;
Words known;
QString playing;
QHash<int, QString> texts; // of the program's table, in the language of the story

QStringList LinesOf(const QString& path) {
    return QString::fromUtf8(ContentOf(path)).split(u'\n');
}

/// Bare words and texts in double quotes.
QStringList Split(const QString& line) {
    static const QRegularExpression word("\"((?:[^\"\\\\]|\\\\.)*)\"|(\\S+)");
    QStringList words;
    for (const QRegularExpressionMatch& match : word.globalMatch(line)) {
        words += match.hasCaptured(2)
                     ? match.captured(2)
                     : match.captured(1).replace("\\n", "\n").replace("\\\"", "\"");
    }
    return words;
}

/// A line at the margin begins a part, lines further in are what it does.
void ReadStories() {
    const QDir folder(STORIES_FOLDER);
    for (const QString& name : folder.entryList({"*.txt"})) {
        Part* part = nullptr;
        int number = 0;
        for (const QString& line : LinesOf(folder.filePath(name))) {
            const Line read{QString("%1:%2: %3").arg(name).arg(++number).arg(line.trimmed()),
                            Split(line)};
            if (read.words.isEmpty() || read.words[0].startsWith(u'#')) {
                continue;
            }
            NowAt(read.place);
            if (line.startsWith(u' ') && part != nullptr) {
                part->lines += read;
                continue;
            }
            const bool isWord = read.words[0] == "to";
            part = &(isWord ? made : stories)[read.words.value(1)];
            if (!part->lines.isEmpty() || line.startsWith(u' ')) {
                Fail("not the beginning of a new part");
            }
            part->head = read.words.mid(2);
        }
    }
}

void ReadTexts(const QString& language) {
    for (const QString& row : LinesOf(QString(TEXTS_FOLDER "/%1.txt").arg(language))) {
        const qsizetype tab = row.indexOf(u'\t');
        texts.insert(row.left(tab).toInt() % 10000, row.mid(tab + 1));
    }
}

/// {374} is that text of the program, {3204:9} one with a number in it, {work} the folder it runs
/// in, {home} that of its user, <NAME> a parameter, <...> all that were told beyond the named ones.
QStringList Meant(const QStringList& words, const QStringList& names, const QStringList& told) {
    QStringList meant;
    for (QString word : words) {
        if (word == "<...>") {
            meant += told.mid(names.size());
            continue;
        }
        for (qsizetype i = 0; i < names.size(); ++i) {
            word.replace(u'<' + names[i] + u'>', told.value(i));
        }
        word.replace("{work}", QDir::currentPath());
        word.replace("{home}", qEnvironmentVariable("QDW8_USER_HOME"));
        static const QRegularExpression number("\\{(\\d+)(?::(\\d+))?\\}");
        for (auto match = number.match(word); match.hasMatch(); match = number.match(word)) {
            const int id = match.captured(1).toInt();
            if (!texts.contains(id)) {
                Fail(QString("there is no text %1").arg(id));
            }
            word.replace(match.capturedStart(), match.capturedLength(),
                         QString(texts[id]).replace("%1", match.captured(2)));
        }
        meant += word;
    }
    return meant;
}

void Play(const Part& part, const QStringList& told, const QString& within) {
    for (const Line& line : part.lines) {
        NowAt(within + line.place);
        const QStringList words = Meant(line.words, part.head, told);
        const QString word = words[0];
        if (made.contains(word) && words.size() > made[word].head.size()) {
            Play(made[word], words.mid(1), within + line.place + u'\n');
        } else if (known.contains(word)) {
            known[word](words.mid(1));
        } else {
            Fail("not understood");
        }
    }
}

} // namespace

void OpenStory(const QString& name) {
    ReadStories();
    for (const Words& some : {ScreenWords(), GridWords(), ControllerWords()}) {
        known.insert(some);
    }
    if (!stories.contains(name)) {
        Fail("no story is named " + name);
    }
    playing = name;
    const QStringList head = stories[name].head;
    ReadTexts(head.contains("Language=1") ? "japanese" : "english");
    // Behind another story it finds the settings that this one left.
    if (head.value(0) != "after") {
        const QDir config(qEnvironmentVariable("XDG_CONFIG_HOME") + "/QD-W8");
        QFile file(config.filePath("settings.ini"));
        config.mkpath(".");
        if (!file.open(QIODevice::WriteOnly)) {
            Fail(file.fileName() + ": can't be written");
        }
        file.write("[Settings]\n" + head.join(u'\n').toUtf8() + '\n');
    }
}

void PlayStory() {
    Play({{}, stories[playing].lines}, {}, QString());
    Fail("the story is over and the program still there");
}

} // namespace e2e

#include "user.h"

#include "hands.h"
#include "looking.h"
#include "table.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QHash>
#include <QMessageBox>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTextStream>
#include <QThread>
#include <atomic>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace e2e {

namespace {

constexpr unsigned long kLookEvery = 10; // ms

QString homeFolder() {
    return qEnvironmentVariable("QDW8_USER_HOME");
}
QString pictureFolder() {
    return qEnvironmentVariable("QDW8_USER_PICTURES");
}

/// Set when a failure is being reported: nothing in the report may fail again.
std::atomic_flag reporting = ATOMIC_FLAG_INIT;

QStringList visibleWindows() {
    QStringList list;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            const auto* box = qobject_cast<const QMessageBox*>(window);
            list += QStringLiteral("%1 \"%2\"%3%4")
                        .arg(window->objectName(), window->windowTitle(),
                             window->isModal() ? QStringLiteral(" (modal)") : QString(),
                             box != nullptr ? QStringLiteral(": ") + box->text() : QString());
        }
    }
    return list;
}

void pictureWindows() {
    int number = 0;
    QDir().mkpath(pictureFolder());
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            window->grab().save(QStringLiteral("%1/failed-%2-%3.png")
                                    .arg(pictureFolder(), QDir(homeFolder()).dirName())
                                    .arg(++number));
        }
    }
}

/// A routine on its way to the program's thread.
class Errand : public QEvent {
public:
    explicit Errand(std::function<void()> toDo) : QEvent(QEvent::User), routine(std::move(toDo)) {}
    std::function<void()> routine;
};

class Ear : public QObject {
protected:
    void customEvent(QEvent* event) override { static_cast<Errand*>(event)->routine(); }
};

QString language = QStringLiteral("english");

QHash<int, QString> readTexts() {
    QHash<int, QString> texts;
    QFile file(QStringLiteral(TEXTS_FOLDER "/%1.txt").arg(language));
    if (!file.open(QIODevice::ReadOnly)) {
        fail(file.fileName() + QStringLiteral(": can't be read"));
    }
    const QStringList rows = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString& row : rows) {
        const qsizetype tab = row.indexOf(u'\t');
        texts.insert(row.left(tab).toInt() % 10000, row.mid(tab + 1));
    }
    return texts;
}

} // namespace

QString configFolder() {
    return qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/QD-W8");
}

QString workFolder() {
    return QDir::currentPath();
}

void writeSettings(const Settings& settings) {
    QDir().mkpath(configFolder());
    QFile file(configFolder() + QStringLiteral("/settings.ini"));
    if (!file.open(QIODevice::WriteOnly)) {
        fail(file.fileName() + QStringLiteral(": can't be written"));
    }
    QTextStream stream(&file);
    stream << "[Settings]\n";
    for (const auto& [key, value] : settings) {
        stream << key << '=' << value << '\n';
    }
}

void writeWorkFile(const QString& name, const QByteArray& content) {
    QFile file(workFolder() + u'/' + name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        fail(file.fileName() + QStringLiteral(": can't be written"));
    }
}

QByteArray contentOf(const QString& name) {
    QFile file(workFolder() + u'/' + name);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(file.fileName() + QStringLiteral(": can't be read"));
    }
    return file.readAll();
}

void post(const std::function<void()>& routine) {
    QCoreApplication::postEvent(ear(), new Errand(routine));
}

QObject* ear() {
    // Never taken away: the process ends while its windows still stand.
    static auto* const only = new Ear;
    return only;
}

void fail(const QString& what) {
    if (!reporting.test_and_set()) {
        std::fprintf(stderr, "FAILED: %s\n", what.toUtf8().constData());
        if (QCoreApplication::instance() != nullptr &&
            QThread::currentThread() != QCoreApplication::instance()->thread()) {
            const QStringList windows = onGui([] {
                pictureWindows();
                return visibleWindows();
            });
            std::fprintf(stderr, "on the screen: %s\n", windows.join(u'\n').toUtf8().constData());
        }
        std::fflush(stderr);
    }
    ::_exit(1);
}

void waitFor(const QString& what, const std::function<bool()>& condition, Boxes boxes) {
    const QDeadlineTimer deadline(kDeadline);
    enum class Seen { Nothing, Condition, Box };
    while (true) {
        const Seen seen = onGui([&condition] {
            if (condition()) {
                return Seen::Condition;
            }
            return boxOnTop() != nullptr ? Seen::Box : Seen::Nothing;
        });
        if (seen == Seen::Condition) {
            return;
        }
        if (seen == Seen::Box && boxes == Boxes::AreFailures) {
            fail(QStringLiteral("waiting for %1, a box came").arg(what));
        }
        if (deadline.hasExpired()) {
            fail(QStringLiteral("waited in vain for ") + what);
        }
        QThread::msleep(kLookEvery);
    }
}

void waitShown(const QString& name) {
    waitFor(name, [&] { return seen(name) != nullptr; });
}

void waitGone(const QString& name) {
    waitFor(name + QStringLiteral(" to go"), [&] { return seen(name) == nullptr; });
}

void waitReady(const QString& name) {
    waitFor(name + QStringLiteral(" to be ready"), [&] { return ready(name) != nullptr; });
}

QString textOf(const QString& name) {
    waitShown(name);
    return onGui([&] { return readText(seen(name)); });
}

void waitText(const QString& name, const QString& text) {
    waitFor(QStringLiteral("%1 to read \"%2\"").arg(name, text),
            [&] { return seen(name) != nullptr && readText(seen(name)) == text; });
}

void waitProgress(int value) {
    waitFor(QStringLiteral("the bar to come to %1").arg(value), [value] {
        const auto* bar = qobject_cast<QProgressBar*>(seen(QStringLiteral("prgBar1")));
        return bar != nullptr && bar->value() >= value;
    });
}

QStringList devices() {
    QStringList texts;
    for (int axis = 0; axis < 4; ++axis) {
        texts += textOf(QStringLiteral("lblDeviceType(%1)").arg(axis));
    }
    return texts;
}

QString lamps() {
    return onGui([] {
        QString lit;
        const std::pair<const char*, QChar> all[] = {{"imgPortGreen", u'P'},
                                                     {"imgGreenLedOnline", u'O'},
                                                     {"imgHomeGreen", u'H'},
                                                     {"imgAlarmLed", u'A'}};
        for (const auto& [name, letter] : all) {
            if (seen(QString::fromLatin1(name)) != nullptr) {
                lit += letter;
            }
        }
        return lit;
    });
}

void waitLamps(const QString& lit) {
    const QDeadlineTimer deadline(kDeadline);
    while (lamps() != lit) {
        if (deadline.hasExpired()) {
            expect(QStringLiteral("the lamps"), lamps(), lit);
        }
        QThread::msleep(kLookEvery);
    }
}

void expect(const QString& what, const QString& seen, const QString& wanted) {
    if (seen != wanted) {
        fail(QStringLiteral("%1 is\n  \"%2\"\nand not\n  \"%3\"").arg(what, seen, wanted));
    }
}

void expect(const QString& what, const QStringList& seen, const QStringList& wanted) {
    expect(what, seen.join(u'|'), wanted.join(u'|'));
}

void expect(const QString& what, const QByteArray& seen, const QByteArray& wanted) {
    const QByteArrayList seenLines = seen.split('\n');
    const QByteArrayList wantedLines = wanted.split('\n');
    for (qsizetype i = 0; i < qMin(seenLines.size(), wantedLines.size()); ++i) {
        expect(QStringLiteral("%1, line %2,").arg(what).arg(i + 1),
               QString::fromLatin1(seenLines[i]), QString::fromLatin1(wantedLines[i]));
    }
    if (seen != wanted) {
        fail(QStringLiteral("%1 has %2 lines and not %3")
                 .arg(what)
                 .arg(seenLines.size())
                 .arg(wantedLines.size()));
    }
}

void speak(const char* name) {
    language = QString::fromLatin1(name);
}

QString text(int id) {
    static const QHash<int, QString> texts = readTexts();
    if (!texts.contains(id)) {
        fail(QStringLiteral("there is no text %1").arg(id));
    }
    return texts.value(id);
}

void click(const QString& name) {
    clickAt(name, [name] { return spotOn(ready(name)); });
}

void choose(const QStringList& names) {
    QString menu = QStringLiteral("mnuBar");
    for (const QString& name : names) {
        clickAt(name, [menu, name] { return spotOfEntry(menu, name); });
        menu = name;
    }
}

void type(const QString& name, const QString& text) {
    click(name);
    waitFor(name + QStringLiteral(" to take the keys"), [name] {
        const QWidget* field = ready(name);
        return field != nullptr && field->hasFocus();
    });
    writeOver([name] { return spotOn(ready(name)); }, textOf(name).size(), text);
    waitText(name, text);
}

void tick(const QString& name, bool on) {
    waitReady(name);
    const auto isOn = [name] {
        const auto* box = qobject_cast<QAbstractButton*>(ready(name));
        return box != nullptr && box->isChecked();
    };
    if (onGui(isOn) != on) {
        click(name);
    }
    waitFor(name + QStringLiteral(" to follow"), [isOn, on] { return isOn() == on; });
}

void pick(const QString& name, const QString& text) {
    type(name, text);
    press(QStringLiteral("Tab"));
    waitFor(name + QStringLiteral(" to be left"), [name] {
        const QWidget* list = ready(name);
        return list != nullptr && !list->hasFocus();
    });
}

void expectBox(const QString& text, const QString& button, const QString& named) {
    QPointer<QMessageBox> box;
    // The pointer lives here and is looked at only on the program's thread.
    waitFor(
        QStringLiteral("the box \"%1\"").arg(text),
        [&box] {
            box = boxOnTop();
            return !box.isNull();
        },
        Boxes::AreFine);
    expect(QStringLiteral("the box"), onGui([&box] {
               const QMessageBox* up = box.data();
               return up == nullptr ? QString() : up->text();
           }),
           text);
    picture(named);
    clickAt(
        button,
        [box, button] {
            const QMessageBox* up = box.data();
            return spotOn(up == nullptr ? nullptr : up->findChild<QPushButton*>(button));
        },
        Boxes::AreFine);
    waitFor(
        QStringLiteral("the box \"%1\" to go").arg(text),
        [&box] {
            const QMessageBox* still = box.data();
            return still == nullptr || !still->isVisible();
        },
        Boxes::AreFine);
}

namespace {

void confirmFile() {
    // Names that begin alike may lie over the buttons; the first click would only put them away.
    press(QStringLiteral("Return"));
    waitGone(QStringLiteral("CommonDialog1"));
}

} // namespace

void saveAs(const QString& offered, const QString& name) {
    const QString field = QStringLiteral("fileNameEdit");
    waitReady(field);
    expect(QStringLiteral("the file offered"), textOf(field), offered);
    if (!name.isEmpty()) {
        type(field, name);
    }
    picture(QStringLiteral("save"));
    confirmFile();
}

void openFile(const QString& name) {
    const QString field = QStringLiteral("fileNameEdit");
    waitReady(field);
    type(field, name);
    picture(QStringLiteral("open"));
    confirmFile();
}

void answer(int question, const QVector<int>& choices, int choice, const QString& named) {
    const auto unbroken = [](const QString& name) {
        return textOf(name).replace(u'\n', u' ').simplified();
    };
    waitReady(QStringLiteral("frmSelection"));
    expect(QStringLiteral("the question's title"), textOf(QStringLiteral("frmSelection")),
           text(471));
    const QString asked = unbroken(QStringLiteral("lblSelectText"));
    expect(QStringLiteral("the question"), QString(asked).remove(u' '),
           text(question).remove(u' '));
    for (int i = 0; i < choices.size(); ++i) {
        expect(QStringLiteral("choice %1").arg(i),
               unbroken(QStringLiteral("optSelectKomoku(%1)").arg(i)).remove(u' '),
               text(choices[i]).remove(u' '));
    }
    click(QStringLiteral("optSelectKomoku(%1)").arg(choice));
    picture(named);
    click(QStringLiteral("cmdSelectOk"));
    waitGone(QStringLiteral("frmSelection"));
}

void chooseOnLine() {
    answer(1, {2, 3}, 0, QStringLiteral("start-mode"));
}

void startOnLine() {
    chooseOnLine();
    waitReady(QStringLiteral("cmdPosiRead"));
    waitLamps(QStringLiteral("PO"));
}

namespace {

void askForRange(const std::function<void()>& choice) {
    click(QStringLiteral("cmdPosiRead"));
    waitReady(QStringLiteral("frmSelectPosiNo2"));
    choice();
    picture(QStringLiteral("range"));
    click(QStringLiteral("cmdOk"));
    expectBox(text(370), QStringLiteral("Ok"), QStringLiteral("confirm"));
}

} // namespace

void askForAllPositions() {
    askForRange([] { click(QStringLiteral("optSelectPosiNo(0)")); });
}

void askForPositions(int first, int last) {
    askForRange([first, last] {
        click(QStringLiteral("optSelectPosiNo(1)"));
        type(QStringLiteral("txtStartPosiNo"), QString::number(first));
        type(QStringLiteral("txtEndPosiNo"), QString::number(last));
    });
}

void tryToLeave() {
    waitReady(QStringLiteral("frmMain"));
    closeWindow(onGui([] { return seen(QStringLiteral("frmMain")); }));
}

namespace {

/// The last answer of a story: the program takes the whole process along when it ends.
[[noreturn]] void endWith(int question, const QString& button) {
    tryToLeave();
    QFile content(homeFolder() + QStringLiteral("/content"));
    if (!content.open(QIODevice::WriteOnly)) {
        fail(content.fileName() + QStringLiteral(": can't be written"));
    }
    content.close();
    expectBox(text(question), button, QStringLiteral("finish"));
    QThread::msleep(kDeadline);
    fail(QStringLiteral("the program doesn't end"));
}

} // namespace

void leave() {
    endWith(390, QStringLiteral("Ok"));
}

void leaveUnsaved() {
    endWith(391, QStringLiteral("No"));
}

bool isTour() {
    return qEnvironmentVariableIsSet("QDW8_USER_TOUR");
}

void picture(const QString& name) {
    if (!isTour()) {
        return;
    }
    // Two looks alike mean that the screen has come to rest; a moving bar never does.
    constexpr int kLooks = 20;
    QImage before;
    QImage now;
    for (int look = 0; look < kLooks && (before.isNull() || now != before); ++look) {
        before = now;
        now = onGui([] { return QApplication::primaryScreen()->grabWindow(0).toImage(); });
        QThread::msleep(5 * kLookEvery);
    }
    static int number = 0;
    now.save(QStringLiteral("%1/%2-%3-%4.png")
                 .arg(pictureFolder())
                 .arg(++number, 2, 10, QLatin1Char('0'))
                 .arg(name, language == QStringLiteral("english") ? QStringLiteral("en")
                                                                  : QStringLiteral("ja")));
}

} // namespace e2e

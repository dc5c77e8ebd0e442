#include "gui.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QPixmap>
#include <QScreen>
#include <QStringList>
#include <QThread>
#include <QWidget>
#include <atomic>
#include <cstdio>
#include <unistd.h>

namespace e2e {

namespace {

constexpr unsigned long kLookEvery = 10; // ms

/// Set when a failure is being reported: nothing in the report may fail again.
std::atomic_flag reporting = ATOMIC_FLAG_INIT;

QString atLine; // of the user's thread

QString PictureFolder() {
    return qEnvironmentVariable("QDW8_USER_PICTURES");
}

/// What stands on the screen, and a picture of each window.
QStringList Windows() {
    QStringList list;
    QDir().mkpath(PictureFolder());
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) {
            continue;
        }
        const auto* box = qobject_cast<const QMessageBox*>(window);
        list +=
            QStringLiteral("%1 \"%2\" %3")
                .arg(window->objectName(), window->windowTitle(), box ? box->text() : QString());
        window->grab().save(
            QStringLiteral("%1/failed-%2-%3.png")
                .arg(PictureFolder(), QDir(qEnvironmentVariable("QDW8_USER_HOME")).dirName())
                .arg(list.size()));
    }
    return list;
}

} // namespace

void NowAt(const QString& line) {
    atLine = line;
}

void Fail(const QString& what) {
    if (!reporting.test_and_set()) {
        std::fprintf(stderr, "FAILED: %s: %s\n", qPrintable(atLine), qPrintable(what));
        if (QCoreApplication::instance() != nullptr &&
            QThread::currentThread() != QCoreApplication::instance()->thread()) {
            std::fprintf(stderr, "on the screen: %s\n",
                         OnGui(Windows).join(u'\n').toUtf8().constData());
        }
        std::fflush(stderr);
    }
    ::_exit(1);
}

void Post(const std::function<void()>& routine) {
    QMetaObject::invokeMethod(Ear(), routine, Qt::QueuedConnection);
}

QObject* Ear() {
    // Never taken away: the process ends while its windows still stand.
    static auto* const only = new QObject;
    return only;
}

QMessageBox* BoxOnTop() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

namespace {

bool ComesAbout(const std::function<bool()>& condition, Boxes boxes) {
    const QDeadlineTimer deadline(kDeadline);
    enum class Seen { Nothing, Condition, Box };
    while (!deadline.hasExpired()) {
        const Seen seen = OnGui([&condition] {
            return condition() ? Seen::Condition : BoxOnTop() ? Seen::Box : Seen::Nothing;
        });
        if (seen == Seen::Condition || (seen == Seen::Box && boxes == Boxes::AreFailures)) {
            return seen == Seen::Condition;
        }
        QThread::msleep(kLookEvery);
    }
    return false;
}

} // namespace

void WaitFor(const std::function<bool()>& condition, Boxes boxes) {
    if (!ComesAbout(condition, boxes)) {
        Fail(QStringLiteral("waited in vain, or a box came"));
    }
}

void Expect(const std::function<QString()>& look, const QString& wanted) {
    ComesAbout([&] { return look() == wanted; }, Boxes::AreFailures);
    ExpectNow(OnGui(look), wanted);
}

void ExpectNow(const QString& seen, const QString& wanted) {
    if (seen == wanted) {
        return;
    }
    const QStringList there = seen.split(u'\n');
    const QStringList due = wanted.split(u'\n');
    qsizetype line = 0;
    while (line < there.size() && line < due.size() && there[line] == due[line]) {
        ++line;
    }
    Fail(QStringLiteral("line %1 of %2 is\n  \"%3\"\nand, of %4, should be\n  \"%5\"")
             .arg(line + 1)
             .arg(there.size())
             .arg(there.value(line))
             .arg(due.size())
             .arg(due.value(line)));
}

void Picture(const QString& name) {
    if (!qEnvironmentVariableIsSet("QDW8_USER_TOUR")) {
        return;
    }
    // Two looks alike mean that the screen has come to rest; a moving bar never does.
    constexpr int kLooks = 20;
    QImage before;
    QImage now;
    for (int look = 0; look < kLooks && (before.isNull() || now != before); ++look) {
        before = now;
        now = OnGui([] { return QApplication::primaryScreen()->grabWindow(0).toImage(); });
        QThread::msleep(5 * kLookEvery);
    }
    static int number = 0;
    now.save(QStringLiteral("%1/%2-%3-%4.png")
                 .arg(PictureFolder())
                 .arg(++number, 2, 10, QLatin1Char('0'))
                 .arg(name, qEnvironmentVariable("QDW8_USER_TOUR")));
}

} // namespace e2e

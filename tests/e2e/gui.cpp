#include "gui.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QScreen>
#include <QStringList>
#include <QThread>
#include <QWidget>
#include <algorithm>
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
            QString("%1 \"%2\" %3")
                .arg(window->objectName(), window->windowTitle(), box ? box->text() : QString());
        window->grab().save(
            QString("%1/failed-%2-%3.png")
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
        Fail("waited in vain, or a box came");
    }
}

void Expect(const std::function<QString()>& look, const QString& wanted) {
    ComesAbout([&] { return look() == wanted; }, Boxes::AreFailures);
    ExpectNow(OnGui(look), wanted);
}

void ExpectNow(const QString& seen, const QString& wanted) {
    const auto parting = std::mismatch(seen.begin(), seen.end(), wanted.begin(), wanted.end());
    const qsizetype at = parting.first - seen.begin();
    if (seen != wanted) {
        Fail(QString("from character %1 on it is\n  \"%2\"\nand should be\n  \"%3\"")
                 .arg(QString::number(at), seen.mid(at, 100), wanted.mid(at, 100)));
    }
}

QByteArray ContentOf(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        Fail(name + ": can't be read");
    }
    return file.readAll();
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
    now.save(QString("%1/%2-%3-%4.png")
                 .arg(PictureFolder())
                 .arg(++number, 3, 10, QLatin1Char('0'))
                 .arg(name, qEnvironmentVariable("QDW8_USER_TOUR")));
}

} // namespace e2e

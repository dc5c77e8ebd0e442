#include "gui.h"
#include "words.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QThread>
#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <unistd.h>

/// The controller at the other end, the simulator as a process of its own, plugged in as COM1; and
/// the files between it and the program.
namespace e2e {

namespace {

std::unique_ptr<QProcess> simulator; // of the user's thread

QString ReadLine() {
    while (!simulator->canReadLine()) {
        if (!simulator->waitForReadyRead(kDeadline)) {
            Fail("the simulator says nothing: " + simulator->errorString());
        }
    }
    return QString::fromUtf8(simulator->readLine()).trimmed();
}

/// The lines of the answer.
QStringList Tell(const QString& line) {
    simulator->write(line.toUtf8() + '\n');
    QStringList answer;
    for (QString said = ReadLine(); said != "ok"; said = ReadLine()) {
        answer += said;
        if (said.startsWith("error")) {
            Fail(said);
        }
    }
    return answer;
}

QString Link() {
    const QString ports = qEnvironmentVariable("XDG_CONFIG_HOME") + "/QD-W8/ports";
    QDir().mkpath(ports);
    return ports + "/com1";
}

/// What comes and goes on the line, also from a simulator of the story before in this home.
QString TraceFile() {
    return qEnvironmentVariable("QDW8_USER_HOME") + "/trace";
}

void Start(Told options) {
    if (simulator != nullptr) {
        simulator->closeWriteChannel();
        simulator->waitForFinished(kDeadline);
    }
    simulator = std::make_unique<QProcess>();
    simulator->setStandardErrorFile(TraceFile(), QIODevice::Append);
    simulator->start(SIMULATOR_PROGRAM,
                     QStringList{"--control", "--trace", "--link", Link()} + options);
    if (const QString said = ReadLine(); !said.startsWith("qd-k8-sim ready on ")) {
        Fail(said);
    }
}

/// One that outlives the program: nothing can be told to it. run_story ends it.
void StartToStay(Told options) {
    const QString home = qEnvironmentVariable("QDW8_USER_HOME");
    const QString link = Link();
    QProcess stays;
    stays.setProgram(SIMULATOR_PROGRAM);
    stays.setArguments(QStringList{"--trace", "--link", link} + options);
    stays.setStandardErrorFile(TraceFile());
    stays.setStandardOutputFile(home + "/simulator.out");
    qint64 number = 0;
    QFile file(home + "/simulator");
    if (!stays.startDetached(&number) || !file.open(QIODevice::WriteOnly)) {
        Fail("it doesn't start");
    }
    file.write(QByteArray::number(number));
    WaitFor([link] { return QFile::exists(link); });
}

/// SIGNAL STATUS: by that signal, with which the program ends; what moves must then be stopped.
void Killed(Told told) {
    const QString home = qEnvironmentVariable("QDW8_USER_HOME");
    QFile(home + "/content").open(QIODevice::WriteOnly);
    QFile status(home + "/status");
    if (!status.open(QIODevice::WriteOnly) || status.write(told.value(1).toUtf8()) < 1) {
        Fail("can't be noted");
    }
    status.close();
    ::kill(::getpid(), told.value(0).toInt());
    QThread::sleep(kDeadline / 1000);
    Fail("it lives on");
}

/// Asks the simulator until it is so; a box that comes meanwhile fails.
void WaitTold(const std::function<bool()>& isSo) {
    const QDeadlineTimer deadline(kDeadline);
    while (!isSo()) {
        WaitFor([] { return true; });
        if (deadline.hasExpired()) {
            Fail("waited in vain for the simulator");
        }
    }
}

/// How often a command came.
int Heard(const QString& command) {
    return Tell("stats").filter(command + ' ').value(0).mid(4).toInt();
}

void WaitHeard(const QString& command, int more) {
    const int enough = Heard(command) + more;
    WaitTold([&] { return Heard(command) >= enough; });
}

/// N moves; N stands: it stood still soon after the last stop came, by the simulator's own clock.
void WaitAxis(Told told) {
    QString line;
    WaitTold([&] {
        line = Tell("motion").filter("axis " + told.value(0)).value(0);
        return line.contains(told.value(1));
    });
    constexpr int kSoon = 200; // ms
    const QString stop = (QStringList{"0"} + Tell("frames 100").filter(" 0SP")).last();
    if (told.value(1) == "stands" &&
        line.section(' ', -1).toInt() - stop.section(' ', 0, 0).toInt() > kSoon) {
        Fail(line + ", and the last stop came at " + stop);
    }
}

/// The positions in the frames of this kind that went to the controller.
QString PositionsOf(const char* kind) {
    QStringList numbers;
    const QRegularExpression frame(QString("-> (?:%1)([0-9A-F]{3})").arg(kind));
    for (const auto& match : frame.globalMatch(QString::fromLatin1(ContentOf(TraceFile())))) {
        numbers += QString::number(match.captured(1).toInt(nullptr, 16));
    }
    return numbers.join(u' ');
}

/// The last frame that went to the controller.
QString LastHeard() {
    const QString trace = QString::fromLatin1(ContentOf(TraceFile()));
    return trace.section("-> ", -1).section("\\r", 0, 0);
}

void CopyFile(Told told) {
    if (!QFile::copy(STORIES_FOLDER "/" + told.value(0), told.value(0))) {
        Fail("can't be copied");
    }
}

/// full: from now on no file of the program's may have a byte. free: any may.
void SetDisk(Told told) {
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = told.value(0) == "full" ? 0 : limit.rlim_max;
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

/// NAME FILE
void ExpectSaved(Told told) {
    ExpectNow(QString::fromLatin1(ContentOf(told.value(0))),
              QString::fromLatin1(ContentOf(STORIES_FOLDER "/" + told.value(1))));
}

} // namespace

Words ControllerWords() {
    return {
        {"simulator", Start},
        {"simulator-stays", StartToStay},
        {"killed", Killed},
        {"heard",
         [](Told told) {
             WaitFor([told] { return ContentOf(TraceFile()).contains(told.value(0).toLatin1()); });
         }},
        {"dead-link", [](Told) { QFile::link("no-such-device", Link()); }},
        {"tell", [](Told told) { Tell(told.join(u' ')); }},
        {"asked", [](Told told) { ExpectNow(Tell("stats").join(u'\n'), told.join(u'\n')); }},
        {"state",
         [](Told told) {
             ExpectNow(Tell("state").filter(told.value(0) + u' ').join(u' '), told.join(u' '));
         }},
        {"polls", [](Told told) { WaitHeard("0CM", told.value(0).toInt()); }},
        {"hears", [](Told told) { WaitHeard(told.value(0), told.value(1).toInt()); }},
        {"axis", WaitAxis},
        {"written", [](Told told) { ExpectNow(PositionsOf("0WP"), told.join(u' ')); }},
        {"moved",
         [](Told told) {
             const QStringList all = PositionsOf("0MM|0MP").split(u' ');
             ExpectNow(all.mid(all.size() - told.size()).join(u' '), told.join(u' '));
         }},
        {"last-heard", [](Told told) { ExpectNow(LastHeard(), told.value(0)); }},
        {"copy-file", CopyFile},
        {"disk", SetDisk},
        {"saved", ExpectSaved},
        {"files",
         [](Told told) { ExpectNow(QDir().entryList(QDir::Files).join(u' '), told.join(u' ')); }},
    };
}

} // namespace e2e

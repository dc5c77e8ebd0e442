#include "cable.h"
#include "user.h"

#include <algorithm>

/// Alarms of both classes, announced by the controller and reset by the user.
namespace e2e {

namespace {

const QStringList kUnpaced{QStringLiteral("--unpaced")};

void waitAlarm(const QString& number, const QString& comment) {
    waitLamps(QStringLiteral("POA"));
    expect(QStringLiteral("the alarm's number"), textOf(QStringLiteral("lblAlarmNo")), number);
    expect(QStringLiteral("the alarm's text"), textOf(QStringLiteral("lblErrorComment")), comment);
}

void waitNoAlarm() {
    waitLamps(QStringLiteral("PO"));
    waitText(QStringLiteral("lblErrorComment"), QStringLiteral("No Error"));
    expect(QStringLiteral("the alarm's number"), textOf(QStringLiteral("lblAlarmNo")), QString());
}

/// How often the state was asked for.
int timesAsked(Cable& cable) {
    const QStringList stats = cable.tell(QStringLiteral("stats"));
    const QString word = QStringLiteral("0CM ");
    const auto line = std::find_if(stats.begin(), stats.end(),
                                   [&word](const QString& each) { return each.startsWith(word); });
    return line == stats.end() ? 0 : line->mid(word.size()).toInt();
}

} // namespace

void alarmGoesOut() {
    Cable cable(kUnpaced);
    startOnLine();
    cable.tell(QStringLiteral("alarm 0 6 announce"));
    waitAlarm(QStringLiteral("6"), QStringLiteral("Stop input is on"));
    // It stays for as long as the controller answers the poll with it.
    const int before = timesAsked(cable);
    while (timesAsked(cable) < before + 2) {
        waitAlarm(QStringLiteral("6"), QStringLiteral("Stop input is on"));
    }
    cable.tell(QStringLiteral("alarm clear"));
    waitNoAlarm();
    leave();
}

void resetBothClasses() {
    Cable cable(kUnpaced);
    startOnLine();

    cable.tell(QStringLiteral("alarm 0 3 announce"));
    waitAlarm(QStringLiteral("3"), QStringLiteral("Homing not completed"));
    click(QStringLiteral("cmdReset"));
    waitNoAlarm();
    waitReady(QStringLiteral("cmdReset"));

    cable.tell(QStringLiteral("alarm 1 1 announce"));
    waitAlarm(QStringLiteral("1"), QStringLiteral("Overcurrent in the motor drive"));
    click(QStringLiteral("cmdReset"));
    expectBox(QStringLiteral("Communication error occurs!\nError No.1\n"
                             "[Overcurrent in the motor drive]"),
              QStringLiteral("Ok"));
    expectBox(
        QStringLiteral("The Alarm is not resettable.\nPlease turn off a power supply,and then "
                       "turn on a power supply again in order to reset the alarm."),
        QStringLiteral("Ok"));
    // The alarm stands, and the program has let go of the line.
    waitLamps(QStringLiteral("A"));
    waitReady(QStringLiteral("cmdReset"));

    cable.tell(QStringLiteral("power off"));
    cable.tell(QStringLiteral("power on"));
    click(QStringLiteral("cmdReset"));
    waitNoAlarm();
    waitReady(QStringLiteral("cmdReset"));
    leave();
}

} // namespace e2e

#include "cable.h"
#include "table.h"
#include "user.h"

/// What is fitted to the axes: chosen off line and on line, and put to the user where program and
/// controller don't agree.
namespace e2e {

namespace {

const QString kWindow2 = QStringLiteral("frmDevice2");
const QString kWindow3 = QStringLiteral("frmDevice3");
const QStringList kUnpaced{QStringLiteral("--unpaced")};
const QString kReadCommand = QStringLiteral("cmdPosiRead");

QString onAxis(const char* name, int axis) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(axis);
}

void chooseOffLine() {
    answer(1, {2, 3}, 1);
}

/// The actuator of an axis in the window that stands open; the axis counts from 0.
void fit(int axis, const QString& size, const QString& speed, const QString& stroke) {
    tick(onAxis("chkAxisEnable", axis), true);
    pick(onAxis("comboDeviceSize", axis), size);
    pick(onAxis("comboDeviceSpeed", axis), speed);
    pick(onAxis("comboDeviceStroke", axis), stroke);
}

QString shown(int axis) {
    return textOf(onAxis("comboDeviceSize", axis)) + textOf(onAxis("comboDeviceSpeed", axis)) +
           textOf(onAxis("comboDeviceStroke", axis));
}

/// Confirms the window after a change of the axes in use.
void confirmAxes() {
    click(QStringLiteral("cmdDeviceSet"));
    expectBox(text(1151) + u'\n' + text(1152), QStringLiteral("Yes"));
    waitGone(kWindow2);
    waitReady(kReadCommand);
}

/// Axis 2 gets another stroke, off line.
void changeStrokeOffLine(const QString& stroke) {
    choose({QStringLiteral("mnuSettings"), QStringLiteral("mnuSettingsDeviceOffline")});
    answer(41, {42, 43}, 0);
    waitReady(kWindow2);
    pick(onAxis("comboDeviceStroke", 1), stroke);
    click(QStringLiteral("cmdDeviceSet"));
    waitGone(kWindow2);
    waitReady(kReadCommand);
}

/// A parameter file for a machine with axes 1 and 3.
QByteArray parameterFile() {
    return "\"QD-K8\",\"PRM\"\r\n5\r\n\"HOME\",6,4\r\n0,0,0,0\r\n1,1,1,1\r\n10,10,10,10\r\n"
           "10,10,10,10\r\n10,10,10,10\r\n1,2,3,4\r\n\"AXIS\",7,4\r\n10000,40000,40000,10000\r\n"
           "8,2,2,8\r\n400,400,400,400\r\n15,15,15,15\r\n0,0,0,0\r\n0,0,0,0\r\n"
           "\" 61H200\",\" 44L100\",\" 52L200\",\" 61H200\"\r\n\"PG\",2,4\r\n0,0,0,0\r\n"
           "400,400,400,400\r\n\"ETC\",5,1\r\n0\r\n0\r\n0\r\n0\r\n50\r\n\"SPECIAL\",7,4\r\n"
           "5,0,0,0\r\n0,0,0,0\r\n10,10,10,10\r\n10,10,10,10\r\n0,0,0,0\r\n0,0,0,0\r\n"
           "0,0,0,0\r\n";
}

} // namespace

void deviceOfflineCatalogue() {
    chooseOffLine();
    answer(41, {42, 43}, 0);
    waitReady(kWindow2);
    fit(0, QStringLiteral("61"), QStringLiteral("H"), QStringLiteral("200"));
    fit(2, QStringLiteral("33"), QStringLiteral("L"), QStringLiteral("150"));
    expect(QStringLiteral("axis 1"), shown(0), QStringLiteral(" 61H200"));
    // The catalogue is what can be chosen from.
    pick(onAxis("comboDeviceSize", 2), QStringLiteral("52"));
    expect(QStringLiteral("the speed that follows"), textOf(onAxis("comboDeviceSpeed", 2)),
           QStringLiteral("L"));
    pick(onAxis("comboDeviceStroke", 2), QStringLiteral("350"));
    confirmAxes();
    expect(
        QStringLiteral("the devices"), devices(),
        {QStringLiteral("QD- 61H-200_ "), QString(), QStringLiteral("QD- 52L-350_ "), QString()});
    waitLamps(QString());
    leave();
}

void deviceNextStart() {
    chooseOffLine();
    answer(41, {42, 43}, 0);
    waitReady(kWindow2);
    tick(onAxis("chkAxisEnable", 0), true);
    tick(onAxis("chkAxisEnable", 2), true);
    expect(QStringLiteral("axis 1"), shown(0), QStringLiteral(" 61H200"));
    expect(QStringLiteral("axis 3"), shown(2), QStringLiteral(" 52L350"));
    confirmAxes();
    expect(
        QStringLiteral("the devices"), devices(),
        {QStringLiteral("QD- 61H-200_ "), QString(), QStringLiteral("QD- 52L-350_ "), QString()});
    leave();
}

void deviceOfflineFile() {
    writeWorkFile(QStringLiteral("machine.pmt"), parameterFile());
    chooseOffLine();
    answer(41, {42, 43}, 1);
    openFile(QStringLiteral("machine.pmt"));
    waitReady(kReadCommand);
    expect(
        QStringLiteral("the devices"), devices(),
        {QStringLiteral("QD- 61H-200_ "), QString(), QStringLiteral("QD- 52L-200_ "), QString()});
    leave();
}

void deviceOnlineWrite() {
    const QStringList options = QStringList(kUnpaced) << QStringLiteral("--memory")
                                                      << workFolder() + QStringLiteral("/memory");
    QStringList wanted = expectedDevices();
    wanted[1] = QStringLiteral("QD- 44L-200_ ");
    {
        Cable cable(options);
        startOnLine();
        choose({QStringLiteral("mnuSettings"), QStringLiteral("mnuSettingsDeviceOnline")});
        waitReady(kWindow3);
        expect(QStringLiteral("axis 2"), shown(1), QStringLiteral(" 44L100"));
        pick(onAxis("comboDeviceStroke", 1), QStringLiteral("200"));
        click(QStringLiteral("cmdPrmCtWrite"));
        expectBox(text(1527), QStringLiteral("Ok"));
        click(QStringLiteral("cmdDeviceCancel"));
        waitGone(kWindow3);
        waitReady(kReadCommand);
        expect(QStringLiteral("the devices"), devices(), wanted);
        cable.tell(QStringLiteral("power off"));
        cable.tell(QStringLiteral("power on"));
        // The controller came back with what was written: there is nothing to ask the user.
        askForPositions(1, 3);
        waitText(QStringLiteral("lblFileName"), text(374));
        waitReady(kReadCommand);
        expectGrid(expectedRows(1, 3, Unit::Mm));
        choose({QStringLiteral("mnuSettings"), QStringLiteral("mnuSettingsOffline")});
        expectBox(QStringLiteral("Do you change the software to Offline from Online?"),
                  QStringLiteral("Ok"));
        waitLamps(QString());
    }
    // The same memory in another process: nothing came out of the simulator's working store.
    const Cable cable(options);
    click(kReadCommand);
    expectBox(text(369), QStringLiteral("No"));
    waitReady(QStringLiteral("frmSelectPosiNo2"));
    click(QStringLiteral("optSelectPosiNo(1)"));
    click(QStringLiteral("cmdOk"));
    expectBox(text(370), QStringLiteral("Ok"));
    waitReady(kReadCommand);
    expect(QStringLiteral("the devices"), devices(), wanted);
    expectGrid(expectedRows(1, 3, Unit::Mm));
    leave();
}

void deviceMismatch() {
    const Cable cable(kUnpaced);
    startOnLine();
    changeStrokeOffLine(QStringLiteral("200"));
    QStringList own = expectedDevices();
    own[1] = QStringLiteral("QD- 44L-200_ ");
    expect(QStringLiteral("the devices"), devices(), own);
    waitLamps(QStringLiteral("P"));

    // The controller's setting is passed over: the program keeps its own.
    askForPositions(1, 5);
    answer(371, {372, 373}, 1);
    waitText(QStringLiteral("lblFileName"), text(374));
    waitReady(kReadCommand);
    expectGrid(expectedRows(1, 5, Unit::Mm));
    expect(QStringLiteral("the devices"), devices(), own);

    // At the next read it is asked again, and the controller's setting is taken.
    click(kReadCommand);
    expectBox(text(369), QStringLiteral("No"));
    waitReady(QStringLiteral("frmSelectPosiNo2"));
    click(QStringLiteral("optSelectPosiNo(1)"));
    click(QStringLiteral("cmdOk"));
    expectBox(text(370), QStringLiteral("Ok"));
    answer(371, {372, 373}, 0);
    waitReady(kReadCommand);
    expect(QStringLiteral("the devices"), devices(), expectedDevices());
    expectGrid(expectedRows(1, 5, Unit::Mm));
    leave();
}

} // namespace e2e

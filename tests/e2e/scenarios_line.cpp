#include "cable.h"
#include "table.h"
#include "user.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>

/// What can happen to the line, and that the program is none the worse for it.
namespace e2e {

namespace {

const QString kPortBox = QStringLiteral("Failed Communication port open.\n\n"
                                        "Please check a setting of a communication port.");
const QString kFileName = QStringLiteral("lblFileName");
const QString kInController = QStringLiteral("Inside of C/T");

/// Reads a few positions, so that there is something that must not change.
void readTheFirst(int count) {
    askForPositions(1, count);
    waitText(kFileName, kInController);
    waitReady(QStringLiteral("cmdPosiRead"));
    expectGrid(expectedRows(1, count, Unit::Mm));
}

/// The same for a program that has come up with the stored devices: it finds others in the
/// controller, asks, and takes those.
void readTheFirstFromAStranger(int count) {
    askForPositions(1, count);
    answer(371, {372, 373}, 0);
    waitText(kFileName, kInController);
    waitReady(QStringLiteral("cmdPosiRead"));
    expectGrid(expectedRows(1, count, Unit::Mm));
    expect(QStringLiteral("the devices"), devices(), expectedDevices());
    waitLamps(QStringLiteral("PO"));
}

/// Reads all positions over those that are there, up to and with the confirmation.
void readAll() {
    click(QStringLiteral("cmdPosiRead"));
    expectBox(QStringLiteral("Save the editing data before reading data?"), QStringLiteral("No"));
    waitReady(QStringLiteral("frmSelectPosiNo2"));
    click(QStringLiteral("optSelectPosiNo(0)"));
    click(QStringLiteral("cmdOk"));
    expectBox(QStringLiteral("Read the data from controller, OK?"), QStringLiteral("Ok"));
}

/// A start without a controller ends with the choice of the devices; none is in use until the user
/// says so.
void useNoAxis() {
    answer(41, {42, 43}, 0);
    waitReady(QStringLiteral("frmDevice2"));
    click(QStringLiteral("cmdDeviceSet"));
    waitGone(QStringLiteral("frmDevice2"));
}

/// The program works off line, and nobody has to be asked anything more.
void expectUsableOffLine() {
    waitReady(QStringLiteral("cmdPosiRead"));
    waitLamps(QString());
    waitReady(QStringLiteral("cmdReset"));
}

} // namespace

void readCancelled() {
    const Cable cable({});
    startOnLine();
    readTheFirst(3);
    readAll();
    waitProgress(5);
    expect(QStringLiteral("what goes on"), textOf(QStringLiteral("lblSetumei")),
           QStringLiteral("Reading data from controller..."));
    click(QStringLiteral("cmdTranceCancel"));
    expectBox(QStringLiteral("Reading of data was stopped."), QStringLiteral("Ok"));
    waitReady(QStringLiteral("cmdPosiRead"));
    expectGrid(expectedRows(1, 3, Unit::Mm));
    expect(QStringLiteral("the file name"), textOf(kFileName), kInController);
    waitLamps(QStringLiteral("PO"));
    leave();
}

void cablePulled() {
    std::optional<Cable> cable(std::in_place, QStringList());
    startOnLine();
    readTheFirst(3);
    readAll();
    waitProgress(20);
    cable->tell(QStringLiteral("hangup"));
    expectBox(QStringLiteral("Communication error occurs!"), QStringLiteral("Ok"));
    expectUsableOffLine();
    expectGrid(expectedRows(1, 3, Unit::Mm));
    expect(QStringLiteral("the file name"), textOf(kFileName), kInController);

    cable.reset();
    cable.emplace(QStringList{QStringLiteral("--unpaced")});
    readAll();
    waitReady(QStringLiteral("cmdPosiRead"));
    expectGrid(expectedRows(1, 999, Unit::Mm));
    waitLamps(QStringLiteral("PO"));
    leave();
}

void noController() {
    // The adapter that is COM1 has been pulled out.
    QDir().mkpath(QFileInfo(linkOfCom1()).path());
    QFile::link(workFolder() + QStringLiteral("/no-such-device"), linkOfCom1());
    chooseOnLine();
    expectBox(kPortBox, QStringLiteral("Ok"));
    useNoAxis();
    expectUsableOffLine();
    // The port is tried again for each command that needs it.
    click(QStringLiteral("cmdReset"));
    expectBox(kPortBox, QStringLiteral("Ok"));
    expectUsableOffLine();

    const Cable cable({QStringLiteral("--unpaced")});
    readTheFirstFromAStranger(15);
    leave();
}

void noAnswer() {
    // The port opens and nothing answers.
    Cable cable({QStringLiteral("--fault"), QStringLiteral("*:*:silence")});
    chooseOnLine();
    expectBox(QStringLiteral("Communication timeout error!\n\nCheck the followings;\n\n"
                             " 1.Power ON for controller?\n\n"
                             " 2.Communication cables are connected?"),
              QStringLiteral("Ok"));
    useNoAxis();
    expectUsableOffLine();
    expect(QStringLiteral("the frames"), cable.tell(QStringLiteral("stats")),
           {QStringLiteral("0CM 1")});

    cable.tell(QStringLiteral("fault clear"));
    readTheFirstFromAStranger(15);
    leave();
}

void twoAxes() {
    Cable cable({QStringLiteral("--unpaced"), QStringLiteral("--axes"), QStringLiteral("2")});
    chooseOnLine();
    expectBox(QStringLiteral("This is not \"QD-K8\" controller.\n"
                             "Please check whether a controller is QD-K8."),
              QStringLiteral("Ok"));
    useNoAxis();
    expectUsableOffLine();
    // It was asked what it is, and nothing more.
    expect(QStringLiteral("the frames"), cable.tell(QStringLiteral("stats")),
           {QStringLiteral("0CM 2"), QStringLiteral("0RV 1")});
    leave();
}

} // namespace e2e

#include "cable.h"
#include "user.h"

/// The small commands that ask the controller what it is, and the way off line.
namespace e2e {

namespace {

const QStringList kUnpaced{QStringLiteral("--unpaced")};
const QString kMnuController = QStringLiteral("mnuFunctionCt");

} // namespace

void versionQuery() {
    const Cable cable(QStringList(kUnpaced) << QStringLiteral("--mask") << QStringLiteral("7"));
    startOnLine();
    choose({kMnuController, QStringLiteral("mnuFuncCtversion")});
    expectBox(QStringLiteral("The version of this controller is as follows.\n\n<MAIN>  140\n\n"
                             "<AXIS1>  121\n\n<AXIS2>  121\n\n<AXIS3>  121"),
              QStringLiteral("Ok"));
    waitLamps(QStringLiteral("PO"));
    waitReady(QStringLiteral("cmdPosiRead"));
    leave();
}

void axesInUse() {
    Cable cable(kUnpaced);
    startOnLine();
    const QString entry = QStringLiteral("mnuFuncGetAxis");
    choose({kMnuController, entry});
    expectBox(QStringLiteral("Axis setting is 1,2,3,4."), QStringLiteral("Ok"));
    waitReady(QStringLiteral("cmdPosiRead"));

    cable.tell(QStringLiteral("mask 5"));
    choose({kMnuController, entry});
    expectBox(QStringLiteral("Axis setting is 1,3."), QStringLiteral("Ok"));
    waitReady(QStringLiteral("cmdPosiRead"));
    QStringList wanted = expectedDevices();
    wanted[1].clear();
    wanted[3].clear();
    expect(QStringLiteral("the devices"), devices(), wanted);
    leave();
}

void offlineCommand() {
    Cable cable(kUnpaced);
    startOnLine();
    const QStringList command{QStringLiteral("mnuSettings"), QStringLiteral("mnuSettingsOffline")};
    const QString question = QStringLiteral("Do you change the software to Offline from Online?");
    choose(command);
    expectBox(question, QStringLiteral("Cancel"));
    waitLamps(QStringLiteral("PO"));

    choose(command);
    expectBox(question, QStringLiteral("Ok"));
    waitLamps(QString());

    // The next command that needs the controller goes on line again.
    choose({kMnuController, QStringLiteral("mnuFuncGetAxis")});
    expectBox(QStringLiteral("Axis setting is 1,2,3,4."), QStringLiteral("Ok"));
    waitLamps(QStringLiteral("PO"));
    leave();
}

} // namespace e2e

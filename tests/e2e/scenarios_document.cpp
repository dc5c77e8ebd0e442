#include "cable.h"
#include "table.h"
#include "user.h"

#include <QFile>

/// The positions between grid, file and controller: opened, compared, written.
namespace e2e {

namespace {

const QStringList kUnpaced{QStringLiteral("--unpaced")};
const QString kFileName = QStringLiteral("lblFileName");
const QString kReadCommand = QStringLiteral("cmdPosiRead");

void readTheFirst(int count) {
    startOnLine();
    askForPositions(1, count);
    waitText(kFileName, text(374));
    waitReady(kReadCommand);
    expectGrid(expectedRows(1, count, Unit::Mm));
}

/// Reads again what the grid shows.
void readAgain() {
    click(kReadCommand);
    expectBox(text(369), QStringLiteral("No"));
    waitReady(QStringLiteral("frmSelectPosiNo2"));
    click(QStringLiteral("optSelectPosiNo(1)"));
    click(QStringLiteral("cmdOk"));
    expectBox(text(370), QStringLiteral("Ok"));
    waitReady(kReadCommand);
}

void askToWrite(int first, int last) {
    click(QStringLiteral("cmdPosiLoad"));
    waitReady(QStringLiteral("frmSelectPosiNo3"));
    type(QStringLiteral("txtStartPosiNo"), QString::number(first));
    type(QStringLiteral("txtEndPosiNo"), QString::number(last));
    click(QStringLiteral("cmdOk"));
    expectBox(text(375), QStringLiteral("Ok"));
}

/// The positions that were sent to the controller since it was last asked, in their order.
QString written(Cable& cable) {
    QString numbers;
    for (const QString& frame : cable.tell(QStringLiteral("frames 200"))) {
        const qsizetype at = frame.indexOf(QStringLiteral("0WP"));
        // The reply echoes the word; the request goes on with the row.
        if (at >= 0 && frame.size() - at > 40) {
            numbers += QString::number(frame.mid(at + 3, 3).toInt(nullptr, 16)) + u' ';
        }
    }
    return numbers.trimmed();
}

} // namespace

void openOtherDevices() {
    QByteArray content = expectedFile(1, 20);
    content.replace(" 44L-100_", " 44L-200_");
    writeWorkFile(QStringLiteral("older.qdd"), content);
    const Cable cable(kUnpaced);
    readTheFirst(3);
    click(QStringLiteral("cmdPosiFileOpen"));
    openFile(QStringLiteral("older.qdd"));
    answer(44, {45, 46, 47}, 0);
    waitText(kFileName, QStringLiteral("older"));
    waitReady(kReadCommand);
    expect(QStringLiteral("the devices"), devices(), expectedDevices());
    expectGrid(expectedRows(1, 20, Unit::Mm));

    // The second way: the file's devices, with the parameters that they come with.
    click(QStringLiteral("cmdPosiFileOpen"));
    openFile(QStringLiteral("older.qdd"));
    answer(44, {45, 46, 47}, 1);
    waitText(QStringLiteral("lblDeviceType(1)"), QStringLiteral("QD- 44L-200_ "));
    waitReady(kReadCommand);
    expectGrid(expectedRows(1, 20, Unit::Mm));
    leave();
}

void verifyFile() {
    writeWorkFile(QStringLiteral("far.qdd"), expectedFile(900, 905));
    const Cable cable(kUnpaced);
    readTheFirst(15);
    click(QStringLiteral("cmdPosiSaveFile"));
    saveAs(text(407), QStringLiteral("same"));
    waitText(kFileName, QStringLiteral("same"));
    waitReady(kReadCommand);

    click(QStringLiteral("cmdPosiVerify"));
    waitReady(QStringLiteral("frmDataShogo"));
    click(QStringLiteral("cmdFileDataShogo"));
    openFile(QStringLiteral("same.qdd"));
    waitReady(QStringLiteral("frmSelectPosiNo4"));
    expect(QStringLiteral("the ranges"),
           {textOf(QStringLiteral("lblFileStartNo")), textOf(QStringLiteral("lblFileEndNo")),
            textOf(QStringLiteral("lblPcStartNo")), textOf(QStringLiteral("lblPcEndNo"))},
           {QStringLiteral("1"), QStringLiteral("15"), QStringLiteral("1"), QStringLiteral("15")});
    click(QStringLiteral("cmdOk"));
    expectBox(text(352) + workFolder() + QStringLiteral("/same.qdd") + text(353) +
                  QStringLiteral("\n\n") + text(826),
              QStringLiteral("Ok"));
    waitReady(kReadCommand);

    enter(2, 0, QStringLiteral("59"), QStringLiteral("59"));
    enter(9, 2, QStringLiteral("0"), QStringLiteral("0"));
    const QStringList command{QStringLiteral("mnuFile"), QStringLiteral("mnuFileShogo"),
                              QStringLiteral("mnuFileShogoFile")};
    choose(command);
    openFile(QStringLiteral("same.qdd"));
    waitReady(QStringLiteral("frmSelectPosiNo4"));
    click(QStringLiteral("cmdOk"));
    expectResults(true, {QStringLiteral("2:0"), QStringLiteral("9:2")});

    choose(command);
    openFile(QStringLiteral("far.qdd"));
    waitReady(QStringLiteral("frmSelectPosiNo4"));
    waitShown(QStringLiteral("lblSyogoHuka"));
    click(QStringLiteral("cmdOk"));
    waitReady(kReadCommand);
    leaveUnsaved();
}

void verifyController() {
    const Cable cable(kUnpaced);
    readTheFirst(15);
    const auto verify = [] {
        click(QStringLiteral("cmdPosiVerify"));
        waitReady(QStringLiteral("frmDataShogo"));
        click(QStringLiteral("cmdCtDataShogo"));
        waitReady(QStringLiteral("frmSelectPosiNo3"));
        click(QStringLiteral("cmdOk"));
    };
    verify();
    expectBox(text(354) + QStringLiteral("\n\n") + text(826), QStringLiteral("Ok"));
    waitReady(kReadCommand);
    enter(2, 0, QStringLiteral("59"), QStringLiteral("59"));
    verify();
    expectResults(true, {QStringLiteral("2:0")});
    waitLamps(QStringLiteral("PO"));
    leaveUnsaved();
}

void writeBack() {
    Cable cable(kUnpaced);
    readTheFirst(15);
    QVector<GridRow> rows = grid();
    enter(2, 0, QStringLiteral("59"), QStringLiteral("59"));
    enter(3, 3, QStringLiteral("1.5"), QStringLiteral("  1.500"));
    enter(5, 0, QStringLiteral("58"), QStringLiteral("58"));
    cable.tell(QStringLiteral("stats clear"));
    askToWrite(2, 3);
    expectBox(text(376), QStringLiteral("Ok"));
    waitReady(kReadCommand);
    expect(QStringLiteral("the rows sent"), written(cable), QStringLiteral("2 3"));

    // Read a second time the grid shows what the controller took, and nothing else.
    readAgain();
    rows[1][1] = QStringLiteral("59");
    rows[2][4] = QStringLiteral("  1.500");
    expectGrid(rows);
    waitLamps(QStringLiteral("PO"));
    leave();
}

void writeInterrupted() {
    Cable cable(QStringList(kUnpaced)
                << QStringLiteral("--fault") << QStringLiteral("0WP:2:error=08"));
    readTheFirst(15);
    QVector<GridRow> rows = grid();
    for (const int position : {2, 3, 4}) {
        enter(position, 0, QStringLiteral("59"), QStringLiteral("59"));
    }
    askToWrite(2, 4);
    expectBox(QStringLiteral("Communication error occurs!\nError No.8\n[Position data invalid]"),
              QStringLiteral("Ok"));
    waitReady(kReadCommand);
    expect(QStringLiteral("the rows sent"), written(cable), QStringLiteral("2 3"));
    readAgain();
    rows[1][1] = QStringLiteral("59");
    expectGrid(rows);
    leave();
}

} // namespace e2e

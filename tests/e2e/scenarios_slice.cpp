#include "cable.h"
#include "table.h"
#include "user.h"

/// The main job: on line, all positions in from the controller, out to a file.
namespace e2e {

namespace {

/// The heads of the position columns, which tell the unit.
QStringList positionHeads() {
    const QStringList all = gridHeads();
    return {all.value(3), all.value(7), all.value(11), all.value(15)};
}

QStringList expectedPositionHeads(Unit unit) {
    QStringList heads;
    for (int axis = 1; axis <= 4; ++axis) {
        heads += text(228) + QString::number(axis) + text(unit == Unit::Mm ? 230 : 229);
    }
    return heads;
}

[[noreturn]] void playSlice(Unit unit, const QStringList& cableOptions, const QString& fileName) {
    const Cable cable(cableOptions);
    startOnLine();
    expect(QStringLiteral("the devices"), devices(), expectedDevices());
    expect(QStringLiteral("the heads"), positionHeads(), expectedPositionHeads(unit));
    expect(QStringLiteral("the alarm"), textOf(QStringLiteral("lblErrorComment")),
           QStringLiteral("No Error"));

    askForAllPositions();
    waitText(QStringLiteral("lblFileName"), text(374));
    waitReady(QStringLiteral("cmdPosiSaveFile"));
    expectGrid(expectedRows(1, 999, unit));
    expect(QStringLiteral("the heads"), positionHeads(), expectedPositionHeads(unit));
    waitLamps(QStringLiteral("PO"));

    click(QStringLiteral("cmdPosiSaveFile"));
    saveAs(text(407), fileName);
    // Without a name of the user's own it is the one that the dialog offers.
    const QString base = fileName.isEmpty() ? text(407).chopped(4) : fileName;
    waitText(QStringLiteral("lblFileName"), base);
    expect(QStringLiteral("the file"), contentOf(base + QStringLiteral(".qdd")),
           expectedFile(1, 999));
    waitReady(QStringLiteral("cmdPosiRead"));
    leave();
}

const QStringList kUnpaced{QStringLiteral("--unpaced")};

} // namespace

void sliceEnglishMm() {
    playSlice(Unit::Mm, kUnpaced, {});
}

void sliceEnglishPulses() {
    playSlice(Unit::Pulses, kUnpaced, QStringLiteral("taught"));
}

void sliceJapanese() {
    speak("japanese");
    playSlice(Unit::Mm, kUnpaced, QStringLiteral("hozon"));
}

} // namespace e2e

#include "cable.h"
#include "hands.h"
#include "table.h"
#include "user.h"

/// A day's work on positions from its start to its end, with a picture of each step.
namespace e2e {

namespace {

const QString kReadCommand = QStringLiteral("cmdPosiRead");
const QString kFileName = QStringLiteral("lblFileName");
const QString kOlder = QStringLiteral("older.qdd");

void readEverything() {
    askForAllPositions();
    waitProgress(300);
    picture(QStringLiteral("reading"));
    waitText(kFileName, text(374));
    waitReady(kReadCommand);
    expectGrid(expectedRows(1, 999, Unit::Mm));
    picture(QStringLiteral("positions"));
}

void edit() {
    enter(1, 0, QStringLiteral("45"), QStringLiteral("45"));
    enter(1, 3, QStringLiteral("12.34"), QStringLiteral(" 12.340"));
    enter(1, kCommentColumn, QStringLiteral("pick up"), QStringLiteral("pick up"));
    picture(QStringLiteral("edited"));
    enterRefused(2, 0, QStringLiteral("61"), QStringLiteral("15"));

    clickCell(3, 0);
    clickCellWithShift(8, 0);
    keyIn(QStringLiteral("20"));
    press(QStringLiteral("Return"));
    waitCell(8, 0, QStringLiteral("20"));
    picture(QStringLiteral("filled"));
}

void moveLines() {
    clickLine(4);
    clickLineWithShift(5);
    click(QStringLiteral("cmdInsertLine"));
    waitCell(4, 0, QStringLiteral("30"));
    picture(QStringLiteral("inserted"));
    clickLine(5);
    click(QStringLiteral("cmdDeleteLine"));
    waitCell(5, 0, QStringLiteral("20"));
    picture(QStringLiteral("deleted"));

    clickLine(1);
    click(QStringLiteral("LineCopy"));
    picture(QStringLiteral("copied"));
    clickLine(4);
    click(QStringLiteral("LinePaste"));
    waitCell(4, kCommentColumn, QStringLiteral("pick up"));
    clickCell(1, 3);
    press(QStringLiteral("ctrl+c"));
    clickCell(9, 3);
    press(QStringLiteral("ctrl+v"));
    waitCell(9, 3, QStringLiteral(" 12.340"));
    picture(QStringLiteral("pasted"));
}

/// A speed where an acceleration belongs is found when the positions are to be saved.
void save(const QString& name) {
    clickCell(1, 0);
    press(QStringLiteral("ctrl+c"));
    clickCell(7, 1);
    press(QStringLiteral("ctrl+v"));
    waitCell(7, 1, QStringLiteral("45"));
    click(QStringLiteral("cmdPosiSaveFile"));
    expectResults(false, {QStringLiteral("7:1")});
    enter(7, 1, QStringLiteral("2"), QStringLiteral("2"));
    click(QStringLiteral("cmdPosiSaveFile"));
    saveAs(text(407), name);
    waitText(kFileName, name);
    waitReady(kReadCommand);
    picture(QStringLiteral("saved"));
}

void verifyWithFile(const QString& name) {
    const auto verify = [&name] {
        click(QStringLiteral("cmdPosiVerify"));
        waitReady(QStringLiteral("frmDataShogo"));
        picture(QStringLiteral("verify"));
        click(QStringLiteral("cmdFileDataShogo"));
        openFile(name + QStringLiteral(".qdd"));
        waitReady(QStringLiteral("frmSelectPosiNo4"));
        picture(QStringLiteral("overlap"));
        click(QStringLiteral("cmdOk"));
    };
    verify();
    expectBox(text(352) + workFolder() + u'/' + name + QStringLiteral(".qdd") + text(353) +
                  QStringLiteral("\n\n") + text(826),
              QStringLiteral("Ok"), QStringLiteral("equal"));
    waitReady(kReadCommand);
    enter(2, 0, QStringLiteral("59"), QStringLiteral("59"));
    verify();
    expectResults(true, {QStringLiteral("2:0")});
}

void openOlder() {
    click(QStringLiteral("cmdPosiFileOpen"));
    openFile(kOlder);
    answer(44, {45, 46, 47}, 0, QStringLiteral("other-devices"));
    waitText(kFileName, QStringLiteral("older"));
    waitReady(kReadCommand);
    expect(QStringLiteral("the devices"), devices(), expectedDevices());
    expectGrid(expectedRows(1, 20, Unit::Mm));
    picture(QStringLiteral("opened"));
}

void verifyWithController() {
    click(QStringLiteral("cmdPosiVerify"));
    waitReady(QStringLiteral("frmDataShogo"));
    click(QStringLiteral("cmdCtDataShogo"));
    waitReady(QStringLiteral("frmSelectPosiNo3"));
    click(QStringLiteral("cmdOk"));
}

void writeToController() {
    enter(2, 0, QStringLiteral("59"), QStringLiteral("59"));
    enter(6, 3, QStringLiteral("80"), QStringLiteral(" 80.000"));
    verifyWithController();
    expectResults(true, {QStringLiteral("2:0"), QStringLiteral("6:3")});

    click(QStringLiteral("cmdPosiLoad"));
    waitReady(QStringLiteral("frmSelectPosiNo3"));
    picture(QStringLiteral("range"));
    click(QStringLiteral("cmdOk"));
    expectBox(text(375), QStringLiteral("Ok"), QStringLiteral("confirm"));
    expectBox(text(376), QStringLiteral("Ok"), QStringLiteral("written"));
    waitReady(kReadCommand);

    verifyWithController();
    expectBox(text(354) + QStringLiteral("\n\n") + text(826), QStringLiteral("Ok"),
              QStringLiteral("equal"));
    waitReady(kReadCommand);
}

void cancelRead() {
    const QVector<GridRow> rows = grid();
    click(kReadCommand);
    expectBox(text(369), QStringLiteral("No"), QStringLiteral("save-first"));
    waitReady(QStringLiteral("frmSelectPosiNo2"));
    click(QStringLiteral("optSelectPosiNo(0)"));
    click(QStringLiteral("cmdOk"));
    expectBox(text(370), QStringLiteral("Ok"), QStringLiteral("confirm"));
    waitProgress(100);
    click(QStringLiteral("cmdTranceCancel"));
    expectBox(text(425), QStringLiteral("Ok"), QStringLiteral("cancelled"));
    waitReady(kReadCommand);
    expectGrid(rows);
}

[[noreturn]] void playTour(const QString& fileName) {
    // Slow enough to look at, quick enough to wait for.
    const QStringList options{QStringLiteral("--unpaced"), QStringLiteral("--turnaround"),
                              QStringLiteral("4")};
    picture(QStringLiteral("splash"));
    QByteArray older = expectedFile(1, 20);
    older.replace(" 44L-100_", " 44L-200_");
    writeWorkFile(kOlder, older);
    const Cable cable(options);
    startOnLine();
    expect(QStringLiteral("the devices"), devices(), expectedDevices());
    picture(QStringLiteral("on-line"));
    readEverything();
    edit();
    moveLines();
    save(fileName);
    verifyWithFile(fileName);
    openOlder();
    writeToController();
    cancelRead();
    enter(3, 0, QStringLiteral("33"), QStringLiteral("33"));
    tryToLeave();
    expectBox(text(391), QStringLiteral("Cancel"), QStringLiteral("unsaved"));
    waitReady(kReadCommand);
    leaveUnsaved();
}

} // namespace

void tourEnglish() {
    playTour(QStringLiteral("english"));
}

void tourJapanese() {
    speak("japanese");
    playTour(QStringLiteral("japanese"));
}

} // namespace e2e

#include "hands.h"
#include "words.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>

namespace e2e {

namespace {

void Click(const QString& name) {
    ClickAt([name] { return SpotOn(Ready(name)); });
}

void WaitReady(const QString& name) {
    WaitFor([&] { return Ready(name) != nullptr; });
}

void WaitKeys(const QString& name, bool come) {
    WaitFor([&] { return Ready(name) != nullptr && Ready(name)->hasFocus() == come; });
}

void ExpectText(const QString& name, const QString& text) {
    Expect([&] { return ReadText(name); }, text);
}

/// The window of a control, once that can be used.
QPointer<QWidget> WindowOf(const QString& name) {
    WaitReady(name);
    return OnGui([&] { return QPointer<QWidget>(Ready(name)->window()); });
}

/// Waits for this very window to go: the next one may have the same name, and may be a box.
void WaitGone(const QPointer<QWidget>& window) {
    // The pointer is looked at only on the program's thread.
    WaitFor([&window] { return window.isNull() || !window->isVisible(); }, Boxes::AreFine);
}

void Dismiss(const QString& control, const std::function<void()>& act) {
    const QPointer<QWidget> window = WindowOf(control);
    act();
    WaitGone(window);
}

void Type(const QString& name, const QString& text) {
    Click(name);
    WaitKeys(name, true);
    const qsizetype length = OnGui([&] { return ReadText(name).size(); });
    // Not every field takes the key that marks everything.
    Press(QStringList{"End"} + QStringList(length, "BackSpace"));
    KeyIn(text);
    ExpectText(name, text);
}

void Menu(Told told) {
    QString menu = "mnuBar";
    for (const QString& name : told) {
        ClickAt([menu, name] { return SpotOfEntry(menu, name); });
        menu = name;
    }
}

void AnswerBox(const QString& text, const QString& button, const QString& picture) {
    WaitFor([] { return BoxOnTop() != nullptr; }, Boxes::AreFine);
    const auto box = OnGui([] { return QPointer<QMessageBox>(BoxOnTop()); });
    // Made here: once the button is pressed the box may be half gone.
    const auto window = OnGui([&box] { return QPointer<QWidget>(box.data()); });
    ExpectNow(OnGui([&box] { return box.isNull() ? QString() : box->text(); }), text);
    Picture(picture);
    const auto find = [box, button] {
        const auto all = box.isNull() ? QList<QAbstractButton*>() : box->buttons();
        for (QAbstractButton* one : all) {
            if (one->objectName() == button || one->text() == button) {
                return SpotOn(one);
            }
        }
        return Spot{};
    };
    ClickAt(find, Boxes::AreFine);
    WaitGone(window);
}

/// Presses Ok on whatever boxes come, one at least, until the control can be used.
void PutUpWithBoxes(Told told) {
    const auto isUp = [] { return BoxOnTop() != nullptr; };
    WaitFor(isUp, Boxes::AreFine);
    while (OnGui(isUp)) {
        AnswerBox(OnGui([] { return BoxOnTop()->text(); }), "Ok", "box");
        WaitFor([&] { return isUp() || Ready(told.value(0)) != nullptr; }, Boxes::AreFine);
    }
}

/// The question of a choice and what it offers; where a line is broken is the window's affair.
void ExpectQuestion(Told told) {
    WaitReady("frmSelection");
    for (qsizetype i = 0; i < told.size(); ++i) {
        const QString label = i == 0 ? "lblSelectText" : QString("optSelectKomoku(%1)").arg(i - 1);
        Expect([&] { return ReadText(label).simplified().remove(u' '); },
               QString(told[i]).remove(u' '));
    }
}

void SetClipboard(Told told) {
    OnGui([&] { QGuiApplication::clipboard()->setText(told.value(0)); });
}

/// The lamps that are lit, of Port, Online, Home, Alarm: "PO" after a start on line, "-" for none.
QString Lamps() {
    QString lit;
    for (const char* name :
         {"PimgPortGreen", "OimgGreenLedOnline", "HimgHomeGreen", "AimgAlarmLed"}) {
        if (Seen(name + 1) != nullptr) {
            lit += QLatin1Char(*name);
        }
    }
    return lit.isEmpty() ? "-" : lit;
}

void WaitProgress(Told told) {
    WaitFor([&] {
        const auto* bar = qobject_cast<QProgressBar*>(Seen("prgBar1"));
        return bar != nullptr && bar->value() >= told.value(0).toInt();
    });
}

/// CONTROL NAME: the window of the control, without what a window manager puts around it.
void Portrait(Told told) {
    WaitReady(told.value(0));
    OnGui([&] {
        return Ready(told[0])->window()->grab().save(qEnvironmentVariable("QDW8_USER_PICTURES") +
                                                     u'/' + told.value(1) + ".png");
    });
}

/// LABEL: leaves what stands in front of the first comma, so that a picture doesn't tell of the
/// very machine that it was taken on.
void Shorten(Told told) {
    WaitReady(told.value(0));
    OnGui(
        [&] { return Ready(told[0])->setProperty("text", ReadText(told[0]).section(u',', 0, 0)); });
}

void Close() {
    WaitFor([] { return Seen("frmMain") != nullptr; });
    CloseWindow(OnGui([] { return Seen("frmMain"); }));
}

/// WINDOW: the story ends with it, and so does the process.
void EndWindow(Told told) {
    WaitReady(told.value(0));
    CloseWindow(OnGui([&] { return Ready(told[0]); }));
    QThread::msleep(kDeadline);
    Fail("the process doesn't end");
}

/// The last answer of a story: the program takes the whole process along when it ends, and whoever
/// started it looks for the mark that the user had seen everything.
void End(Told told) {
    QFile(qEnvironmentVariable("QDW8_USER_HOME") + "/content").open(QIODevice::WriteOnly);
    AnswerBox(told.value(0), told.value(1), "finish");
    QThread::msleep(kDeadline);
    Fail("the program doesn't end");
}

void WaitKept(Told) {
    WaitFor([] {
        const QDir kept(qEnvironmentVariable("XDG_STATE_HOME") + "/QD-W8");
        return !kept.entryList({"*.unsaved"}).isEmpty();
    });
}

} // namespace

Words ScreenWords() {
    return {
        {"click", [](Told told) { Click(told.value(0)); }},
        {"dismiss", [](Told told) { Dismiss(told.value(0), [&] { Click(told[0]); }); }},
        // Names that begin alike may lie over the buttons of a file dialog, and the first click
        // would only put them away.
        {"confirm", [](Told told) { Dismiss(told.value(0), [] { Press({"Return"}); }); }},
        {"menu", Menu},
        {"tab", [](Told told) { ClickAt([page = told.value(0)] { return SpotOfTab(page); }); }},
        {"type", [](Told told) { Type(told.value(0), told.value(1)); }},
        {"press", [](Told told) { Press(told); }},
        {"keys", [](Told told) { KeyIn(told.value(0)); }},
        {"hold", [](Told told) { HoldAt([name = told.value(0)] { return SpotOn(Ready(name)); }); }},
        {"let-go", [](Told) { LetGo(); }},
        {"hold-key", [](Told told) { HoldKey(told.value(0), true); }},
        {"let-go-key", [](Told told) { HoldKey(told.value(0), false); }},
        {"ready", [](Told told) { WaitReady(told.value(0)); }},
        {"has-keys", [](Told told) { WaitKeys(told.value(0), true); }},
        {"text", [](Told told) { ExpectText(told.value(0), told.value(1)); }},
        {"lamps", [](Told told) { Expect(Lamps, told.value(0)); }},
        {"progress", WaitProgress},
        {"box", [](Told told) { AnswerBox(told.value(0), told.value(1), told.value(2, "box")); }},
        {"boxes-until", PutUpWithBoxes},
        {"question", ExpectQuestion},
        {"clipboard", SetClipboard},
        {"picture", [](Told told) { Picture(told.value(0)); }},
        {"portrait", Portrait},
        {"shorten", Shorten},
        {"close", [](Told) { Close(); }},
        {"end", End},
        {"kept", WaitKept},
        {"end-window", EndWindow},
    };
}

} // namespace e2e

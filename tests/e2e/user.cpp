#include "user.h"

#include "hands.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDeadlineTimer>
#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTableView>
#include <QTextStream>
#include <QThread>
#include <atomic>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace e2e {

namespace {

constexpr unsigned long kLookEvery = 10; // ms

QString homeFolder() {
    return qEnvironmentVariable("QDW8_USER_HOME");
}
QString pictureFolder() {
    return qEnvironmentVariable("QDW8_USER_PICTURES");
}

/// Set when a failure is being reported: nothing in the report may fail again.
std::atomic_flag reporting = ATOMIC_FLAG_INIT;

QStringList visibleWindows() {
    QStringList list;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            const auto* box = qobject_cast<const QMessageBox*>(window);
            list += QStringLiteral("%1 \"%2\"%3%4")
                        .arg(window->objectName(), window->windowTitle(),
                             window->isModal() ? QStringLiteral(" (modal)") : QString(),
                             box != nullptr ? QStringLiteral(": ") + box->text() : QString());
        }
    }
    return list;
}

void pictureWindows() {
    int number = 0;
    QDir().mkpath(pictureFolder());
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            window->grab().save(QStringLiteral("%1/failed-%2-%3.png")
                                    .arg(pictureFolder(), QDir(homeFolder()).dirName())
                                    .arg(++number));
        }
    }
}

/// A routine on its way to the program's thread.
class Errand : public QEvent {
public:
    explicit Errand(std::function<void()> toDo) : QEvent(QEvent::User), routine(std::move(toDo)) {}
    std::function<void()> routine;
};

class Ear : public QObject {
protected:
    void customEvent(QEvent* event) override { static_cast<Errand*>(event)->routine(); }
};

// What follows here runs on the program's thread.

/// The first visible control of the name that `fits`.
QWidget* find(const QString& name, const std::function<bool(QWidget*)>& fits) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) {
            continue;
        }
        if (window->objectName() == name && fits(window)) {
            return window;
        }
        for (QWidget* child : window->findChildren<QWidget*>(name)) {
            if (child->window() == window && child->isVisible() && fits(child)) {
                return child;
            }
        }
    }
    return nullptr;
}

QWidget* seen(const QString& name) {
    return find(name, [](QWidget*) { return true; });
}

QWidget* ready(const QString& name) {
    const QWidget* modal = QApplication::activeModalWidget();
    return find(name, [modal](QWidget* widget) {
        return widget->isEnabled() && (modal == nullptr || widget->window() == modal);
    });
}

QMessageBox* boxOnTop() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

/// Where to press a control: a round or square mark has its place at the left.
Spot spotOn(QWidget* widget) {
    if (widget == nullptr) {
        return {};
    }
    QPoint at = widget->rect().center();
    if (qobject_cast<QRadioButton*>(widget) != nullptr ||
        qobject_cast<QCheckBox*>(widget) != nullptr) {
        at.setX(widget->height() / 2);
    }
    return {widget, at};
}

QString readText(const QWidget* widget) {
    if (widget == nullptr) {
        return {};
    }
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        return label->text();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        return button->text();
    }
    if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
        return field->text();
    }
    return widget->windowTitle();
}

QAction* actionOf(const QString& name) {
    const QWidget* main = seen(QStringLiteral("frmMain"));
    return main == nullptr ? nullptr : main->findChild<QAction*>(name);
}

/// The entry of a menu that is open; the bar counts as one.
Spot spotOfEntry(const QString& menuName, const QString& name) {
    QAction* action = actionOf(name);
    if (action == nullptr || !action->isEnabled() || QApplication::activeModalWidget() != nullptr) {
        return {};
    }
    QWidget* holder = seen(menuName);
    QRect place;
    if (auto* menu = qobject_cast<QMenu*>(holder)) {
        place = menu->actionGeometry(action);
    } else if (auto* bar = qobject_cast<QMenuBar*>(holder)) {
        place = bar->actionGeometry(action);
    }
    return place.isEmpty() ? Spot{} : Spot{holder, place.center()};
}

const QAbstractItemModel* gridModel() {
    const auto* view = qobject_cast<QTableView*>(seen(QStringLiteral("flgdData")));
    return view == nullptr ? nullptr : view->model();
}

QString language = QStringLiteral("english");

QHash<int, QString> readTexts() {
    QHash<int, QString> texts;
    QFile file(QStringLiteral(TEXTS_FOLDER "/%1.txt").arg(language));
    if (!file.open(QIODevice::ReadOnly)) {
        fail(file.fileName() + QStringLiteral(": can't be read"));
    }
    const QStringList rows = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString& row : rows) {
        const qsizetype tab = row.indexOf(u'\t');
        texts.insert(row.left(tab).toInt() % 10000, row.mid(tab + 1));
    }
    return texts;
}

} // namespace

QString configFolder() {
    return qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/QD-W8");
}

QString workFolder() {
    return QDir::currentPath();
}

void writeSettings(const Settings& settings) {
    QDir().mkpath(configFolder());
    QFile file(configFolder() + QStringLiteral("/settings.ini"));
    if (!file.open(QIODevice::WriteOnly)) {
        fail(file.fileName() + QStringLiteral(": can't be written"));
    }
    QTextStream stream(&file);
    stream << "[Settings]\n";
    for (const auto& [key, value] : settings) {
        stream << key << '=' << value << '\n';
    }
}

void post(const std::function<void()>& routine) {
    QCoreApplication::postEvent(ear(), new Errand(routine));
}

QObject* ear() {
    // Never taken away: the process ends while its windows still stand.
    static auto* const only = new Ear;
    return only;
}

void fail(const QString& what) {
    if (!reporting.test_and_set()) {
        std::fprintf(stderr, "FAILED: %s\n", what.toUtf8().constData());
        if (QCoreApplication::instance() != nullptr &&
            QThread::currentThread() != QCoreApplication::instance()->thread()) {
            const QStringList windows = onGui([] {
                pictureWindows();
                return visibleWindows();
            });
            std::fprintf(stderr, "on the screen: %s\n", windows.join(u'\n').toUtf8().constData());
        }
        std::fflush(stderr);
    }
    ::_exit(1);
}

void waitFor(const QString& what, const std::function<bool()>& condition, Boxes boxes) {
    const QDeadlineTimer deadline(kDeadline);
    enum class Seen { Nothing, Condition, Box };
    while (true) {
        const Seen seen = onGui([&condition] {
            if (condition()) {
                return Seen::Condition;
            }
            return boxOnTop() != nullptr ? Seen::Box : Seen::Nothing;
        });
        if (seen == Seen::Condition) {
            return;
        }
        if (seen == Seen::Box && boxes == Boxes::AreFailures) {
            fail(QStringLiteral("waiting for %1, a box came").arg(what));
        }
        if (deadline.hasExpired()) {
            fail(QStringLiteral("waited in vain for ") + what);
        }
        QThread::msleep(kLookEvery);
    }
}

void waitShown(const QString& name) {
    waitFor(name, [&] { return seen(name) != nullptr; });
}

void waitGone(const QString& name) {
    waitFor(name + QStringLiteral(" to go"), [&] { return seen(name) == nullptr; });
}

void waitReady(const QString& name) {
    waitFor(name + QStringLiteral(" to be ready"), [&] { return ready(name) != nullptr; });
}

QString textOf(const QString& name) {
    waitShown(name);
    return onGui([&] { return readText(seen(name)); });
}

void waitText(const QString& name, const QString& text) {
    waitFor(QStringLiteral("%1 to read \"%2\"").arg(name, text),
            [&] { return seen(name) != nullptr && readText(seen(name)) == text; });
}

void waitProgress(int value) {
    waitFor(QStringLiteral("the bar to come to %1").arg(value), [value] {
        const auto* bar = qobject_cast<QProgressBar*>(seen(QStringLiteral("prgBar1")));
        return bar != nullptr && bar->value() >= value;
    });
}

QVector<GridRow> grid() {
    return onGui([] {
        QVector<GridRow> rows;
        const QAbstractItemModel* model = gridModel();
        for (int row = 0; model != nullptr && row < model->rowCount(); ++row) {
            GridRow cells{model->headerData(row, Qt::Vertical).toString()};
            for (int column = 0; column < model->columnCount(); ++column) {
                cells += model->index(row, column).data().toString();
            }
            rows += cells;
        }
        return rows;
    });
}

QStringList gridHeads() {
    return onGui([] {
        QStringList heads;
        const QAbstractItemModel* model = gridModel();
        for (int column = 0; model != nullptr && column < model->columnCount(); ++column) {
            heads += model->headerData(column, Qt::Horizontal).toString();
        }
        return heads;
    });
}

QStringList devices() {
    QStringList texts;
    for (int axis = 0; axis < 4; ++axis) {
        texts += textOf(QStringLiteral("lblDeviceType(%1)").arg(axis));
    }
    return texts;
}

QString lamps() {
    return onGui([] {
        QString lit;
        const std::pair<const char*, QChar> all[] = {{"imgPortGreen", u'P'},
                                                     {"imgGreenLedOnline", u'O'},
                                                     {"imgHomeGreen", u'H'},
                                                     {"imgAlarmLed", u'A'}};
        for (const auto& [name, letter] : all) {
            if (seen(QString::fromLatin1(name)) != nullptr) {
                lit += letter;
            }
        }
        return lit;
    });
}

void waitLamps(const QString& lit) {
    const QDeadlineTimer deadline(kDeadline);
    while (lamps() != lit) {
        if (deadline.hasExpired()) {
            expect(QStringLiteral("the lamps"), lamps(), lit);
        }
        QThread::msleep(kLookEvery);
    }
}

void expect(const QString& what, const QString& seen, const QString& wanted) {
    if (seen != wanted) {
        fail(QStringLiteral("%1 is\n  \"%2\"\nand not\n  \"%3\"").arg(what, seen, wanted));
    }
}

void expect(const QString& what, const QStringList& seen, const QStringList& wanted) {
    expect(what, seen.join(u'|'), wanted.join(u'|'));
}

void expect(const QString& what, const QByteArray& seen, const QByteArray& wanted) {
    const QByteArrayList seenLines = seen.split('\n');
    const QByteArrayList wantedLines = wanted.split('\n');
    for (qsizetype i = 0; i < qMin(seenLines.size(), wantedLines.size()); ++i) {
        expect(QStringLiteral("%1, line %2,").arg(what).arg(i + 1),
               QString::fromLatin1(seenLines[i]), QString::fromLatin1(wantedLines[i]));
    }
    if (seen != wanted) {
        fail(QStringLiteral("%1 has %2 lines and not %3")
                 .arg(what)
                 .arg(seenLines.size())
                 .arg(wantedLines.size()));
    }
}

void expectGrid(const QVector<GridRow>& wanted) {
    const QVector<GridRow> seen = grid();
    if (seen.size() != wanted.size()) {
        fail(QStringLiteral("the grid has %1 rows and not %2").arg(seen.size()).arg(wanted.size()));
    }
    for (qsizetype row = 0; row < seen.size(); ++row) {
        expect(QStringLiteral("row %1 of the grid").arg(row + 1), seen[row], wanted[row]);
    }
}

void speak(const char* name) {
    language = QString::fromLatin1(name);
}

QString text(int id) {
    static const QHash<int, QString> texts = readTexts();
    if (!texts.contains(id)) {
        fail(QStringLiteral("there is no text %1").arg(id));
    }
    return texts.value(id);
}

void click(const QString& name) {
    clickAt(name, [name] { return spotOn(ready(name)); });
}

void choose(const QStringList& names) {
    QString menu = QStringLiteral("mnuBar");
    for (const QString& name : names) {
        clickAt(name, [menu, name] { return spotOfEntry(menu, name); });
        menu = name;
    }
}

void type(const QString& name, const QString& text) {
    click(name);
    waitFor(name + QStringLiteral(" to take the keys"), [name] {
        const QWidget* field = ready(name);
        return field != nullptr && field->hasFocus();
    });
    writeOver([name] { return spotOn(ready(name)); }, textOf(name).size(), text);
    waitText(name, text);
}

void expectBox(const QString& text, const QString& button, const QString& named) {
    QPointer<QMessageBox> box;
    // The pointer lives here and is looked at only on the program's thread.
    waitFor(
        QStringLiteral("the box \"%1\"").arg(text),
        [&box] {
            box = boxOnTop();
            return !box.isNull();
        },
        Boxes::AreFine);
    expect(QStringLiteral("the box"), onGui([&box] {
               const QMessageBox* up = box.data();
               return up == nullptr ? QString() : up->text();
           }),
           text);
    picture(named);
    clickAt(
        button,
        [box, button] {
            const QMessageBox* up = box.data();
            return spotOn(up == nullptr ? nullptr : up->findChild<QPushButton*>(button));
        },
        Boxes::AreFine);
    waitFor(
        QStringLiteral("the box \"%1\" to go").arg(text),
        [&box] {
            const QMessageBox* still = box.data();
            return still == nullptr || !still->isVisible();
        },
        Boxes::AreFine);
}

void saveAs(const QString& offered, const QString& name) {
    const QString field = QStringLiteral("fileNameEdit");
    waitReady(field);
    expect(QStringLiteral("the file offered"), textOf(field), offered);
    if (!name.isEmpty()) {
        type(field, name);
    }
    picture(QStringLiteral("save"));
    clickAt(QStringLiteral("the button that saves"), [] {
        const auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        const auto* buttons = dialog == nullptr ? nullptr : dialog->findChild<QDialogButtonBox*>();
        return spotOn(buttons == nullptr ? nullptr : buttons->button(QDialogButtonBox::Save));
    });
    waitGone(QStringLiteral("CommonDialog1"));
}

void chooseOnLine() {
    waitReady(QStringLiteral("frmSelection"));
    expect(QStringLiteral("the first question's title"), textOf(QStringLiteral("frmSelection")),
           text(471));
    expect(QStringLiteral("the choices"),
           {textOf(QStringLiteral("optSelectKomoku(0)")),
            textOf(QStringLiteral("optSelectKomoku(1)"))},
           {text(2), text(3)});
    picture(QStringLiteral("start-mode"));
    click(QStringLiteral("optSelectKomoku(0)"));
    click(QStringLiteral("cmdSelectOk"));
    waitGone(QStringLiteral("frmSelection"));
}

void startOnLine() {
    chooseOnLine();
    waitReady(QStringLiteral("cmdPosiRead"));
    waitLamps(QStringLiteral("PO"));
}

namespace {

void askForRange(const std::function<void()>& choice) {
    click(QStringLiteral("cmdPosiRead"));
    waitReady(QStringLiteral("frmSelectPosiNo2"));
    choice();
    picture(QStringLiteral("range"));
    click(QStringLiteral("cmdOk"));
    expectBox(text(370), QStringLiteral("Ok"), QStringLiteral("confirm"));
}

} // namespace

void askForAllPositions() {
    askForRange([] { click(QStringLiteral("optSelectPosiNo(0)")); });
}

void askForPositions(int first, int last) {
    askForRange([first, last] {
        click(QStringLiteral("optSelectPosiNo(1)"));
        type(QStringLiteral("txtStartPosiNo"), QString::number(first));
        type(QStringLiteral("txtEndPosiNo"), QString::number(last));
    });
}

void leave() {
    waitReady(QStringLiteral("frmMain"));
    closeWindow(onGui([] { return seen(QStringLiteral("frmMain")); }));
    QFile content(homeFolder() + QStringLiteral("/content"));
    if (!content.open(QIODevice::WriteOnly)) {
        fail(content.fileName() + QStringLiteral(": can't be written"));
    }
    content.close();
    // The program takes the whole process along when it ends.
    expectBox(text(390), QStringLiteral("Ok"), QStringLiteral("finish"));
    QThread::msleep(kDeadline);
    fail(QStringLiteral("the program doesn't end"));
}

bool isTour() {
    return qEnvironmentVariableIsSet("QDW8_USER_TOUR");
}

void picture(const QString& name) {
    if (!isTour()) {
        return;
    }
    // Two looks alike mean that the screen has come to rest; a moving bar never does.
    constexpr int kLooks = 20;
    QImage before;
    QImage now;
    for (int look = 0; look < kLooks && (before.isNull() || now != before); ++look) {
        before = now;
        now = onGui([] { return QApplication::primaryScreen()->grabWindow(0).toImage(); });
        QThread::msleep(5 * kLookEvery);
    }
    static int number = 0;
    now.save(QStringLiteral("%1/%2-%3-%4.png")
                 .arg(pictureFolder())
                 .arg(++number, 2, 10, QLatin1Char('0'))
                 .arg(name, language == QStringLiteral("english") ? QStringLiteral("en")
                                                                  : QStringLiteral("ja")));
}

} // namespace e2e

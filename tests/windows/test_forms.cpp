// Every window as it stands, in both languages, against forms.txt: a line for each control with its
// caption, what a screen reader says, its tip, and whether it is off or hidden.

#include "every_window.h"
#include "main_form.h"
#include "parameter/para_window.h"
#include "platform/whole_file.h"
#include "position/grid_display.h"
#include "print/print_select.h"
#include "program/commands.h"
#include "windows/dialogs/frmSplash.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QMenu>
#include <QPushButton>
#include <QToolBar>

namespace qdw8::test {
namespace {

QString Line(const QStringList& parts) {
    QString line = parts.join(QStringLiteral(" | "));
    while (line.endsWith(QLatin1String(" | "))) {
        line.chop(3);
    }
    return QStringLiteral("  ") + line.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
}

QString Caption(const QWidget& control) {
    for (const char* property : {"title", "text", "currentText"}) {
        if (control.property(property).isValid()) {
            return control.property(property).toString();
        }
    }
    return {};
}

QStringList Heads(const QTableView& table) {
    QStringList heads;
    for (int column = 0; column < table.model()->columnCount(); ++column) {
        heads
            << table.model()->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString();
    }
    return heads;
}

/// The window's controls in the order in which they were made.
QString Describe(const char* name, QWidget& window) {
    QStringList lines{QStringLiteral("%1 | %2").arg(QLatin1String(name), window.windowTitle())};
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        const QString object = control->objectName();
        if (object.isEmpty() || object.startsWith(QLatin1String("qt_")) ||
            object == QLatin1String("ScrollLeftButton") ||
            object == QLatin1String("ScrollRightButton")) {
            continue;
        }
        QString accessible = control->accessibleName();
        if (accessible == Caption(*control)) {
            accessible = accessible.isEmpty() ? QString() : QStringLiteral("=");
        }
        lines << Line({object, Caption(*control), accessible, control->toolTip(),
                       QString(control->isEnabledTo(&window) ? "" : "off") +
                           (control->isVisibleTo(&window) ? "" : " hidden")});
        if (const auto* menu = qobject_cast<const QMenu*>(control)) {
            for (const QAction* entry : menu->actions()) {
                lines << QStringLiteral("  ") +
                             Line({entry->isSeparator() ? QStringLiteral("-") : entry->text(),
                                   entry->shortcut().toString()});
            }
        } else if (const auto* list = qobject_cast<const QComboBox*>(control)) {
            EXPECT_TRUE(!list->isEditable() ||
                        list->lineEdit()->accessibleName() == list->accessibleName());
        } else if (const auto* table = qobject_cast<const QTableView*>(control)) {
            lines << QStringLiteral("  ") + Line(Heads(*table));
        } else if (const auto* bar = qobject_cast<const QToolBar*>(control)) {
            for (const QAction* button : bar->actions()) {
                lines << QStringLiteral("  ") + Line({button->isSeparator() ? QStringLiteral("-")
                                                                            : button->objectName(),
                                                      button->toolTip()});
                EXPECT_EQ(button->isSeparator(), button->icon().isNull());
            }
        }
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

class Forms : public MainForm {
protected:
    template<typename Window, typename... With> void add(const char* name, With&&... with) {
        Window form(std::forward<With>(with)...);
        if constexpr (requires { form.showState(); }) {
            form.showState();
        }
        all += Describe(name, form);
    }

    void describeAll() {
        Set_MainFormStr();
        frmMain another(Commands(), {});
        another.loadResources();
        all += Describe("frmMain", another);
        add<frmSelection>("frmSelection", SelectionQuestion{ResText(471),
                                                            ResText(44),
                                                            {"A & B", ResText(46), ResText(47)},
                                                            false});
        add<frmSelection>(
            "frmSelection, must be answered",
            SelectionQuestion{ResText(471), ResText(41), {ResText(42), ResText(43)}, true});
        {
            const TransferShown shown(4, 368, TransferShown::Cancel::Yes);
            add<frmTrance>("frmTrance");
        }
        {
            const TransferShown shown(4, 378);
            add<frmTrance>("frmTrance, without cancel");
        }
        OfferGiveUp();
        add<frmGiveUp>("frmGiveUp");
        WithdrawGiveUp();
        ProcessingShownFlag = kSet;
        add<frmProcessing>("frmProcessing");
        ProcessingShownFlag = kClear;
        GridFirst = 1;
        GridLast = 10;
        add<frmSelectPosiNo2>("frmSelectPosiNo2");
        add<frmSelectPosiNo3>("frmSelectPosiNo3");
        for (const std::int16_t first : {std::int16_t{5}, std::int16_t{11}}) {
            FileFirst = first;
            FileLast = 20;
            add<frmSelectPosiNo4>("frmSelectPosiNo4", CompareFileRange() == 0);
        }
        add<frmDataShogo>("frmDataShogo");
        for (const Flag mode : {kClear, kSet}) {
            SyogoMode = mode;
            add<frmSyogoKekka>("frmSyogoKekka");
        }
        add<frmSplash>("frmSplash");
        FirstDeviceSetFlag = DispMmFlag = kSet;
        add<frmDevice2>("frmDevice2, in mm");
        StartDeviceSelectFlag = kSet;
        DispMmFlag = kClear;
        add<frmDevice2>("frmDevice2, at the start");
        StartDeviceSelectFlag = kClear;
        add<frmDevice3>("frmDevice3");
        LoadParameta2();
        add<frmParameta2>("frmParameta2");
        add<frmDevice>("frmDevice");
        add<frmGrp>("frmGrp");
        add<frmSqMcr>("frmSqMcr");
        add<frmIOCheck>("frmIOCheck");
        add<frmJOG>("frmJOG");
        UnloadJog();
        add<frmMove>("frmMove");
        LoadPrintSelect();
        add<frmPrintSelect>("frmPrintSelect");
        add<frmPrintPreview>("frmPrintPreview");
        ThePlatform().programFolder = "/opt/QD-W8";
        ThePlatform().settingsFolder = "/home/user/.config/QD-W8";
        add<frmOptions2>("frmOptions2");
        add<frmAbout>("frmAbout");
        ThePlatform().programFolder = QDW8_SOURCE_DIR;
        add<frmHelp>("frmHelp", ReadManual().value_or(Manual{}));
        ThePlatform().programFolder = QDW8_DATA_DIR;
    }

    QString all;
};

TEST_F(Forms, StandAsInTheFile) {
    loadParameters();
    Screens().frmDeviceShow = [] {};
    ThePlatform().programFolder = QDW8_DATA_DIR;
    AxisOff[2] = kSet;
    for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{0}}) {
        speak(base);
        describeAll();
    }
    const std::string actual = all.toStdString();
    const std::string path = testing::TempDir() + "forms.txt";
    WriteWholeFile(path, actual);
    EXPECT_TRUE(actual == ReadWholeFile(QDW8_SOURCE_DIR "/tests/windows/forms.txt"))
        << "what stands now: " << path;
}

} // namespace
} // namespace qdw8::test

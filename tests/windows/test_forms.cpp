// Every window as it stands, in both languages, against forms.txt: a line for each control with its
// caption, what a screen reader says, its tip, and whether it is off or hidden.

#include "each_window.h"
#include "platform/whole_file.h"

#include <QAction>
#include <QComboBox>
#include <QMenu>
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
    QStringList lines{
        QStringLiteral("%1 | %2").arg(QLatin1String(name), window.windowTitle().remove("[*]"))};
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

using Forms = EachWindow;

TEST_F(Forms, StandAsInTheFile) {
    QString all;
    for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{0}}) {
        speak(base);
        visitAll([&all](const char* name, QWidget& form) { all += Describe(name, form); });
    }
    const std::string actual = all.toStdString();
    const std::string path = testing::TempDir() + "forms.txt";
    WriteWholeFile(path, actual);
    EXPECT_TRUE(actual == ReadWholeFile(QDW8_SOURCE_DIR "/tests/windows/forms.txt"))
        << "what stands now: " << path;
}

} // namespace
} // namespace qdw8::test

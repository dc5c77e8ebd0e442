#include "windows/controls/load_form_resources.h"

#include "window_fixture.h"

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>

namespace qdw8::test {
namespace {

class LoadFormResourcesTest : public WindowTest {
protected:
    QMainWindow window;
};

template<typename Control> void Check(QMainWindow& window) {
    struct Case {
        const char* tag; ///< null: no such property
        const char* toolTipText;
        const char* caption; ///< expected
        const char* toolTip;
    };
    for (const Case& one :
         {Case{"212", nullptr, "File Name", ""},
          Case{" 212 x", "313", "File Name", "Open file of position data"},
          Case{nullptr, "313", "design", "Open file of position data"},
          Case{"0", "0", "design", ""}, Case{"99", "99999", "design", ""}}) { // no such rows
        Control control(QStringLiteral("design"), &window);
        control.setProperty(kTag, one.tag == nullptr ? QVariant() : QVariant(one.tag));
        control.setProperty(kToolTipText,
                            one.toolTipText == nullptr ? QVariant() : QVariant(one.toolTipText));
        LoadFormResources(window);
        EXPECT_EQ(control.text().toStdString(), one.caption);
        EXPECT_EQ(control.toolTip().toStdString(), one.toolTip) << one.caption;
    }
}

TEST_F(LoadFormResourcesTest, ControlsByTheirNumbers) {
    Check<QLabel>(window);
    Check<QPushButton>(window);
    // With another base the number 0 has a row: a label takes it, any other control doesn't.
    speak(10001);
    QLabel label(QStringLiteral("design"), &window);
    QPushButton button(QStringLiteral("design"), &window);
    label.setProperty(kTag, "0");
    button.setProperty(kTag, "0");
    LoadFormResources(window);
    EXPECT_TRUE(label.text().startsWith("By which shall"));
    EXPECT_EQ(button.text(), "design");
}

TEST_F(LoadFormResourcesTest, EachKindOfControlInItsOwnWay) {
    window.setWindowTitle(QStringLiteral("design"));
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("250"));
    QAction* entry = menu->addAction(QStringLiteral("251"));
    QAction* literal = menu->addAction(QStringLiteral("design"));
    QTreeWidget list(&window);
    list.setHeaderLabels({"design", "design"});
    list.headerItem()->setData(1, kTagRole, "225");
    QTabWidget tabs(&window);
    auto* first = new QWidget;
    auto* second = new QWidget;
    tabs.addTab(first, QStringLiteral("design"));
    tabs.addTab(second, QStringLiteral("design"));
    SetNumbers(*second, 250, 313);
    QWidget inside(second); // stands on a page and is none
    SetNumbers(inside, 202);
    QLineEdit box(QStringLiteral("design"), &window);
    SetNumbers(box, 212, 313);
    QDialog dialog(&window); // a window on top of the window is left alone
    QLabel other(QStringLiteral("design"), &dialog);
    SetNumbers(other, 212);
    for (int time = 0; time < 2; ++time) { // a second time finds no numbers in the menus any more
        LoadFormResources(window);
        EXPECT_EQ(menu->title() + entry->text() + literal->text(), "File(&F)New Data(&N)design");
    }
    EXPECT_EQ(window.windowTitle(), "design");
    EXPECT_EQ(list.headerItem()->text(0) + list.headerItem()->text(1), "designVEL");
    EXPECT_EQ(tabs.tabText(0) + tabs.tabText(1), "designFile(&F)");
    EXPECT_EQ(second->accessibleName(), "File(F)");
    EXPECT_EQ(inside.accessibleName(), "Position Data");
    EXPECT_EQ(box.text() + box.accessibleName(), "designFile Name");
    EXPECT_EQ(other.text(), "design");
}

} // namespace
} // namespace qdw8::test

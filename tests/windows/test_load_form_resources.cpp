#include "windows/controls/load_form_resources.h"

#include "window_fixture.h"

#include <QAction>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

namespace qdw8::test {
namespace {

class LoadFormResourcesTest : public WindowTest {
protected:
    QMainWindow window;
};

struct Case {
    const char* tag; ///< null: no such property
    const char* toolTipText;
    const char* caption; ///< expected
    const char* toolTip;
};

template<typename Control> void Check(QMainWindow& window, const std::vector<Case>& cases) {
    for (const Case& one : cases) {
        Control control(QStringLiteral("design"), &window);
        if (one.tag != nullptr) {
            control.setProperty(kTag, QString::fromLatin1(one.tag));
        }
        if (one.toolTipText != nullptr) {
            control.setProperty(kToolTipText, QString::fromLatin1(one.toolTipText));
        }
        LoadFormResources(window);
        const std::string described = std::string(one.tag ? one.tag : "none") + ", " +
                                      (one.toolTipText ? one.toolTipText : "none");
        EXPECT_EQ(control.text().toStdString(), one.caption) << described;
        EXPECT_EQ(control.toolTip().toStdString(), one.toolTip) << described;
    }
}

TEST_F(LoadFormResourcesTest, LabelsAndOtherControlsByTheirNumbers) {
    const std::vector<Case> cases{
        {"212", nullptr, "File Name", ""},
        {" 212 x", "313", "File Name", "Open file of position data"},
        {nullptr, nullptr, "design", ""},
        {nullptr, "313", "design", "Open file of position data"},
        {"0", "0", "design", ""},
        {"99", "313", "design", "Open file of position data"}, // no such row
        {"99999", "99999", "design", ""},                      // no such number
        {"", "", "design", ""},
    };
    Check<QLabel>(window, cases);
    Check<QPushButton>(window, cases);
}

TEST_F(LoadFormResourcesTest, OnlyALabelReadsARowBelowZeroOrOfNumberZero) {
    // With another base the number 0 has a row: a label takes it, any other control doesn't.
    speak(10001);
    QLabel label(QStringLiteral("design"), &window);
    QPushButton button(QStringLiteral("design"), &window);
    label.setProperty(kTag, "0");
    button.setProperty(kTag, "0");
    LoadFormResources(window);
    EXPECT_TRUE(label.text().startsWith("By which shall")) << label.text().toStdString();
    EXPECT_EQ(button.text(), "design");
}

TEST_F(LoadFormResourcesTest, TheWindowItself) {
    window.setWindowTitle(QStringLiteral("design"));
    LoadFormResources(window);
    EXPECT_EQ(window.windowTitle(), "design");
    SetNumbers(window, 271);
    speak(0);
    LoadFormResources(window);
    EXPECT_EQ(window.windowTitle(), QString::fromUtf8("ツールバー(&T)"));
}

TEST_F(LoadFormResourcesTest, MenusByTheNumberInTheirCaption) {
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("250"));
    QAction* entry = menu->addAction(QStringLiteral("251"));
    menu->addSeparator();
    QAction* literal = menu->addAction(QStringLiteral("design"));
    QMenu* inner = menu->addMenu(QStringLiteral("257"));
    QAction* innerEntry = inner->addAction(QStringLiteral("258"));
    for (int time = 0; time < 2; ++time) { // a second time finds no numbers any more
        LoadFormResources(window);
        EXPECT_EQ(menu->title(), "File(&F)");
        EXPECT_EQ(entry->text(), "New Data(&N)");
        EXPECT_EQ(literal->text(), "design");
        EXPECT_EQ(inner->title(), "Verify Position");
        EXPECT_EQ(innerEntry->text(), "File");
    }
}

TEST_F(LoadFormResourcesTest, ToolBarsGiveTheirButtonsToolTipsOnly) {
    QToolBar* bar = window.addToolBar(QString());
    QAction* with = bar->addAction(QStringLiteral("design"));
    SetNumbers(*with, 203, 300);
    QAction* without = bar->addAction(QStringLiteral("design"));
    LoadFormResources(window);
    EXPECT_EQ(with->toolTip(), "All clear and New data");
    EXPECT_EQ(with->text(), "design");
    EXPECT_EQ(bar->widgetForAction(with)->accessibleName(), "All clear and New data");
    EXPECT_EQ(without->toolTip(), "design");
}

TEST_F(LoadFormResourcesTest, HeadsOfListsAndTitlesOfFrames) {
    QTreeWidget list(&window);
    list.setHeaderLabels({"design", "design"});
    list.headerItem()->setData(1, kTagRole, "225");
    QGroupBox frame(QStringLiteral("design"), &window);
    SetNumbers(frame, 202);
    QLabel inside(QStringLiteral("design"), &frame);
    SetNumbers(inside, 215);
    LoadFormResources(window);
    EXPECT_EQ(list.headerItem()->text(0), "design");
    EXPECT_EQ(list.headerItem()->text(1), "VEL");
    EXPECT_EQ(frame.title(), "Position Data");
    EXPECT_EQ(inside.text(), "No.");
}

TEST_F(LoadFormResourcesTest, PagesOfTabsAndControlsWithoutACaption) {
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
    LoadFormResources(window);
    EXPECT_EQ(tabs.tabText(0), "design");
    EXPECT_EQ(tabs.tabText(1), "File(&F)");
    EXPECT_EQ(second->accessibleName(), "File(F)");
    EXPECT_EQ(inside.accessibleName(), "Position Data");
    EXPECT_EQ(box.text(), "design");
    EXPECT_EQ(box.accessibleName(), "File Name");
    EXPECT_EQ(box.toolTip(), "Open file of position data");
}

TEST_F(LoadFormResourcesTest, AWindowOnTopOfTheWindowIsLeftAlone) {
    QDialog dialog(&window);
    QLabel label(QStringLiteral("design"), &dialog);
    SetNumbers(label, 212);
    LoadFormResources(window);
    EXPECT_EQ(label.text(), "design");
}

} // namespace
} // namespace qdw8::test

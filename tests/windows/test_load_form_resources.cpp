#include "windows/controls/load_form_resources.h"

#include "window_fixture.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>

namespace qdw8::test {
namespace {

// What the windows that are built don't show; the rest stands in the forms as they are told.
using LoadFormResourcesTest = WindowTest;

TEST_F(LoadFormResourcesTest, ANumberWithoutARowLeavesTheDesign) {
    QMainWindow window;
    const auto read = [&window](auto* control, const char* tag, const char* toolTip) {
        control->setText(QStringLiteral("design"));
        control->setProperty(kTag, tag);
        control->setProperty(kToolTipText, toolTip);
        LoadFormResources(window);
        return (control->text() + '|' + control->toolTip()).toStdString();
    };
    for (const auto& [tag, tip, all] : std::vector<std::array<const char*, 3>>{
             {" 212 x", "313", "File Name|Open file of position data"},
             {"0", "0", "design|"},
             {"99", "99999", "design|"}}) {
        EXPECT_EQ(read(new QLabel(&window), tag, tip), all);
        EXPECT_EQ(read(new QPushButton(&window), tag, tip), all);
    }
    speak(10001); // the number 0 has a row here: a label takes it, any other control doesn't
    EXPECT_TRUE(read(new QLabel(&window), "0", "").starts_with("By which shall"));
    EXPECT_EQ(read(new QPushButton(&window), "0", ""), "design|");
}

TEST_F(LoadFormResourcesTest, PagesListsAndWindowsOnTop) {
    QMainWindow window;
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("250"));
    QTreeWidget list(&window);
    list.setHeaderLabels({"design", "design"});
    list.headerItem()->setData(1, kTagRole, "225");
    QTabWidget tabs(&window);
    for (const std::int16_t tag : {std::int16_t{0}, std::int16_t{250}}) {
        auto* page = new QWidget;
        tabs.addTab(page, QStringLiteral("design"));
        SetNumbers(*page, tag);
    }
    QLineEdit box(QStringLiteral("design"), &window);
    SetNumbers(box, 212);
    QDialog dialog(&window); // is left alone
    QLabel other(QStringLiteral("design"), &dialog);
    SetNumbers(other, 212);
    LoadFormResources(window);
    LoadFormResources(window); // finds no numbers in the menus any more
    EXPECT_EQ(menu->title(), "File(&F)");
    EXPECT_EQ(list.headerItem()->text(0) + list.headerItem()->text(1), "designVEL");
    EXPECT_EQ(tabs.tabText(0) + tabs.tabText(1), "designFile(&F)");
    EXPECT_EQ(tabs.widget(1)->accessibleName(), "File(F)");
    EXPECT_EQ(box.text() + box.accessibleName(), "designFile Name");
    EXPECT_EQ(other.text(), "design");
}

} // namespace
} // namespace qdw8::test

#include "windows/main/main_commands.h"

#include "windows/controls/icons.h"
#include "windows/controls/load_form_resources.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>
#include <optional>
#include <vector>

namespace qdw8 {
namespace {

using enum Command;

std::size_t IndexOf(Command command) {
    return static_cast<std::size_t>(command);
}

QString ObjectNameOf(Command command) {
    const std::string_view name = NameOf(command);
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

/// An entry of a menu; without a command it is a separator.
struct Entry {
    std::optional<Command> command;
    std::int16_t number = 0;
    QKeySequence shortcut;
    bool checkable = false;
};
const Entry kSeparator{};

QAction* AddEntry(QMenu& menu, CommandControls& controls, const Entry& entry,
                  const CommandRoutine& routine) {
    if (!entry.command) {
        return menu.addSeparator();
    }
    const Command command = *entry.command;
    QAction* action = menu.addAction(QString::number(entry.number));
    action->setObjectName(ObjectNameOf(command));
    action->setShortcut(entry.shortcut);
    action->setCheckable(entry.checkable);
    action->setChecked(entry.checkable);
    // Qt would move entries with names like "Exit" or "Option" elsewhere on some desktops.
    action->setMenuRole(QAction::NoRole);
    QObject::connect(action, &QAction::triggered, &menu, [routine, command] { routine(command); });
    controls.actions[IndexOf(command)] = action;
    return action;
}

QMenu* AddMenu(QMenu* menu, const QString& name) {
    menu->setObjectName(name);
    menu->setToolTipsVisible(false);
    return menu;
}

/// A menu that is a command itself: while the command is off, the whole menu is.
QMenu* AddMenu(QMenu* menu, CommandControls& controls, Command command) {
    menu->menuAction()->setObjectName(ObjectNameOf(command));
    controls.actions[IndexOf(command)] = menu->menuAction();
    return AddMenu(menu, ObjectNameOf(command));
}

void AddEntries(QMenu& menu, CommandControls& controls, const std::vector<Entry>& entries,
                const CommandRoutine& routine) {
    for (const Entry& entry : entries) {
        AddEntry(menu, controls, entry, routine);
    }
}

struct ToolButton {
    std::optional<Command> command; ///< none: a separator
    std::int16_t toolTipText = 0;
    Drawing drawing = Drawing::New;
};

// The places of the buttons count: the separators are members 4, 6, 10, 15, 17, 19 and 21.
const std::array<ToolButton, 22> kToolButtons{{
    {tbNew, 300, Drawing::New},
    {tbOpen, 301, Drawing::Open},
    {tbSave, 302, Drawing::Save},
    {},
    {tbPrint, 303, Drawing::Print},
    {},
    {tbRead, 304, Drawing::Read},
    {tbLoad, 305, Drawing::Load},
    {tbShogo, 306, Drawing::Shogo},
    {},
    {tbLineCopy, 307, Drawing::LineCopy},
    {tbLinePaste, 308, Drawing::LinePaste},
    {tbCellCopy, 340, Drawing::CellCopy},
    {tbCellPaste, 341, Drawing::CellPaste},
    {},
    {tbInputOutput, 309, Drawing::InputOutput},
    {},
    {tbMoveTest, 310, Drawing::MoveTest},
    {},
    {tbGroup, 311, Drawing::Group},
    {},
    {tbSqMacro, 312, Drawing::SqMacro},
}};

} // namespace

void CommandControls::showStates() const {
    for (std::size_t index = 0; index < kCommands; ++index) {
        const bool enabled = IsEnabled(static_cast<Command>(index));
        if (actions[index] != nullptr) {
            actions[index]->setEnabled(enabled);
        }
        if (buttons[index] != nullptr) {
            buttons[index]->setEnabled(enabled);
        }
    }
}

void BuildMenus(QMainWindow& window, CommandControls& controls, const CommandRoutine& routine) {
    QMenuBar& bar = *window.menuBar();
    bar.setObjectName(QStringLiteral("mnuBar"));
    const auto number = [](int id) { return QString::number(id); };

    QMenu* file = AddMenu(bar.addMenu(number(250)), QStringLiteral("mnuFile"));
    AddEntries(*file, controls,
               {{mnuFileNew, 251, QKeySequence::New},
                {mnuFileOpen, 252, QKeySequence::Open},
                {mnuFileGetfromCt, 253, Qt::CTRL | Qt::Key_R},
                kSeparator,
                {mnuFileSave, 254, QKeySequence::Save},
                {mnuFileSaveAs, 255, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
                {mnuFileLoadtoCt, 256, Qt::CTRL | Qt::Key_L},
                kSeparator},
               routine);
    QMenu* verify = AddMenu(file->addMenu(number(257)), controls, mnuFileShogo);
    AddEntries(*verify, controls, {{mnuFileShogoFile, 258, {}}, {mnuFileShogoCt, 259, {}}},
               routine);
    AddEntries(*file, controls,
               {kSeparator,
                {mnuFilePageSetup, 260, {}},
                {mnuFilePrint, 261, QKeySequence::Print},
                kSeparator,
                {mnuFileExit, 262, Qt::CTRL | Qt::Key_Q}},
               routine);
    // There is no text for closing the document: it has its shortcut and no entry.
    QAction* close = new QAction(&window);
    close->setObjectName(ObjectNameOf(mnuFileClose));
    close->setShortcut(QKeySequence::Close);
    QObject::connect(close, &QAction::triggered, &window, [routine] { routine(mnuFileClose); });
    window.addAction(close);
    controls.actions[IndexOf(mnuFileClose)] = close;

    QMenu* edit = AddMenu(bar.addMenu(number(265)), controls, mnuEdit);
    AddEntries(*edit, controls,
               {{mnuEditGyoInsert, 266, Qt::CTRL | Qt::Key_Plus},
                {mnuEditGyoDelete, 267, Qt::CTRL | Qt::Key_Minus},
                kSeparator,
                {mnuEditLineCopy, 268, Qt::CTRL | Qt::SHIFT | Qt::Key_C},
                {mnuEditLinePaste, 269, Qt::CTRL | Qt::SHIFT | Qt::Key_V},
                kSeparator,
                {mnuEditCellCopy, 297, QKeySequence::Copy},
                {mnuEditCellPaste, 298, QKeySequence::Paste}},
               routine);

    QMenu* view = AddMenu(bar.addMenu(number(270)), controls, mnuView);
    AddEntries(*view, controls,
               {{mnuViewToolBar, 271, {}, true},
                {mnuViewStatusBar, 272, {}, true},
                kSeparator,
                {mnuViewInputOutput, 273, {}},
                {mnuViewMoveTest, 274, {}},
                {mnuViewGroup, 275, {}},
                {mnuViewSqMacro, 276, {}},
                {mnuViewTeaching, 277, {}},
                kSeparator,
                {mnuViewOption, 278, {}}},
               routine);

    QMenu* settings = AddMenu(bar.addMenu(number(280)), controls, mnuSettings);
    AddEntries(*settings, controls,
               {{mnuSettingsDeviceOnline, 281, {}},
                {mnuSettingsDeviceOffline, 282, {}},
                {mnuSettingsDetail, 283, {}},
                kSeparator,
                {mnuSettingsOffline, 294, {}}},
               routine);

    QMenu* controller = AddMenu(bar.addMenu(number(285)), controls, mnuFunctionCt);
    AddEntries(*controller, controls,
               {{mnuFuncAlmReset, 286, {}},
                kSeparator,
                {mnuFuncCtversion, 287, {}},
                {mnuFuncGetAxis, 288, {}},
                kSeparator,
                {mnuFuncExternal, 295, {}}},
               routine);

    QMenu* help = AddMenu(bar.addMenu(number(290)), QStringLiteral("mnuHelp"));
    AddEntries(*help, controls,
               {{mnuHelpContents, 291, QKeySequence::HelpContents}, {mnuHelpVersion, 292, {}}},
               routine);
}

QToolBar* BuildToolBar(QMainWindow& window, CommandControls& controls,
                       const CommandRoutine& routine) {
    auto* toolBar = new QToolBar(&window);
    toolBar->setObjectName(QStringLiteral("tbToolBar"));
    toolBar->setMovable(false);
    toolBar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    toolBar->setIconSize({24, 24});
    for (const ToolButton& button : kToolButtons) {
        if (!button.command) {
            toolBar->addSeparator();
            continue;
        }
        const Command command = *button.command;
        QAction* action = toolBar->addAction(IconOf(button.drawing), QString());
        action->setObjectName(ObjectNameOf(command));
        SetNumbers(*action, 0, button.toolTipText);
        toolBar->widgetForAction(action)->setObjectName(ObjectNameOf(command));
        QObject::connect(action, &QAction::triggered, toolBar,
                         [routine, command] { routine(command); });
        controls.actions[IndexOf(command)] = action;
    }
    window.addToolBar(toolBar);
    return toolBar;
}

QAbstractButton* MakeButton(QWidget& parent, CommandControls& controls, Command command,
                            std::int16_t tag, std::int16_t toolTipText,
                            const CommandRoutine& routine) {
    auto* button = new QPushButton(&parent);
    button->setObjectName(ObjectNameOf(command));
    SetNumbers(*button, tag, toolTipText);
    QObject::connect(button, &QPushButton::clicked, &parent,
                     [routine, command] { routine(command); });
    controls.buttons[IndexOf(command)] = button;
    return button;
}

} // namespace qdw8

#include "windows/main/main_commands.h"

#include "windows/controls/icons.h"
#include "windows/controls/load_form_resources.h"

#include <QAction>
#include <QGridLayout>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>
#include <algorithm>
#include <map>

namespace qdw8 {
namespace {

std::size_t IndexOf(Command command) {
    return static_cast<std::size_t>(command);
}

QString ObjectNameOf(Command command) {
    const std::string_view name = NameOf(command);
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

void Bind(QObject& context, QAction& action, Command command, const CommandRoutine& routine) {
    action.setObjectName(ObjectNameOf(command));
    QObject::connect(&action, &QAction::triggered, &context,
                     [routine, command] { routine(command); });
}

/// The menu, made with its first entry.
QMenu& TheMenu(QMainWindow& window, CommandControls& controls, const CommandTable& table,
               Menu wanted) {
    const MenuRow& row = *std::find_if(table.menus.begin(), table.menus.end(),
                                       [wanted](const MenuRow& r) { return r.menu == wanted; });
    const QString name = QString::fromLatin1(row.name);
    if (auto* there = window.findChild<QMenu*>(name)) {
        return *there;
    }
    const QString caption = QString::number(row.caption);
    QMenu* menu = nullptr;
    if (row.inside) {
        QMenu& outer = TheMenu(window, controls, table, *row.inside);
        if (row.line) {
            outer.addSeparator();
        }
        menu = outer.addMenu(caption);
    } else if (row.caption == 0) {
        menu = new QMenu(&window);
    } else {
        menu = window.menuBar()->addMenu(caption);
    }
    menu->setObjectName(name);
    menu->setToolTipsVisible(false);
    if (row.command) {
        menu->menuAction()->setObjectName(name);
        controls.actions[IndexOf(*row.command)] = menu->menuAction();
    }
    return *menu;
}

/// An entry; without a caption it is its key alone.
QAction* MakeEntry(QMainWindow& window, CommandControls& controls, const CommandTable& table,
                   const MenuPlace& place) {
    if (place.caption == 0) {
        auto* action = new QAction(&window);
        window.addAction(action);
        return action;
    }
    QMenu& menu = TheMenu(window, controls, table, place.menu);
    if (place.line) {
        menu.addSeparator();
    }
    QAction* action = menu.addAction(QString::number(place.caption));
    if (place.menu == Menu::Grid) {
        window.addAction(action); // the keys of a menu that stands in no bar go nowhere
    }
    return action;
}

/// The keys of an entry: its own, and those that the desktop has for it.
QList<QKeySequence> KeysOf(const MenuPlace& place) {
    QList<QKeySequence> keys = QKeySequence::listFromString(QLatin1String(place.key));
    const bool undo = place.name == Command::mnuGridUndo;
    if (undo || place.name == Command::mnuGridRedo) {
        for (const QKeySequence& key :
             QKeySequence::keyBindings(undo ? QKeySequence::Undo : QKeySequence::Redo)) {
            if (!keys.contains(key)) {
                keys << key;
            }
        }
    }
    return keys;
}

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

void BuildMenus(QMainWindow& window, CommandControls& controls, const CommandTable& table,
                const CommandRoutine& routine) {
    window.menuBar()->setObjectName(QStringLiteral("mnuBar"));
    for (const CommandRow& row : table.rows) {
        if (!row.entry) {
            continue;
        }
        QAction* action = MakeEntry(window, controls, table, *row.entry);
        Bind(window, *action, row.entry->name, routine);
        action->setShortcuts(KeysOf(*row.entry));
        action->setShortcutContext(row.entry->everywhere ? Qt::ApplicationShortcut
                                                         : Qt::WindowShortcut);
        action->setCheckable(row.entry->ticked);
        action->setChecked(row.entry->ticked);
        // Qt would move entries with names like "Exit" or "Option" elsewhere on some desktops.
        action->setMenuRole(QAction::NoRole);
        controls.actions[IndexOf(row.entry->name)] = action;
    }
}

QToolBar* BuildToolBar(QMainWindow& window, CommandControls& controls, const CommandTable& table,
                       const CommandRoutine& routine) {
    auto* toolBar = new QToolBar(&window);
    toolBar->setObjectName(QStringLiteral("tbToolBar"));
    toolBar->setMovable(false);
    toolBar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    toolBar->setIconSize({24, 24});
    std::map<int, const ToolBarPlace*> places;
    for (const CommandRow& row : table.rows) {
        if (row.tool) {
            places[row.tool->index] = &*row.tool;
        }
    }
    int index = 1;
    for (const auto& [wanted, place] : places) {
        for (; index < wanted; ++index) {
            toolBar->addSeparator();
        }
        ++index;
        QAction* action = toolBar->addAction(IconOf(place->drawing), QString());
        Bind(*toolBar, *action, place->name, routine);
        SetNumbers(*action, 0, place->toolTip);
        toolBar->widgetForAction(action)->setObjectName(action->objectName());
        controls.actions[IndexOf(place->name)] = action;
    }
    window.addToolBar(toolBar);
    return toolBar;
}

void BuildButtons(QWidget& parent, QGridLayout& layout, Frame frame, CommandControls& controls,
                  const CommandTable& table, const CommandRoutine& routine) {
    // Made column by column, in the order in which the Tab key goes through them.
    std::map<std::pair<int, int>, const ButtonPlace*> places;
    for (const CommandRow& row : table.rows) {
        if (row.button && row.button->frame == frame) {
            places[{row.button->column, row.button->row}] = &*row.button;
        }
    }
    for (const auto& [at, place] : places) {
        const Command command = place->name;
        auto* button = new QPushButton(&parent);
        button->setObjectName(ObjectNameOf(command));
        SetNumbers(*button, place->caption, place->toolTip);
        QObject::connect(button, &QPushButton::clicked, &parent,
                         [routine, command] { routine(command); });
        controls.buttons[IndexOf(command)] = button;
        layout.addWidget(button, place->row, place->column);
    }
}

} // namespace qdw8

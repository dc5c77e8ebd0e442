#include "windows/tables/table_buttons.h"

#include "app/command_states.h"
#include "link/window_command.h"
#include "platform/qt/work_window.h"
#include "windows/controls/dropped_files.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/texts.h"

#include <QBoxLayout>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 12;
constexpr int kBlockGap = 12;
constexpr std::int16_t kClose = 813;

/// A command's place on the screen: from above, in blocks.
struct Place {
    void (*routine)(const SmallTable&);
    char letter; ///< its mnemonic, in the captions of both windows
    bool newBlock = false;
};
constexpr std::array<Place, std::tuple_size_v<TableCommands>> kPlaces{{
    {ReadTable, 'R'},
    {WriteTable, 'W'},
    {VerifyWithController, 'V'},
    {OpenTable, 'O', true},
    {SaveTable, 'S'},
    {VerifyWithFile, 'F'},
    {PrintShown, 'I', true},
    {PrintFile, 'P'},
}};

} // namespace

TableFrame LayTableWindow(QDialog& window, const char* name, std::int16_t titleId) {
    window.setObjectName(QLatin1String(name));
    SetNumbers(window, titleId);
    CountAsWorkWindow(window);
    auto* layout = new QHBoxLayout(&window);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* fields = new QWidget(&window);
    auto* left = new QVBoxLayout(fields);
    left->setContentsMargins(0, 0, 0, 0);
    left->setSpacing(kSpacing);
    layout->addWidget(fields);
    auto* right = new QVBoxLayout;
    layout->addLayout(right);
    return {fields, left, right};
}

TableButtons::TableButtons(QWidget& of, QBoxLayout& layout, const SmallTable& shown,
                           const TableCommands& all, const char* closeName,
                           std::function<void()> take, std::function<QWidget*(TablePlace)> at)
    : window(of), table(shown), commands(all), takeTyped(std::move(take)), fieldAt(std::move(at)) {
    for (const Place& place : kPlaces) {
        const auto command = std::find_if(all.begin(), all.end(), [&place](const auto& one) {
            return one.routine == place.routine;
        });
        if (place.newBlock) {
            layout.addSpacing(kBlockGap);
        }
        QPushButton* button = add(layout, command->control, command->captionId, place.letter);
        buttons.at(static_cast<std::size_t>(command - all.begin())) = button;
        QObject::connect(button, &QPushButton::clicked, &window, [this, command] {
            takeTyped();
            RunTableCommand(table, *command);
        });
    }
    layout.addStretch();
    closeButton = add(layout, closeName, kClose, 'C');
    QObject::connect(closeButton, &QPushButton::clicked, &window, &QWidget::close);
    TakeDroppedFiles(
        window, [this] { return closeButton->isEnabled(); },
        [this](const std::vector<std::string>& paths) {
            takeTyped();
            OpenDroppedTable(table, paths);
        });
}

QPushButton* TableButtons::add(QBoxLayout& layout, const char* name, std::int16_t caption,
                               char letter) {
    auto* button = new QPushButton(&window);
    button->setObjectName(QLatin1String(name));
    // A click leaves the focus in the field where the user is.
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoDefault(false);
    SetNumbers(*button, caption);
    SetMnemonic(*button, letter);
    layout.addWidget(button);
    return button;
}

void TableButtons::showState(QWidget& fields) {
    const bool free = !CommandsTaken() && !table.state.commandsOff;
    const bool wasFree = fields.isEnabled();
    if (wasFree && !free) {
        before = window.focusWidget();
    }
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        buttons[i]->setEnabled(IsEnabled(table, commands[i]));
        const bool kept = commands[i].wants == Wants::Line && LineReserved();
        buttons[i]->setToolTip(kept ? ResQText(kLineReserved) : QString());
    }
    closeButton->setEnabled(free);
    fields.setEnabled(free);
    if (free && !wasFree && std::exchange(table.state.refused, false)) {
        if (const auto first = FirstRefused(table)) {
            before = fieldAt(*first);
        }
    }
    if (free && !wasFree && before) {
        // As when the window becomes the active one again: nobody has entered the field.
        before->setFocus(Qt::ActiveWindowFocusReason);
        if (auto* field = qobject_cast<QLineEdit*>(before)) {
            field->selectAll();
        }
    }
}

void TableButtons::leave(const std::function<void()>& close) {
    takeTyped();
    RunWindowCommand([this, close] {
        if (MayClose(table)) {
            close();
        }
    });
}

} // namespace qdw8

#include "windows/parameter/frmParameta2.h"

#include "app/command_states.h"
#include "link/window_command.h"
#include "parameter/para_fields.h"
#include "parameter/para_file.h"
#include "parameter/para_window.h"
#include "platform/qt/work_window.h"
#include "setup/para_window_commands.h"
#include "windows/access/tab_keys.h"
#include "windows/controls/document_title.h"
#include "windows/controls/dropped_files.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/texts.h"
#include "windows/parameter/frmDevice.h"
#include "windows/parameter/para_pages.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace qdw8 {
namespace {

constexpr std::int16_t kTitle = 601;
constexpr int kMargin = 6;
constexpr int kSpacing = 6;
constexpr int kGap = 4;
/// Room for what a window manager puts around a window.
constexpr QSize kFrameAround{10, 40};

/// Where a button stands: in one of the frames of the column, or below them.
enum class Place { Controller, File, Below, OnPage };

struct ButtonPlace {
    std::string_view name;
    Place place;
    char mnemonic;
};
constexpr std::array<ButtonPlace, 10> kButtons{{{"cmdParaRead", Place::Controller, 'R'},
                                                {"cmdParaWrite", Place::Controller, 'W'},
                                                {"cmdConpareCT", Place::Controller, 'V'},
                                                {"cmdReadParaFile", Place::File, 'o'},
                                                {"cmdSaveParaFile", Place::File, 'F'},
                                                {"cmdConpareFile", Place::File, 'y'},
                                                {"cmdIniPrm", Place::Below, 'I'},
                                                {"cmdParaPrint", Place::Below, 'D'},
                                                {"cmdParaFilePrint", Place::Below, 'n'},
                                                {"cmdCalculate", Place::OnPage, 'l'}}};

const ButtonPlace& PlaceOf(std::string_view name) {
    return *std::find_if(kButtons.begin(), kButtons.end(),
                         [name](const ButtonPlace& button) { return button.name == name; });
}

} // namespace

frmParameta2::frmParameta2(QWidget* parent) : QDialog(parent), pages(new ParaPages(this)) {
    setObjectName(QStringLiteral("frmParameta2"));
    SetNumbers(*this, kTitle);
    CountAsWorkWindow(*this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->addWidget(pages, 1);
    auto* column = new QVBoxLayout;
    column->setSpacing(kSpacing);
    makeButtons(*column);
    column->addStretch();
    layout->addLayout(column);
    AddTabKeys(*pages);
    LoadFormResources(*this);
    // Two buttons are called "Verify".
    for (const Button& button : buttons) {
        if (const auto* frame = qobject_cast<QGroupBox*>(button.control->parentWidget())) {
            button.control->setAccessibleName(frame->title() + QLatin1Char(' ') +
                                              button.control->accessibleName());
        }
    }
    pages->nameControls();
    showState();
    TakeDroppedFiles(
        *this, [] { return !CommandsTaken(); },
        [this](const std::vector<std::string>& paths) {
            run([paths] { OpenDropped(kParaFile, paths, cmdReadParaFile_Click); });
        });
}

frmParameta2::~frmParameta2() = default;

void frmParameta2::makeButtons(QVBoxLayout& column) {
    const auto frame = [&](const char* name, std::int16_t tag) {
        auto* made = new QGroupBox(this);
        made->setObjectName(QLatin1String(name));
        SetNumbers(*made, tag);
        (new QVBoxLayout(made))->setSpacing(kGap);
        column.addWidget(made);
        return made->layout();
    };
    QLayout* controller = frame("FrameController", 611);
    QLayout* file = frame("FrameFile", 610);
    for (const ParaCommandRow& command : ParaCommands()) {
        const Place place = PlaceOf(command.name).place;
        QPushButton* made = makeButton(command);
        switch (place) {
        case Place::Controller: controller->addWidget(made); break;
        case Place::File: file->addWidget(made); break;
        case Place::Below: column.addWidget(made); break;
        case Place::OnPage: break;
        }
    }
}

QPushButton* frmParameta2::makeButton(const ParaCommandRow& command) {
    const ButtonPlace& place = PlaceOf(command.name);
    auto* made = place.place == Place::OnPage ? pages->cmdCalculate : new QPushButton(this);
    made->setObjectName(QLatin1String(command.name));
    // Enter in a field goes on to the next one and presses nothing.
    made->setAutoDefault(false);
    if (place.place != Place::OnPage) {
        SetNumbers(*made, command.textId);
        SetMnemonic(*made, place.mnemonic);
    }
    connect(made, &QPushButton::clicked, this, [this, &command] {
        run([this, &command] {
            ran = command.routine != cmdCalculate_Click; // that one checks nothing
            command.routine();
        });
    });
    buttons.push_back({made, &command});
    return made;
}

void frmParameta2::run(const std::function<void()>& routine) {
    pages->finishInput();
    RunWindowCommand([this, routine, from = closings] {
        if (closings != from) {
            return; // it waited for the line, and the edits it was meant for are given up
        }
        routine();
    });
}

void frmParameta2::open(bool modal) {
    const bool loads = !isVisible();
    if (loads) {
        LoadParameta2();
    }
    if (isModal() != modal) {
        hide(); // a window takes another modality only while it isn't there
        setModal(modal);
    }
    showState();
    if (loads) {
        pages->setCurrentIndex(0);
        if (const QScreen* on = screen()) {
            resize(sizeHint().boundedTo(on->availableSize() - kFrameAround));
        }
    }
    show();
    WorkIn(*this);
    if (loads) {
        goToField({});
    }
}

void frmParameta2::showState() {
    const bool taken = CommandsTaken();
    if (taken && !locked) {
        before = pages->lastField();
        // Otherwise each field would get the focus when the one before it is switched off.
        setFocus();
    }
    const bool back = locked && !taken;
    locked = taken;
    if (back) {
        FollowParaSet();
    }
    ShowDocumentTitle(*this, ParaName, IsSet(ParaEditedFlag), kTitle);
    pages->showFields();
    for (const Button& button : buttons) {
        button.control->setEnabled(ParaCommandEnabled(*button.command));
        const bool kept = button.command->onLine && LineReserved();
        button.control->setToolTip(kept ? ResQText(kLineReserved) : QString());
    }
    if (back && isVisible()) {
        // To what its check refused, else where the user was, but not to a button: a key that was
        // meant for a box must not do it all again.
        const auto refused = std::exchange(ran, false) ? pages->firstField(true) : std::nullopt;
        if (refused) {
            pages->goTo(*refused);
        } else {
            goToField(before);
        }
    }
}

void frmParameta2::goToField(std::optional<ParaPlace> wanted) {
    const bool there = wanted && ParaFieldEnabled(wanted->control, wanted->axis);
    // A field that can't be used any more leaves the user on its page.
    const auto place = there ? wanted : wanted ? std::nullopt : pages->firstField(false);
    if (place) {
        pages->goTo(*place);
    } else {
        pages->setFocus();
    }
}

void frmParameta2::takeTyped() {
    if (isVisible()) {
        pages->finishInput();
    }
}

void frmParameta2::calculateStroke() {
    if (const auto place = AskStrokeCalculator(this)) {
        before = place; // the focus goes there when the command ends
    }
}

void frmParameta2::reject() {
    takeTyped();
    if (!CommandsTaken()) {
        ran = true; // its saving may refuse
    }
    if (ParaMayClose()) {
        ++closings;
        QDialog::reject();
    }
}

void frmParameta2::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event);
    } else if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) {
        button->click();
    } else {
        pages->enter();
    }
}

} // namespace qdw8

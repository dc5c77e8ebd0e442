#include "motion/move_list_edit.h"

#include "app/number_forms.h"
#include "motion/move_state.h"
#include "platform/platform.h"

#include <algorithm>

namespace qdw8 {
namespace {

constexpr std::size_t kDigits = 3; ///< of a position number
constexpr int kLastCode = 32;      ///< key codes up to here open a cell as it is
constexpr int kBackspace = 8;
constexpr int kEnter = 13;

MoveFields& Fields() {
    return TheMove().fields;
}

bool IsDigit(int key) {
    return key >= '0' && key <= '9';
}

bool ListIsLocked() {
    return RunOfMove() == MoveRun::List;
}

/// Ends the entry. False: its text is no position number, and the cell stayed as it was.
bool EndEdit() {
    ListEdit& edit = Fields().txtEdit2;
    if (!edit.shown) {
        return true;
    }
    const std::string text = Trim(edit.text);
    edit = {};
    if (!std::all_of(text.begin(), text.end(), IsDigit) || NumberFromText(text) < 1 ||
        NumberFromText(text) > kHighestPosition) {
        return false;
    }
    Fields().flgdProgram[Fields().column] = text;
    return true;
}

void Open(const std::string& text) {
    Fields().txtEdit2 = {true, text};
}

} // namespace

void cmdInp1toF_Click() {
    if (ListIsLocked()) {
        return;
    }
    Fields().txtEdit2 = {};
    for (std::size_t i = 0; i < kMoveCells; ++i) {
        Fields().flgdProgram[i] = std::to_string(i + 1);
    }
    TellMove();
}

void cmdDataClear_Click() {
    if (ListIsLocked()) {
        return;
    }
    Fields().txtEdit2 = {};
    Fields().flgdProgram.fill({});
    TellMove();
}

void flgdProgram_GoTo(std::size_t column) {
    if (!EndEdit()) {
        ThePlatform().Beep();
    }
    Fields().column = column;
    TellMove();
}

void flgdProgramEdit2(int key) {
    if (ListIsLocked()) {
        return;
    }
    if (key >= 0 && key <= kLastCode) {
        Open(Fields().flgdProgram[Fields().column]);
    } else if (IsDigit(key)) {
        Open(std::string(1, static_cast<char>(key)));
    } else {
        ThePlatform().Beep();
    }
    TellMove();
}

bool flgdProgram_GotFocus() {
    const ListEdit edit = Fields().txtEdit2;
    const bool taken = EndEdit();
    TellMove();
    return taken || Trim(edit.text) == Fields().flgdProgram[Fields().column];
}

void txtEdit2_Change(const std::string& text) {
    Fields().txtEdit2.text = text;
}

bool Edit2Takes(int key, std::size_t length) {
    return key == kBackspace || key == kEnter || (IsDigit(key) && length < kDigits);
}

void Edit2KeyCode(Edit2Key key) {
    std::size_t& column = Fields().column;
    switch (key) {
    case Edit2Key::Enter:
        EndEdit();
        column = (column + 1) % kMoveCells;
        break;
    case Edit2Key::Escape: Fields().txtEdit2 = {}; break;
    case Edit2Key::Left: flgdProgram_GoTo(column > 0 ? column - 1 : column); return;
    case Edit2Key::Right: flgdProgram_GoTo(column + 1 < kMoveCells ? column + 1 : column); return;
    }
    TellMove();
}

} // namespace qdw8

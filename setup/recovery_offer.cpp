#include "setup/recovery_offer.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/string_table.h"
#include "device/axis_device.h"
#include "link/background.h"
#include "platform/whole_file.h"
#include "position/flex_grid.h"
#include "position/grid_cursor.h"
#include "position/grid_display.h"
#include "position/grid_editor.h"
#include "position/posi_columns.h"
#include "position/posi_command.h"
#include "position/posi_table.h"
#include "position/recovery.h"
#include "position/recovery_file.h"
#include "position/recovery_slot.h"
#include "setup/devices_before.h"
#include "setup/file_devices.h"
#include "setup/recheck_positions.h"
#include "setup/repaint_axes.h"

#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace qdw8 {
namespace {

namespace fs = std::filesystem;

/// So many starts may fail with a table.
constexpr int kMostFailures = 2;
/// A full table has less than a third of it.
constexpr std::size_t kLargestTable = 1'000'000;

/// Out of the way of the next start, and not lost.
void SetAside(const std::string& path) {
    std::string aside = path + ".aside";
    for (int number = 1; fs::exists(aside); ++number) {
        aside = path + ".aside" + std::to_string(number);
    }
    fs::rename(path, aside);
    ShowBox(Lines({ResText(3408), aside}));
}

KeptForm ReadTable(const std::string& path, KeptTable& table) {
    try {
        return ReadKeptTable(ReadWholeFile(path, kLargestTable), table);
    } catch (const std::exception&) {
        return KeptForm::Damaged;
    }
}

SelectionQuestion QuestionAbout(const KeptTable& table) {
    const auto rows = static_cast<int>(table.rows.size());
    return {ResText(471),
            ResText(3400),
            {ResText(3401), ResText(3402), ResText(3403)},
            false,
            {ResText(3404, {table.path.empty() ? table.name : table.path}),
             ResText(3405, {table.time}),
             ResText(3406, {std::to_string(table.first), std::to_string(table.first + rows - 1),
                            std::to_string(rows), ResText(table.mm ? 230 : 229)})}};
}

using Leads = decltype(KeptTable::leads);

/// Axes and devices that the table is to stand on. False: it is not to be shown.
bool SettleDevices(const KeptTable& table) {
    const DevicesBefore before;
    try {
        FileDevText = table.devices;
        FileNewOld = table.types;
        if (SettleKeptDevices(before, table.mm ? table.leads : Leads()) == FileDevices::Settled) {
            return true;
        }
    } catch (const std::exception&) {
        ShowTexts({484});
    }
    before.putBack();
    return false;
}

/// The grid gets the cells, as far as their axes are in use; below them lie rows like those of a
/// new document, until a check takes over what the cells hold.
void ShowCells(const KeptTable& table) {
    DispMmFlag = FlagOf(table.mm);
    GridRowCount = static_cast<std::int16_t>(table.rows.size());
    GridFirst = PosiFirst = static_cast<std::int16_t>(table.first);
    GridLast = PosiLast = static_cast<std::int16_t>(table.first + GridRowCount - 1);
    FreezeGrid();
    ClearPosiTable();
    QdDataHyoji_3();
    int gridRow = kGridHeadRows;
    for (const KeptTable::Row& cells : table.rows) {
        for (int column = 0; column <= kComment; ++column) {
            if (!IsOffColumn(column)) {
                const std::string& text = cells[static_cast<std::size_t>(column)];
                SetGridText(gridRow, column + 1, BoundCellText(column, text).text);
            }
        }
        ++gridRow;
    }
    ThawGrid();
}

/// A file that was changed meanwhile is not replaced unasked.
void TakeName(const KeptTable& table) {
    if (!table.path.empty() && StampOf(table.path) == table.stamp) {
        TakePosiFile(table.path);
    } else {
        ShowPosiFileName(table.name);
    }
}

/// Nothing is guessed of what was half typed: it stands in the open cell again.
void EditAgain(const KeptTable::Edit& edit) {
    GoToCell(edit.position - GridFirst + kGridHeadRows, edit.column + 1);
    if (StartEdit()) {
        SetEditText(BoundCellText(edit.column, edit.text).text);
        SetEditSpoiled(edit.spoiled);
        RefreshGrid();
    }
}

bool PutBack(RecoverySlot& slot, const KeptTable& table) {
    {
        const PositionCommand command;
        if (!SettleDevices(table)) {
            return false;
        }
        {
            const RecoverySlot::Attempt attempt(slot);
            RepaintAxes();
            ShowCells(table);
            TakeName(table);
            PosiDirtyFlag = kSet;
        }
        slot.forgetFailures();
        RecheckPositions(); // whoever ends the program under its windows has not failed
    }
    if (table.edit) {
        EditAgain(*table.edit);
    }
    return true;
}

/// True if what is kept from now on holds all that the table holds.
bool ShowsAllOf(const KeptTable& table) {
    const KeptTable now = TableOnScreen();
    return now.rows == table.rows && now.devices == table.devices && now.types == table.types &&
           (!table.mm || now.leads == table.leads);
}

/// The table if it stands in the grid. Nothing: the place is left to a later start, or empty.
std::optional<KeptTable> Offer(RecoverySlot& slot) {
    if (slot.failures() >= kMostFailures) {
        SetAside(slot.path());
        return {};
    }
    KeptTable table;
    KeptForm form = KeptForm::Damaged;
    {
        const RecoverySlot::Attempt attempt(slot);
        form = ReadTable(slot.path(), table);
    }
    if (form == KeptForm::Newer) {
        ShowBox(Lines({ResText(3409), slot.path()}));
        return {};
    }
    if (form == KeptForm::Damaged) {
        SetAside(slot.path());
        return {};
    }
    while (true) {
        switch (AskChoice(QuestionAbout(table))) {
        case 0:
            if (PutBack(slot, table)) {
                return table;
            }
            break;
        case 2: RemoveFile(slot.path()); return {};
        default: return {};
        }
    }
}

} // namespace

void OfferRecovery() {
    std::unique_ptr<RecoverySlot> whole;
    std::unique_ptr<RecoverySlot> part;
    {
        const PollHeld held; // nothing begins on the line under a question
        for (std::unique_ptr<RecoverySlot>& slot : LeftSlots()) {
            try {
                if (const std::optional<KeptTable> table = Offer(*slot)) {
                    (ShowsAllOf(*table) ? whole : part) = std::move(slot);
                    break;
                }
            } catch (const std::exception& fault) { // left to a later start
                ShowBox(Lines({ResText(3410), fault.what()}));
            }
        }
    }
    StartKeeping(std::move(whole), std::move(part));
}

} // namespace qdw8

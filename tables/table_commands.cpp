#include "tables/table_commands.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/file_questions.h"
#include "app/string_table.h"
#include "app/waits.h"
#include "link/window_command.h"
#include "tables/table_file.h"
#include "tables/table_transfer.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <vector>

namespace qdw8 {
namespace {

constexpr std::int16_t kInsideOfCt = 374;

/// The texts of the ids, one a line.
std::string Text(const std::vector<std::int16_t>& ids) {
    std::string text;
    for (const std::int16_t id : ids) {
        text += (text.empty() ? "" : "\r\n") + ResText(id);
    }
    return text;
}

bool Confirmed(std::int16_t questionId) {
    return questionId == 0 || AskBox(ResText(questionId), BoxButtons::OkCancel) == BoxAnswer::Ok;
}

/// The user finds what was refused without looking through all pages.
void ShowFirstRefused(const SmallTable& table) {
    if (const auto first = FirstRefused(table)) {
        table.state.refused = true;
        table.turnTo(first->row);
    }
}

/// False: the report has told what is wrong.
bool CheckGood(const SmallTable& table, const std::vector<std::int16_t>& report) {
    const bool good = table.check() == 0;
    TellWindow(table);
    if (!good) {
        ShowFirstRefused(table);
        const std::string& list = table.state.badList;
        ShowBox(Text(report) + (list.empty() ? "" : "\r\n" + list));
    }
    return good;
}

bool CheckGood(const SmallTable& table) {
    return CheckGood(table, table.texts.badData);
}

/// What is shown is in a file, or in the controller, now.
void CountAsSaved(const SmallTable& table, const std::string& name) {
    table.state.unsaved = false;
    table.state.name = name;
    TellWindow(table);
}

/// What was delivered is shown now; what was against the old numbers says nothing of the new ones.
void ShowDelivered(const SmallTable& table, const std::string& name) {
    CopyTable(table, Held::Compare, Held::Shown);
    table.state.reasons.clear();
    table.state.unsaved = false;
    table.state.name = name;
    table.shown();
}

LineResult ReadRows(const SmallTable& table) {
    const LineBatch batch;
    return ReadTableFromCt(table);
}

/// The rows of the controller into the compare table. A read that was stopped is told when the line
/// is closed; who gave up a wait of it knows.
bool ReadFromController(const SmallTable& table) {
    const LineResult result = ReadRows(table);
    if (result == LineResult::Cancelled && table.texts.readStopped != 0) {
        ShowTexts({table.texts.readStopped});
    }
    return result == LineResult::Done;
}

/// A file of the user's choice into the compare table.
std::optional<FileAnswer> ReadChosenFile(const SmallTable& table, std::int16_t titleId) {
    auto chosen = AskFileToOpen(table.file.toOpen, titleId);
    if (chosen && !ReadTableFileWithTries(table, chosen->path)) {
        chosen.reset();
    }
    return chosen;
}

void ReportDifferences(const SmallTable& table) {
    const std::string list = DifferingRows(table);
    if (list.empty()) {
        ShowTexts({table.texts.verifyGood});
    } else {
        ShowBox(Text(table.texts.verifyBad) + list);
    }
}

void Save(const SmallTable& table) {
    if (!CheckGood(table)) {
        return;
    }
    const auto chosen =
        AskFileToSave(table.file.toSave, table.texts.saveTitle, ResText(table.texts.saveName));
    if (!chosen) {
        return;
    }
    if (SixTries([&] { return WriteTableFile(table, chosen->path) == 0; })) {
        CountAsSaved(table, chosen->title);
    } else {
        ShowTexts({table.texts.saveFailed});
    }
}

/// The commands of the window are away for the life of the object.
class CommandsOff {
public:
    explicit CommandsOff(const SmallTable& shown) : table(shown) { SetCommandsOff(table, true); }
    ~CommandsOff() { SetCommandsOff(table, false); }
    CommandsOff(const CommandsOff&) = delete;
    CommandsOff& operator=(const CommandsOff&) = delete;

private:
    const SmallTable& table;
};

/// The compare table as it was, at the end: a file that is only printed leaves no rows to the next
/// one that is opened.
class CompareKept {
public:
    explicit CompareKept(const SmallTable& of) : table(of), numbers(of.take(Held::Compare)) {}
    ~CompareKept() { table.put(Held::Compare, numbers); }
    CompareKept(const CompareKept&) = delete;
    CompareKept& operator=(const CompareKept&) = delete;

private:
    const SmallTable& table;
    Numbers numbers;
};

} // namespace

bool IsEnabled(const SmallTable& table, const TableCommand& command) {
    return !table.state.commandsOff && !CommandsTaken() &&
           (command.wants != Wants::Line || !LineReserved()) &&
           (command.wants != Wants::Printing || Screens().*table.print);
}

void RunTableCommand(const SmallTable& table, const TableCommand& command) {
    if (!IsEnabled(table, command)) {
        return;
    }
    RunWindowCommand([&table, routine = command.routine] {
        const CommandsOff off(table);
        routine(table);
    });
}

void OpenDroppedTable(const SmallTable& table, const std::vector<std::string>& paths) {
    RunWindowCommand([&table, paths] {
        const CommandsOff off(table);
        OpenDropped(table.file.toOpen, paths, [&table] { OpenTable(table); });
    });
}

void SetCommandsOff(const SmallTable& table, bool off) {
    table.state.commandsOff = off;
    TellWindow(table);
}

void ReadTable(const SmallTable& table) {
    if (Confirmed(table.texts.askRead) && ReadFromController(table)) {
        ShowDelivered(table, ResText(kInsideOfCt));
    }
}

void OpenTable(const SmallTable& table) {
    if (const auto chosen = ReadChosenFile(table, table.texts.openTitle)) {
        ShowDelivered(table, chosen->title);
    }
}

void WriteTable(const SmallTable& table) {
    if (!CheckGood(table, table.texts.badDataWritten)) {
        return;
    }
    const std::vector<LineWrite> frames = TakeTableFrames(table);
    if (!Confirmed(table.texts.askWrite)) {
        return;
    }
    const LineBatch batch;
    WritingMode mode; // ends with the write, whatever becomes of it
    if (StandsStill(OnFailure::Tell) && mode.begin() &&
        WriteTableToCt(table, frames) == LineResult::Done) {
        // The file that it came from doesn't hold the edits.
        CountAsSaved(table, table.state.unsaved ? ResText(kInsideOfCt) : table.state.name);
    }
}

void SaveTable(const SmallTable& table) {
    try {
        Save(table);
    } catch (const std::exception&) {
        ShowTexts({table.texts.saveFailed});
    }
}

void VerifyWithController(const SmallTable& table) {
    if (CheckGood(table) && ReadFromController(table)) {
        ReportDifferences(table);
    }
}

void VerifyWithFile(const SmallTable& table) {
    if (CheckGood(table) && ReadChosenFile(table, table.texts.verifyTitle)) {
        ReportDifferences(table);
    }
}

void PrintShown(const SmallTable& table) {
    if (CheckGood(table) && Confirmed(table.texts.askPrintShown)) {
        CopyTable(table, Held::Shown, Held::Compare);
        (Screens().*table.print)(kShownName);
    }
}

void PrintFile(const SmallTable& table) {
    if (!Confirmed(table.texts.askPrintFile)) {
        return;
    }
    const CompareKept kept(table);
    table.put(Held::Compare, Numbers(table.take(Held::Compare).size(), kNotInFile));
    if (const auto chosen = ReadChosenFile(table, table.texts.printTitle)) {
        (Screens().*table.print)(std::filesystem::path(chosen->path).filename().string());
    }
}

bool SaveEdits(const SmallTable& table) {
    SaveTable(table);
    return !table.state.unsaved;
}

bool MayClose(const SmallTable& table) {
    if (table.state.unsaved && !MayLoseEdits([&table] { return SaveEdits(table); })) {
        return false;
    }
    table.state.unsaved = false; // what is given up goes with the window
    return true;
}

} // namespace qdw8

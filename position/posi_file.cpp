#include "position/posi_file.h"

#include "app/boxes.h"
#include "app/field_reader.h"
#include "app/file_questions.h"
#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "app/waits.h"
#include "device/axis_texts.h"
#include "platform/cp932_text.h"
#include "platform/whole_file.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/grid_history.h"
#include "position/posi_check.h"
#include "position/posi_command.h"
#include "position/posi_table.h"
#include "position/recovery.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <optional>
#include <utility>

namespace qdw8 {

namespace {

struct State {
    Flag saveCancelled = kClear;
};
State state;

/// A text field of a file: in the file's code page, between double quotes, with no escaping.
std::string Quoted(const std::string& text) {
    const bool plain = std::all_of(text.begin(), text.end(), [](char c) { return c > 0; });
    return QuotedField(plain ? text : ToCp932(text));
}

/// A number as a text field. Nearly all are small whole numbers, which need no work on digits.
std::string QuotedNumber(double number) {
    if (number >= 0 && number <= 0xFFFFF && number == std::floor(number)) {
        return "\" " + std::to_string(static_cast<int>(number)) + "\"";
    }
    return Quoted(BlankOrMinusDecimal(number));
}

std::string RowLine(std::int16_t position) {
    const PosiRow& row = PosiTable[static_cast<std::size_t>(position)];
    std::string line = std::to_string(position);
    for (const double number : row.number) {
        line += ",";
        line += QuotedNumber(number);
    }
    return line + "," + Quoted(row.comment) + "\r\n";
}

/// The whole file: the magic, the device names as the main window shows them, the types, and a
/// line for each position of the working range.
std::string FileText() {
    std::string names;
    std::string types;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const char* separator = axis == 0 ? "" : ",";
        names += separator + Quoted(ThePanel().lblDeviceType[axis]);
        types += separator + Quoted(TypeWordOf(axis));
    }
    std::string text = Quoted("QD-K8") + "\r\n" + names + "\r\n" + types + "\r\n";
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        text += RowLine(position);
    }
    return text;
}

/// The first `count` characters of a text, whatever bytes they take.
std::string FirstCharacters(const std::string& text, int count) {
    std::size_t end = 0;
    while (end < text.size() && count > 0) {
        ++end;
        while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
            ++end;
        }
        --count;
    }
    return text.substr(0, end);
}

/// The data came from no file yet. A real file whose name begins with the same three letters as
/// one of the two stand-ins is taken for one of them; that is meant so.
bool HasNoFileYet() {
    const std::string begin = FirstCharacters(PosiFileName, 3);
    return PosiFilePath.empty() || begin == FirstCharacters(ResText(213), 3) ||
           begin == FirstCharacters(ResText(374), 3);
}

/// What the file's code page lacks of the comments of the working range.
std::string LackingComments() {
    std::string comments;
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        comments += PosiTable[static_cast<std::size_t>(position)].comment;
    }
    return LackingInCp932(comments);
}

/// It is named before it is replaced. False: the user keeps it out of the file.
bool CommentsMayBeWritten() {
    const std::string lacking = LackingComments();
    const BoxQuestion question{Lines({ResText(3021), lacking, ResText(3022)}),
                               BoxButtons::YesNo,
                               {},
                               BoxIcon::Question,
                               true};
    return lacking.empty() || AskBox(question) == BoxAnswer::Yes;
}

/// Asks for a file to save.
std::optional<std::string> AskFileName(std::int16_t titleId) {
    const auto answer = AskFileToSave(kPosiFile, titleId, ResText(407), PosiFolder);
    return answer ? std::optional(answer->path) : std::nullopt;
}

/// The grid shows the comments as the file has them from now on.
void ShowWrittenComments() {
    const GridStep step; // the user may have his own signs back
    FreezeGrid();
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        std::string& comment = PosiTable[static_cast<std::size_t>(position)].comment;
        std::string written = FromCp932(ToCp932(comment));
        if (written != comment) {
            comment = std::move(written);
            SetGridText(position - GridFirst + kGridHeadRows, kGridCommentColumn, comment);
        }
    }
    ThawGrid();
}

/// Writes the working range. The document counts as saved only if that is all that the grid shows.
/// The file of a part gives the document its name alone: the next save would put the whole grid in
/// its place.
bool WriteFile(const std::string& path) {
    try {
        WriteWholeFile(path, FileText());
        TakePosiFile(path);
        if (!LackingComments().empty()) {
            ShowWrittenComments();
        }
        if (PosiFirst <= GridFirst && PosiLast >= GridLast) {
            NothingUnsaved();
        } else {
            PosiFilePath.clear();
        }
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool SaveWithTries(const std::string& path) {
    const bool saved = SixTries([&path] { return WriteFile(path); });
    if (!saved) {
        ShowTexts({422});
    }
    return saved;
}

/// Runs the steps of a save command between the commands being taken away and given back. The
/// steps say whether a file was written.
template<typename Steps> void RunSave(Steps steps) {
    const OuterWorkKept outer;
    const PositionCommand command;
    const WholeGridAfter wholeGrid;
    SaveCancelledFlag = kClear;
    bool saved = false;
    try {
        saved = steps();
    } catch (const std::exception&) {
        ShowTexts({422});
    }
    SaveCancelledFlag = FlagOf(!saved);
}

bool Save() {
    if (Check_flgdLineNo() != 0) {
        ShowTexts({422});
        return false;
    }
    TakeWholeGrid();
    if (!TableTakesGrid(422) || !CommentsMayBeWritten()) {
        return false;
    }
    const auto path = HasNoFileYet() ? AskFileName(423) : std::optional(PosiFilePath);
    return path && SaveWithTries(*path);
}

bool SaveAs() {
    if (Check_flgdLineNo() != 0 || !AskRange(Screens().frmSelectPosiNo3)) {
        return false;
    }
    if (!TableTakesGrid(422) || !CommentsMayBeWritten() ||
        AskBox(ResText(405), BoxButtons::OkCancel) != BoxAnswer::Ok) {
        return false;
    }
    const auto chosen = AskFileName(406);
    return chosen && SaveWithTries(*chosen);
}

} // namespace

Flag& SaveCancelledFlag = state.saveCancelled;

std::int16_t SaveFileAs2(const std::string& fileName) {
    return WriteFile((std::filesystem::path(PosiFolder) / fileName).string()) ? 0 : 1;
}

void SavePosiFile() {
    RunSave(Save);
}

void SavePosiFileAs() {
    RunSave(SaveAs);
}

void ResetPosiFile() {
    state = State{};
}

} // namespace qdw8

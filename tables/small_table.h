#pragma once

#include "app/file_questions.h"
#include "app/screens.h"
#include "link/batch.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// What a small table of the controller is, groups and sequence macros alike: numbered rows of a
/// few whole numbers each, with a file, a way over the line, a check and a verify of its own. A
/// `SmallTable` describes one; the routines of this room work on any.
namespace qdw8 {

/// The two copies that the program keeps: what the window shows, and what a file or the controller
/// delivered.
enum class Held { Shown, Compare };

/// The numbers of a whole table, row after row and in a row field after field, without the numbers
/// of the rows themselves.
using Numbers = std::vector<std::int16_t>;

/// In the compare table while a file is printed: the file doesn't hold the row. It prints blank.
inline constexpr std::int16_t kNotInFile = -32768;

/// What goes with a table and is no data.
struct TableState {
    /// What the user edited is neither in a file nor in the controller.
    bool unsaved = false;
    /// The file that what is shown came from or was saved to last, without its folder, or words for
    /// the inside of the controller. Empty while it is of neither.
    std::string name;
    /// The window's commands are away, between `GrpCMDBTN_Muko` and `GrpCMDBTN_Yuko`.
    bool commandsOff = false;
    /// For each number what the last check had against it, as a text id; 0 nothing.
    Numbers reasons;
    /// It has just refused some: the window leads to the first, and clears this.
    bool refused = false;
    /// Numbers of the rows that the last check refused, as its report lists them.
    std::string badList;
};

/// A description. Text ids of 0 stand for a text that this table doesn't have.
struct SmallTable {
    int rows;   ///< numbered from 1
    int fields; ///< numbers in a row

    Numbers (*take)(Held);
    void (*put)(Held, const Numbers&);
    /// Gives numbers that mean nothing their one value; empty where all mean something.
    void (*settle)(Numbers&);
    /// The check of what is shown: 0 good, 1 bad, with `reasons` and `badList` in the state.
    std::int16_t (*check)();
    /// The window's data follow what is shown now.
    void (*shown)();
    /// The window shows the page with the row.
    void (*turnTo)(int row);
    TableState& state;

    struct File {
        FileKind toOpen;
        FileKind toSave;
        std::vector<std::string> controllers; ///< those whose files are read; the first is written
        std::string kind;
        std::string sizes; ///< the second line
        int sizeFields;    ///< how many fields that is
        bool rowAlone;     ///< a row's number has a line to itself
        int fieldsInLine;
    } file;

    struct Line {
        std::int16_t (*read)(int number);
        std::int16_t (*write)(const std::string& row);
        std::int16_t (*commit)();
        std::string writeWord;
        std::string committed; ///< what the reply to the commit begins with
        int digits;            ///< of a number
        bool lastCompared;     ///< the echo of the last row is looked at, too
        RunShown reading;
        RunShown writing;
    } line;

    struct Texts {
        std::int16_t askRead, readStopped;
        std::int16_t openTitle, readFailed;
        std::int16_t otherKind; ///< the box for a file of another kind; 0: `readFailed` tells
        std::int16_t saveTitle, saveName, saveFailed;
        std::int16_t verifyTitle, verifyGood;
        std::vector<std::int16_t> verifyBad; ///< a line each, the list behind the last
        std::int16_t askWrite;
        std::vector<std::int16_t> badData;        ///< a line each, then the list if there is one
        std::vector<std::int16_t> badDataWritten; ///< the same when it was to be written
        std::int16_t askPrintShown, askPrintFile, printTitle;
    } texts;

    std::function<void()> ScreenFunctions::*look; ///< tells the window to look at its data again
    std::function<void(const std::string&)> ScreenFunctions::*print;
};

/// Where a field of a row (numbered from 1) stands among the numbers.
std::size_t IndexOf(const SmallTable& table, int row, int field);

/// What the last check had against a number, as a text id; 0 nothing.
std::int16_t ReasonOf(const SmallTable& table, int row, int field);

/// A number by its row and its field in it.
struct TablePlace {
    int row;
    int field;
};
/// The first that the last check refused.
std::optional<TablePlace> FirstRefused(const SmallTable& table);

/// All rows of one copy into the other. Numbers that mean nothing are settled in both.
void CopyTable(const SmallTable& table, Held from, Held to);

/// Numbers of the rows in which the copies differ, each followed by ","; empty when they agree.
std::string DifferingRows(const SmallTable& table);

/// The window looks at its data again.
void TellWindow(const SmallTable& table);

/// The number that the text of a field is: a whole one from 0 to 32767. 0, which no check lets
/// pass, for any other text, the empty one included.
std::int16_t NumberOfField(const std::string& text);

} // namespace qdw8

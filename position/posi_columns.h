#pragma once

#include "app/Module1.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The columns of the position table, and what a text must be to stand in a cell of one.
namespace qdw8 {

/// Table columns 0 to 15 are four blocks of "VEL", "ACC", "WAY", "Posi", one for each axis.
inline constexpr int kPosiColumns = 21;
inline constexpr int kAxisColumns = 4;
inline constexpr int kVel = 0;
inline constexpr int kAcc = 1;
inline constexpr int kWay = 2;
inline constexpr int kPosi = 3;
inline constexpr int kItpl = 16;
inline constexpr int kOut = 17;
inline constexpr int kSm = 18;
inline constexpr int kComment = 19;

/// A column of the table, 0 to 19.
struct PosiColumn {
    int item = 0;           ///< `kVel` to `kPosi`, or the column itself when common to the row
    int axis = -1;          ///< 0 to 3; -1: common to the row
    std::int16_t label = 0; ///< text of its head
    std::size_t place = 0;  ///< first of its characters in a row on the line, from 1; 0: none
    std::size_t width = 0;  ///< hexadecimal digits there
    int editLength = 0;     ///< characters that a cell holds
    double lowest = 0;      ///< limits that hang on nothing; "ACC" and "Posi" have their own
    double highest = 0;
    double off = 0;   ///< what an axis out of use shows, sends and saves
    double fresh = 0; ///< value of a new row; "ACC" hangs on the model too
};
/// Faults on a column that doesn't exist.
const PosiColumn& ColumnOf(int tableColumn);

/// True for the columns of an axis out of use.
bool IsOffColumn(int tableColumn);
/// Value of a cell of a new row.
double FreshNumber(int tableColumn);

/// What a check lets pass, both ends included. A position is compared in the unit of the view,
/// rounded to a whole number.
struct PosiLimits {
    double lowest = 0;
    double highest = 0;
};
PosiLimits LimitsOf(int tableColumn);
/// What may be typed, which for a position is less: up to the stroke end of its device, in the unit
/// of the view.
PosiLimits TypedLimitsOf(int tableColumn);

/// True if the character may be typed into a cell of the column; into a comment all may.
bool PassesFilter(int tableColumn, char32_t character);

/// The number that a cell holds: blanks at its ends don't count, and nothing but blanks is 0, as
/// ever. Nothing for a text that is not wholly one number, for a figure with a sign ("-0" too,
/// which may be what a cut left of a negative one), or for a fraction in a column of whole numbers
/// (all but the positions in mm). Limits aren't looked at.
std::optional<double> CellNumber(int tableColumn, std::string_view text);

/// A text as a cell can hold it, which is never longer than its edit box.
struct BoundText {
    std::string text;
    bool cut = false; ///< characters were lost
};
/// A comment is cut to its 40 characters, and a double quote in it becomes an apostrophe: no file
/// could hold it. Signs that come in two ways are those of the file. A number too long is written
/// shorter, and of a position in mm decimals are cut. Anything else that is too long ends in "#"
/// behind what there is room for: a text that is cut must never turn into another number.
BoundText BoundCellText(int tableColumn, std::string_view text);

} // namespace qdw8

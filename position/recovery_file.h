#pragma once

#include "app/Module1.h"
#include "position/posi_columns.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The form in which a table with unsaved changes is kept for the case of a crash.
namespace qdw8 {

/// A document as the user saw it.
struct KeptTable {
    using Row = std::array<std::string, kComment + 1>;
    /// A cell that was being edited, with what stood in its box.
    struct Edit {
        int position = 0;
        int column = 0; ///< of the table
        bool spoiled = false;
        std::string text;
    };

    std::string time; ///< on the user's clock, as `TimeText` has it
    bool mm = false;  ///< unit of the positions
    std::string name; ///< of the document, as the main window shows it
    std::string path; ///< its file; empty while it had none
    /// When that file had been changed last; empty if there is none.
    std::string stamp;
    /// As a position file tells them: the names of the devices, empty for an axis out of use, and
    /// "NEW" or "OLD".
    std::array<std::string, kAxes> devices;
    std::array<std::string, kAxes> types;
    /// By what figures mm and pulses were turned into each other, as `LeadTexts` has them.
    std::array<std::string, kAxes> leads;
    int first = 0; ///< position number of the first row
    std::vector<Row> rows;
    std::optional<Edit> edit;
};

/// What the grid shows now, the document's file as it stands now. No rows where the grid has none.
KeptTable TableOnScreen();
/// Lead and pulses of each axis as parameters name them, "2/400"; empty for an axis out of use.
std::array<std::string, kAxes> LeadTexts();
/// When a file was changed last; empty if there is none.
std::string StampOf(const std::string& path);

/// The text of a file.
std::string TextOf(const KeptTable& table);

/// What a file turned out to be.
enum class KeptForm : std::uint8_t {
    Good,
    Newer,  ///< of a later version of the program, which alone knows what stands in it
    Damaged ///< or of something else
};
/// `table` is whole if the result is `Good`.
KeptForm ReadKeptTable(std::string_view text, KeptTable& table);

} // namespace qdw8

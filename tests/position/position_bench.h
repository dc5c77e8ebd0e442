#pragma once

#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/transfer_dialog.h"
#include "device/axis_device.h"
#include "position/check_result.h"
#include "position/grid_bench.h"
#include "position/grid_editor.h"
#include "position/posi_check.h"
#include "support/boxes.h"

#include <string>
#include <vector>

namespace qdw8::test {

namespace box {
inline const std::string kNoData =
    "There is no position data.\r\nPlease try again after perform [New Data] or [Read from C/T] "
    "and then editing data. ";
inline const std::string kSaveError = "An error occured in saving data.";
inline const std::string kCut = "Comments longer than 40 characters were cut.";
} // namespace box

constexpr int kAxis4 = 12; ///< first table column of AXIS 4

/// Two axes in use on both ends of the line: AXIS 1 a QD-44L of 100 mm, AXIS 4 a QD-61F of 200 mm.
struct PositionBench : GridBench {
    PositionBench();

    /// All texts of the grid, head rows left out.
    static std::vector<std::string> gridTexts();
    /// A row as the controller holds it.
    std::string held(int position) const;

    void expectRange(const std::string& dialog, std::int16_t first, std::int16_t last);
    void expectFile(FileQuestion::Kind kind, const std::string& title, const std::string& path);
    void expectOpen(const std::string& path) {
        expectFile(FileQuestion::Kind::Open, "Open Position Data file", path);
    }
    /// One of the files that lie beside the tests.
    static std::string fileOf(const std::string& name);
};
using PositionTest = Unit<PositionBench>;

/// Table column of a head: "VEL" or "VEL1" to "Posi4", "ITPL" to "COMMENT".
int ColumnNamed(const std::string& name);

/// The document is the one that `showRows(first, last)` made, and the user is where he was.
void ExpectRanges(std::int16_t first, std::int16_t last);

} // namespace qdw8::test

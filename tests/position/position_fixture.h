#pragma once

#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/transfer_dialog.h"
#include "device/axis_device.h"
#include "link/Module3Tusin.h"
#include "position/posi_table.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>
#include <string>

namespace qdw8::test {

/// A program with two axes in use: AXIS 1 a QD-44L of 100 mm, AXIS 4 a QD-61F of 200 mm.
class PositionTest : public testing::Test {
protected:
    PositionTest();

    /// Puts rows of defaults into the table and the grid.
    static void showRows(std::int16_t first, std::int16_t last);
    /// Sets the text of a cell by position number and table column.
    static void type(int position, int column, const std::string& text);
    static std::string cell(int position, int column);

    ScriptedPlatform platform;
};

} // namespace qdw8::test

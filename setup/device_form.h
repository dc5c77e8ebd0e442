#pragma once

#include "app/Module1.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// What stands in the device windows `frmDevice2` (a choice made on the PC alone) and `frmDevice3`
/// (a choice that is written into the controller at once), as plain data under the names of their
/// controls. A window shows it and hands the user's edits to the routines below.
namespace qdw8 {

/// A list box: the rows to choose from and the text that stands in it, chosen or typed.
struct FormList {
    std::vector<std::string> rows;
    std::string text;
};

struct FormBox {
    bool checked = false;
    bool enabled = true;
    bool visible = true;
};

inline constexpr int kFamilyQd = 0; ///< the first of the two option buttons
inline constexpr int kFamilyHn = 1;

/// The controls of one axis.
struct AxisPanel {
    bool chkAxisEnable = false; ///< in use; everything else is shown and enabled only then
    int optQdSelect = kFamilyQd;
    FormList comboDeviceSize;   ///< three characters, " 44"
    FormList comboDeviceSpeed;  ///< one letter
    FormList comboDeviceStroke; ///< mm
    FormBox chkDevPgUse;
    FormBox chkDevVsiyou;
    FormBox chkNewOrOld; ///< ticked: old type
};

struct DeviceForm {
    std::array<AxisPanel, kAxes> axes;
    bool cautionShown = false; ///< the table is shown in mm, and a change moves its positions
    bool cancelShown = true;   ///< `cmdDeviceCancel` is there; without it the window can't be left
    bool commandsEnabled = true; ///< off while a write runs; the window can't be left then either

    // What an edit changes outside the form, for a cancel to put back.
    std::array<Flag, kAxes> newTypeBefore{};
    std::array<std::string, kAxes> familyBefore;
};

/// Fills the form from the devices in force and loads the device list; one that can't be loaded was
/// told by a box, and the lists are empty then. `frmDevice3` sets `KeepAxisFlag` too.
void OpenDevice2(DeviceForm& form);
void OpenDevice3(DeviceForm& form);

// The user's edits. Each is followed by everything that hangs on it: the speeds follow the size,
// the strokes the speed, the option boxes the model. A list that holds the actuator in force shows
// it, any other its first row.

/// The box shows or hides the axis; one that is shown has its lists filled.
void ChangeAxisEnable(DeviceForm& form, std::size_t axis, bool ticked);
/// The family counts at once, as `FamilyText`. Reads the device list anew and fills the lists of
/// all axes from it.
void ChangeFamily(DeviceForm& form, std::size_t axis, int family);
/// The three lists, by choice or by typing; the size is completed to its three characters. What
/// stands there already changes nothing.
void ChangeSize(DeviceForm& form, std::size_t axis, const std::string& text);
void ChangeSpeed(DeviceForm& form, std::size_t axis, const std::string& text);
void ChangeStroke(DeviceForm& form, std::size_t axis, const std::string& text);
/// The type counts at once, as `NewType` of `DevSettei`; the axis' list is read anew.
void ChangeNewOrOld(DeviceForm& form, std::size_t axis, bool ticked);

} // namespace qdw8

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The name of a device, and its code of seven characters.
///
/// A name is family, "-", size, speed letter, "-", stroke and option letters: "QD-61H-100EV",
/// "QD-J52L-100". A position file holds the names as the main window shows them, where a size of
/// two digits keeps its leading blank ("QD- 44L-100"); both forms are understood.
namespace qdw8 {

/// Takes the names and types of the position file (`FileDevText`, `FileNewOld`) apart into
/// `DevSettei`, for each axis in use on the PC and in the file. 0 good, 1 a bad name or a device
/// that is not in the list; a box told so, the axes before it are done, its own fields are taken
/// over as far as they were good, family included, and the others untouched. A device list whose
/// pulse generator code is unknown ends it without that box.
std::int16_t ParseFileDevices();

/// The same for one axis (0 to 3), whether it is in use or not: for an axis that the file uses and
/// the PC did not, before its device is taken over.
std::int16_t ParseFileDevice(std::size_t axis);

/// Takes a code ("J52L100", " 44H050") apart into the size, speed and stroke of `CtDevice`. 0 good;
/// 1 it isn't of seven characters or there is no such axis, and nothing changed. A stroke that is
/// no number counts as 0.
std::int16_t ParseDeviceCode(int axis, const std::string& code);

/// What a name says.
struct DeviceNameParts {
    std::string size; ///< three characters
    std::string speed;
    std::int16_t stroke = 0; ///< mm
    std::string options;     ///< letters; those behind a stroke of fewer than three digits are lost
};
/// Takes a name apart, of whatever family. Faults for a stroke that no number holds.
DeviceNameParts SplitDeviceName(std::string_view name);

/// A code in three parts for printing.
struct DeviceCodeTexts {
    std::string size;
    std::string speed;
    std::string stroke; ///< right-aligned in three columns
};
/// What `SplitDeviceCode` made last.
extern DeviceCodeTexts CodeTexts;

/// Takes a code apart into `CodeTexts`. 0 good; 1 it isn't of seven characters (`CodeTexts` is as
/// it was) or its stroke fits no three columns (the stroke text is "X").
std::int16_t SplitDeviceCode(const std::string& code);

} // namespace qdw8

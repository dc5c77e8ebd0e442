#pragma once

#include "app/Module1.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The device list `nqddevice.lst` beside the program: every model of the family with its lead, its
/// pulses per revolution and its options.
///
/// The file begins with the number of records; a record is a key of eight characters (size, speed
/// letter, a separator, stroke), the lead, the pulses per revolution, and the codes of the pulse
/// generator and of vertical mounting. Size and speed are compared as texts and the stroke as a
/// number; of two records with one key the first counts.
namespace qdw8 {

/// Option codes.
inline constexpr std::int16_t kOptionNone = 0;     ///< the model doesn't have it
inline constexpr std::int16_t kOptionChoice = 1;   ///< it can be chosen
inline constexpr std::int16_t kOptionFitted = 2;   ///< it is always fitted
inline constexpr std::int16_t kOptionUnknown = 99; ///< no such device, or no list

/// One record.
struct DeviceListRow {
    std::string size;                ///< three characters, " 44"
    std::string speed;               ///< one letter
    std::int16_t stroke = 0;         ///< mm
    std::int16_t lead = 0;           ///< mm per revolution
    std::int16_t ppr = 0;            ///< pulses per revolution
    std::int16_t pgOption = 0;       ///< option code of the pulse generator
    std::int16_t verticalOption = 0; ///< option code of vertical mounting
};

inline constexpr std::size_t kDeviceListRows = 99;
inline constexpr std::size_t kDistinctTexts = 6;

/// The list as the device windows use it. Each axis has one of its own, because its list of speeds
/// follows the size chosen there.
struct DeviceListTable {
    std::vector<DeviceListRow> rows; ///< at most 99
    std::vector<std::string> sizes;  ///< at most six, in order of first appearance
    std::vector<std::string> speeds; ///< the same; only `LoadDeviceList` fills it
};
extern std::array<DeviceListTable, kAxes> DeviceListTables;
/// Per axis: -1 the last load for this axis failed, and its table is empty.
extern std::array<Flag, kAxes> DeviceListFailed;

// A list that can't be read is told in a box, of one line or of two. A command asks the list again
// and again, for each axis: it gets each of the two boxes once, everything else each time.

/// Reads the list for all axes, with distinct sizes and speeds. 0 good. 1 the file is missing, cut,
/// holds a text where a number is due or one that fits no cell, fewer than 0 or more than 99
/// records, or a seventh size or speed: one box told so, `DeviceListFailed` is set and the table
/// empty on every axis. A list of no records is good, and an option code that can't be read counts
/// as unknown.
std::int16_t LoadDeviceList();
/// The same with the distinct sizes only.
std::int16_t LoadDeviceListSizes();
/// The same, distinct sizes only, for one axis (0 to 3). Any other axis gets the box and 1.
std::int16_t LoadDeviceListAxis(int axis);

/// No command was told of it yet. Part of `ResetDevices`.
void ResetDeviceListBoxes();

/// 0 for a size of three characters, a speed that begins with a letter from A to Z, and a stroke of
/// 10 to 500 mm; else 1.
std::int16_t CheckDeviceKey(const std::string& size, const std::string& speed, std::int16_t stroke);

// The lookups read the file anew each time, so that a list which was put right while the program
// runs counts at once. A seventh size doesn't disturb them.

struct LeadPpr {
    std::int16_t lead = 0; ///< mm per revolution
    std::int16_t ppr = 0;  ///< pulses per revolution
};
/// What `FindDeviceLeadPpr` found last.
extern LeadPpr FoundLeadPpr;

/// (0, 0) for a device that is not in the list, and after a box of two lines when the list can't be
/// read.
LeadPpr GetDeviceLeadPpr(const std::string& size, const std::string& speed, std::int16_t stroke);
/// 0 found: `FoundLeadPpr` is filled. 1 not found, or, after a box of two lines, no list;
/// `FoundLeadPpr` is as it was.
std::int16_t FindDeviceLeadPpr(const std::string& size, const std::string& speed,
                               std::int16_t stroke);
/// 0 found, 1 not found or, after a box of one line, no list.
std::int16_t DeviceInList(const std::string& size, const std::string& speed, std::int16_t stroke);
/// The option codes; `kOptionUnknown` for a device that is not in the list or, after a box of one
/// line, when the list can't be read.
std::int16_t PgOptionCode(const std::string& size, const std::string& speed, std::int16_t stroke);
std::int16_t VerticalOptionCode(const std::string& size, const std::string& speed,
                                std::int16_t stroke);

} // namespace qdw8

#pragma once

#include "app/Module1.h"

#include <array>
#include <cstdint>
#include <string>

namespace qdw8 {

class DevicesBefore;

/// What became of the devices of a file.
enum class FileDevices : std::uint8_t {
    Settled,   ///< the devices in force are those that the file is to be shown with
    Cancelled, ///< nothing was copied
    Failed     ///< no parameter file was taken; a box has told why
};

/// For positions that were made for the axes and devices in `FileDevText` and `FileNewOld`: where
/// the program works with others, the user chooses those in force now, the file's own with their
/// factory parameters, or those of a parameter file. Without factory parameters the devices of
/// `before` are put back. Faults for a device that doesn't exist; `DevSettei` is the caller's to
/// put back, then and where nothing was settled.
FileDevices SettleFileDevices(const DevicesBefore& before);

/// The same for positions that this program kept. An axis with the name and type of the one in
/// force has the same device, also where the device list doesn't know it. `leads` (`LeadTexts`)
/// counts as part of the device where it isn't empty.
FileDevices SettleKeptDevices(const DevicesBefore& before,
                              const std::array<std::string, kAxes>& leads);

} // namespace qdw8

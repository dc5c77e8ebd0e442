#pragma once

#include "parameter/para_rows.h"
#include "parameter/para_set.h"

#include <cstddef>
#include <string>
#include <string_view>

/// The controller's parameter memory: thirteen blocks of 16 bytes, each on the line as 32 digits.
/// Block 0 holds the common items; blocks 1 to 4 the homing order of the axes; then each axis has a
/// homing block (5, 7, 9, 11) and a device block (6, 8, 10, 12). Numbers of several bytes have the
/// most significant first.
namespace qdw8 {

inline constexpr int kParaBlocks = 13;
inline constexpr int kFirstDeviceWriteBlock = 5;

/// True when the block (0 to 12) belongs to an axis out of use and so moves neither way.
bool IsBlockOff(int block);

/// The block that holds the actuator of an axis (0 to 3).
constexpr int DeviceBlockOf(std::size_t axis) {
    return 6 + 2 * static_cast<int>(axis);
}

/// Which cells of `ParaReserved` fill the bytes that belong to no item.
enum class ReservedMap {
    AsRead,     ///< each byte goes back to the place it came from
    DeviceWrite ///< what a device write sends: other cells than a read fills, but for the device
                ///< block of AXIS 1
};

/// The 32 digits of a block (0 to 12) of `ParaSet`. Faults for a value that its bytes can't hold.
std::string BuildParaBlock(int block, ReservedMap map);

/// Cuts the 32 digits of a block into the rows and the reserved bytes. Faults for what is no
/// hexadecimal number and for a stroke beyond 32767 mm; rows and bytes are then half filled.
void CutParaBlock(int block, std::string_view digits, ParaRows& rows, ReservedBytes& reserved);

/// The reserved bytes of a block alone. Faults for what is no hexadecimal number, and nothing has
/// changed.
void CutReserved(int block, std::string_view digits, ReservedBytes& reserved);
/// Bytes of the block belong to no item.
bool HasReserved(int block);
/// The acceleration setting in the digits of block 0. Faults for what is no hexadecimal number.
std::int16_t AccelerationOf(std::string_view digits);

/// Size code and speed letter as the device block holds them. J52 has no number of its own: it is
/// held as 52 and the letter E. A byte that is no letter gives an empty speed. The stroke is 0.
ActuatorParts ActuatorOfBytes(int size, int letter);

} // namespace qdw8

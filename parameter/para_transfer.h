#pragma once

#include <cstdint>

/// The exchanges that move the parameter blocks. Each ends at the first failed exchange, which has
/// told the user; blocks of an axis out of use move neither way. What was already written stays in
/// the controller, uncommitted.
///
/// The caller holds the poll and closes the port. The transfer dialog is gone on every way out.
namespace qdw8 {

/// All blocks into `ParaRowTable` and `ParaReserved`. 0 good; 1 failed, both are as they were. The
/// cells of an axis out of use are empty, and its reserved bytes keep their values.
std::int16_t ReadAllBlocks();

/// What `ParaSet` doesn't say and a write must not wipe: the reserved bytes of each block of the
/// axes in use that no read of this run brought are read now, without the dialog. The acceleration
/// setting, for which no file and no factory list has a word, becomes that of the controller where
/// it is 0. 0 good, and nothing goes out when all is known; 1 failed, and the user was told.
std::int16_t FetchWhatIsCarried();

/// `ParaSet` to the controller, and commits it. 0 good. 1 failed, and the user was told; when a
/// value is too wide for its bytes nothing was sent.
std::int16_t WriteAllBlocks();

/// The same for the homing and device blocks alone. Its reserved bytes come from cells that
/// deliberately don't match those of a read.
std::int16_t WriteDeviceBlocks();

/// Changes the axis mask in the controller, uncommitted: the rest of block 0 goes back as it came.
/// The first form takes the axes in use and keeps the mask as item `AXIS` when it was written.
/// 0 good. 1 failed; when what came is not wholly hexadecimal nothing was sent.
std::int16_t WriteAxisMask();
std::int16_t WriteAxisMask(int mask);

/// Part of `ResetParameters`: nothing was read yet.
void ResetParaTransfer();

} // namespace qdw8

#pragma once

#include "app/Module1.h"
#include "parameter/para_set.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// The factory parameters of the actuators, in three lists beside the program: `w8nqdstpr.lst` for
/// the new type, `w8qdstpr.lst` for the old one, `w8cmstpr.lst` for what no actuator decides.
namespace qdw8 {

/// One actuator of a list.
struct FactoryDevice {
    ActuatorParts key; ///< from the record's name of eight characters
    double OFFSET = 0;
    std::int16_t PUSH = 0;
    std::int16_t VEL = 0;
    std::int16_t OFSVEL = 0;
    std::int16_t PUSHVEL = 0;
    std::int16_t SEQ = 0;
    double STROKE = 0;
    std::int16_t LEAD = 0;
    std::int32_t PULSE = 0;
    std::int16_t JOGVEL = 0;
    std::int16_t AUTODRIVE = 0;
    std::int16_t TYPE = 0; ///< not in the file: it follows from the kind of the axis
    std::string Actuator;  ///< as the file has it; good only with seven characters
};

inline constexpr std::size_t kFactoryRecords = 99;
/// Per axis the records of the list that suits its actuator, at most 99.
extern std::array<std::vector<FactoryDevice>, kAxes> FactoryDeviceTable;

inline constexpr std::size_t kFactoryRows = 21;
inline constexpr std::size_t kFactoryColumns = 3;
/// Rows 0 to 13 are `FUNCTION`, `ALM`, the ETC items, `AXIS` (read, never used) and the special
/// items. Column 1 counts, for the first two rows column 2 on an axis with a pulse generator.
extern std::array<std::array<double, kFactoryColumns>, kFactoryRows> FactoryCommonTable;

/// -1: a load of factory parameters takes the axis mask from `KeptAxisMask`.
extern Flag KeepAxisFlag;
extern std::int16_t KeptAxisMask;

/// Reads the lists for all four axes, by the actuators in `DevSettei`. 0 good. 1 a list is missing,
/// of another kind or can't be read: one box told, and the tables are as they were.
std::int16_t ReadFactoryLists();

/// Puts the factory parameters of the actuators in `DevSettei` into `ParaSet`, for the axes in use,
/// and the common items. 0 good. 1 after a box: the lists can't be read and `ParaSet` is as it was,
/// or an axis has no record and keeps the items that its record would have brought.
std::int16_t LoadFactoryParameters();

/// The same for a device write: only what the device decides. `SEQ` and `AUTODRIVE`, `ALM`, the
/// timers and the common items stay; `AXIS` changes only with `KeepAxisFlag`.
std::int16_t LoadFactoryParametersForDevice();

} // namespace qdw8

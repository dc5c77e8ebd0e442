#pragma once

#include "app/Module1.h"

#include <array>
#include <cstdint>
#include <string>

/// What is fitted on each axis.
///
/// The model fixes the lead, the pulses per revolution, the stroke and the options; every mm and
/// pulse conversion and every limit check of a position hangs on it.
namespace qdw8 {

/// The actuator of one axis.
struct AxisDevice {
    std::string DevSize;        ///< size code, three characters: " 44", "J52"
    std::string DevSpeed;       ///< speed letter, upper case
    std::int16_t DevStroke = 0; ///< mm, 10 to 500
    Flag NewType = kClear;      ///< new type of actuator
    Flag WithPG = kClear;       ///< it has a pulse generator
    Flag Vertical = kClear;     ///< vertical mounting
    Flag Device = kClear;       ///< the family is "QD"
    std::int16_t DevLead = 0;   ///< mm per revolution: numerator of every conversion
    std::int16_t DevPPR = 0;    ///< pulses per revolution: denominator of every conversion
    std::int32_t MaxPulse = 0;  ///< stroke end in pulses
    double MaxStrokeMm = 0;     ///< stroke end in mm, cut to three decimals; always n / 10000.0

    bool operator==(const AxisDevice&) const = default;
};

/// `DevSetting` is what the program works with; `DevSettei` is what a position file or a pending
/// change says. Kept apart on purpose. Of `DevSettei` only the fields up to `Device` are used.
extern std::array<AxisDevice, kAxes> DevSetting;
extern std::array<AxisDevice, kAxes> DevSettei;
/// The axes out of use as the `DevSettei` copy has them; those of `DevSetting` are `AxisOff`.
extern std::array<Flag, kAxes> FileAxisOff;
/// Family text of each axis, "QD" or "HN".
extern std::array<std::string, kAxes> FamilyText;
/// What the last position file says of each axis: the name of its device, empty if the axis is out
/// of use, and "NEW" or "OLD".
extern std::array<std::string, kAxes> FileDevText;
extern std::array<std::string, kAxes> FileNewOld;
/// The parameter image names no actuator for this axis.
extern std::array<Flag, kAxes> DeviceTextEmpty;

/// The device of one axis as last read from the controller.
struct ControllerDevice {
    std::int16_t KindCode = 0; ///< item `TYPE`
    std::int16_t Lead = 0;     ///< mm per revolution
    std::int32_t PPR = 0;      ///< pulses per revolution
    std::int16_t Function = 0; ///< item `FUNCTION`: 1 and 2 mean that a pulse generator is fitted
    std::int32_t MaxPulse = 0; ///< item `STROKE`, pulses
    std::string Size;          ///< three characters, empty if none
    std::string Speed;         ///< one character, empty if none
    std::int16_t Stroke = 0;   ///< mm
};
extern std::array<ControllerDevice, kAxes> CtDevice;

/// Some of the four axes: true for each that is meant.
using AxisChoice = std::array<bool, kAxes>;
/// The axes in use.
AxisChoice AxesInUse();

/// True for the model `QD-61F`: size " 61" and speed "F". It has one acceleration setting fewer.
bool IsSpecialModel(const AxisDevice& device);

/// True for the sizes of which no old type was ever made: " 33", " 61" and "J52".
bool ExistsOnlyAsNew(const std::string& size);

} // namespace qdw8

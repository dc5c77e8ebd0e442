#pragma once

#include "app/Module1.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

/// Where the axes stand while they are moved by hand.
namespace qdw8 {

/// Pulses of each axis; none for an axis out of use and where nothing was read.
using AxisPulses = std::array<std::optional<std::int32_t>, kAxes>;

/// The last reading.
extern AxisPulses& JogPresentPos;
/// The stroke ends that the controller holds, 0 for an axis out of use.
extern std::array<std::int32_t, kAxes>& JogMaxPulse;

/// `0RC`. 0 good: `JogPresentPos` is of now. 1 failed, the user has been told, behind a stop where
/// an axis may move, and `JogPresentPos` is as it was. A field that is no number fails it.
std::int16_t ReadnDisp_PresentPos();

/// Positions are shown in millimetres: the display unit, where each axis in use has a device. Else
/// all are shown in pulses, for one column or head never says two units.
bool TeachesInMm();
/// A position of an axis as the window shows it.
std::string JogPosText(std::size_t axis, std::int32_t pulse);

/// Tells something with a box, behind a stop where an axis may move.
void TellBehindStop(const std::function<void()>& box);

void ResetJogPosition();

} // namespace qdw8

#pragma once

#include "platform/timer.h"

/// What keeps the user informed of the line and the alarm.
namespace qdw8 {

extern Timer Timer1; ///< supervision tick, 500 ms

/// The half-second tick `Timer1`: the port lamp (the rest of the panel and the status bar are told
/// of every change at once), and the poll that lets a resettable alarm go out
/// by itself once the controller has dropped it.
void SupervisionTick();

void ResetSupervision();

} // namespace qdw8

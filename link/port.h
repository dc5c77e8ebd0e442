#pragma once

#include "app/Module1.h"

#include <cstdint>

/// The serial port `MSComm1`: which one, opening and closing it.
namespace qdw8 {

extern std::int16_t& PortNo; ///< 1 to 9
extern Flag& PortOccupyFlag; ///< the port stays open between batches

/// Opens the port, settings 9600,N,8,1 without handshaking; an open port is left as it is. A
/// `PortNo` outside 1 to 9 is replaced by the stored one (default 1) first. 0 open, 1 failed.
std::int16_t OpenCtPort();
/// Opens with six tries, 100 ms apart. 0 open, 1 failed.
std::int16_t OpenCtPortWithTries();
/// The same, and tells: on failure the port box comes once and the program goes off
/// line. 0 open, 1 failed.
std::int16_t OpenCtPortForBatch();
/// The box for a port that can't be opened, or is gone.
void ShowPortBox();
/// Closes the port unless `PortOccupyFlag` keeps it: the normal end of a batch.
void CloseCtPort();
void CloseCtPortForce();

void ResetPort();

} // namespace qdw8

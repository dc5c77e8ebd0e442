#pragma once

#include "app/main_panel.h"

#include <string>

/// The line in words, for somebody who looks on: which port it is, whether it is open, whether the
/// controller has answered, and what to do where something is the matter.
namespace qdw8 {

struct PortInfo;

/// What is told of the line now, if `PortNo` is what `info` says.
LinePanel LineInWords(const PortInfo& info, bool open);

/// The port of `line` as it reads when it is open, or closed.
std::string PortInWords(const LinePanel& line, bool open);

/// Shows what is told of the line; `Timer1` calls it. Looks at the port when it was changed, opened
/// or closed, and every 3 s while it is closed and the line is off or in trouble. Opens and sends
/// nothing.
void WatchLine();

/// What is told besides to somebody who asks, some lines: the port in a sentence, the other ports
/// of the machine.
std::string LineDetails();

void ResetLineStatus();

} // namespace qdw8

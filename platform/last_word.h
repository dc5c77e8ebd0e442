#pragma once

#include <string>

/// What a serial line is told when the process is gone without having said it: killed, crashed, or
/// ended by its toolkit. A second process, which has nothing else to do, waits for the end of the
/// first and then says it.
namespace qdw8 {

/// Makes the second process. To be called first of all in `main`, while there is one thread. It
/// ends with the program, a few seconds later at most. Where it can't be made there is none.
void StartLastWord();

/// From now on that device (at 9600 baud, 8 bits, no parity) would be told `text`, of at most 15
/// characters; empty: nothing. It is sent up to ten times, until the device repeats it. Nothing
/// happens without a second process, or for a device whose name is longer than any file's.
void KeepLastWord(const std::string& device, const std::string& text);

} // namespace qdw8

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
/// characters; empty: nothing. It is sent up to ten times within some four seconds, until the
/// device repeats it; a port that another process has opened by then is left alone. Nothing happens
/// without a second process, or for a device whose name is longer than any file's.
///
/// While there is a word a crash leaves no image of the memory: writing that would hold it up.
void KeepLastWord(const std::string& device, const std::string& text);

/// Has it said now, for a process whose last steps may take their time. The caller has closed the
/// port. From then on no word is kept any more.
void SayLastWordNow();

} // namespace qdw8

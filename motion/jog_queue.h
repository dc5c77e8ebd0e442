#pragma once

#include "app/Module1.h"
#include "platform/timer.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// The moves by hand that wait to be sent. A stop is none of them: it goes in front of all, and
/// drops them.
namespace qdw8 {

/// `0JR` or `0MV`.
struct JogEntry {
    std::size_t button = 0;
    int step = 0;     ///< pulses; 0: `0JR`
    std::string data; ///< of `0JR`; that of `0MV` is made where it is sent
};
inline constexpr std::size_t kJogQueueRoom = 10;

extern Flag& JogSendPending; ///< there is something to send
extern Flag& JogReady;       ///< a new press is accepted
extern Timer TimerDelay;     ///< 300 ms from a press that was accepted: until the next one is

/// Index of the last entry, -1 when there is none.
std::int16_t JogQueueCount();

/// A press. False: it came too soon, or the queue is full, and nothing has changed.
bool PushJog(const JogEntry& entry);
/// The head of the queue. There must be one.
const JogEntry& JogHead();
void PopJog();
void DropJogs();

/// Empty, and the next press is accepted.
void ResetJogQueue();

} // namespace qdw8

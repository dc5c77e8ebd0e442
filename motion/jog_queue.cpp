#include "motion/jog_queue.h"

#include <deque>

namespace qdw8 {
namespace {

/// The state of a fresh start.
struct JogQueueState {
    std::deque<JogEntry> JogQueue;
    Flag JogSendPending = kClear;
    Flag JogReady = kSet;
};
JogQueueState state;

} // namespace

Flag& JogSendPending = state.JogSendPending;
Flag& JogReady = state.JogReady;

Timer TimerDelay{"TimerDelay", 300, false, {}};

std::int16_t JogQueueCount() {
    return static_cast<std::int16_t>(static_cast<int>(state.JogQueue.size()) - 1);
}

bool PushJog(const JogEntry& entry) {
    if (!IsSet(state.JogReady) || state.JogQueue.size() >= kJogQueueRoom) {
        return false;
    }
    state.JogReady = kClear;
    EnableTimer(TimerDelay);
    state.JogQueue.push_back(entry);
    state.JogSendPending = kSet;
    return true;
}

const JogEntry& JogHead() {
    return state.JogQueue.front();
}

void PopJog() {
    state.JogQueue.pop_front();
    state.JogSendPending = FlagOf(!state.JogQueue.empty());
}

void DropJogs() {
    state.JogQueue.clear();
    state.JogSendPending = kClear;
}

void ResetJogQueue() {
    DisableTimer(TimerDelay);
    TimerDelay = {"TimerDelay", 300, false, [] {
                      state.JogReady = kSet;
                      DisableTimer(TimerDelay);
                  }};
    state = {};
}

} // namespace qdw8

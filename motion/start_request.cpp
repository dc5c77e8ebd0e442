#include "motion/start_request.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "link/background.h"

namespace qdw8 {
namespace {

constexpr int kLongestMs = 1000;

} // namespace

bool StartRequest::isStale(const Timer& timer) {
    if (CommandsTaken() || ModalIsUp() || PollIsHeld()) {
        return true;
    }
    AskForLine();
    waited += timer.interval;
    return waited > kLongestMs;
}

} // namespace qdw8

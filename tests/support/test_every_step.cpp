// The helper that runs a command with a fault at each of its frames: it must see every frame and
// every fault, and answer what is asked.

#include "app/transfer_dialog.h"
#include "link/batch.h"
#include "link/ct_commands.h"
#include "support/boxes.h"
#include "support/every_step.h"

#include <algorithm>
#include <map>

namespace qdw8::test {
namespace {

// Two frames, the second at the end of a dialog.
TEST(EveryStepTest, EveryFaultMeetsEveryFrame) {
    std::map<std::string, std::vector<std::string>> boxes;
    EveryStep<LineBench>(
        [](LineBench&) {
            const LineBatch batch;
            const TransferShown shown(1, 368);
            if (SetCtMode(2) == 0) {
                ReadHomeStatus();
            }
        },
        [&](LineBench&, const Step& step) { boxes[step.fault + " " + step.frame] = step.boxes; });
    EXPECT_EQ(boxes.size(), 1 + 2 * kAllFaults.size());
    const std::map<std::string, std::vector<std::string>> told{
        {"silence 0RH", {}},         {"silence 0CM02", {"timeout"}},
        {"dead 0RH", {"timeout"}},   {"dumb 0RH", {}},
        {"hangup 0RH", {"port"}},    {"short 0RH", {"length"}},
        {"error=03 0RH", {"homing"}}};
    for (auto [at, names] : told) {
        std::transform(names.begin(), names.end(), names.begin(), BoxText);
        EXPECT_EQ(boxes.at(at), names) << at;
    }
}

} // namespace
} // namespace qdw8::test

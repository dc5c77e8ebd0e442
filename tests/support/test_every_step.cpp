// The helper that runs a command with a fault at each of its frames: it must see every frame and
// every fault, and answer what is asked.

#include "app/transfer_dialog.h"
#include "link/batch.h"
#include "link/ct_commands.h"
#include "support/boxes.h"
#include "support/every_step.h"

#include <map>
#include <set>

namespace qdw8::test {
namespace {

// Two frames, the second at the end of a dialog.
TEST(EveryStepTest, EveryFaultMeetsEveryFrame) {
    std::map<std::string, std::set<std::string>> boxes;
    int runs = 0;
    EveryStep<LineBench>(
        [](LineBench&) {
            const LineBatch batch;
            const TransferShown shown(1, 368);
            if (SetCtMode(2) == 0) {
                ReadHomeStatus();
            }
        },
        [&](LineBench&, const Step& step) {
            ++runs;
            boxes[step.fault + " " + step.frame].insert(step.boxes.begin(), step.boxes.end());
        });
    EXPECT_EQ(static_cast<std::size_t>(runs), 1 + 2 * kAllFaults.size());
    EXPECT_EQ(boxes["dead 0RH"], std::set<std::string>{BoxText("timeout")});
    EXPECT_EQ(boxes["silence 0RH"], std::set<std::string>{}) << "sent again";
    EXPECT_EQ(boxes["silence 0CM02"], std::set<std::string>{BoxText("timeout")}) << "never sent twice";
    EXPECT_EQ(boxes["dumb 0RH"], std::set<std::string>{}) << "given up";
    EXPECT_EQ(boxes["hangup 0RH"], std::set<std::string>{BoxText("port")});
    EXPECT_EQ(boxes["short 0RH"], std::set<std::string>{BoxText("length")});
    EXPECT_EQ(boxes["error=03 0RH"], std::set<std::string>{BoxText("homing")});
}

} // namespace
} // namespace qdw8::test

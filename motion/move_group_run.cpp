#include "motion/move_group_run.h"

#include "app/boxes.h"
#include "link/ct_commands.h"
#include "link/port.h"
#include "motion/move_run.h"
#include "motion/move_state.h"

namespace qdw8 {
namespace {

constexpr std::int16_t kWrongGroup = 560;

} // namespace

void RunMoveGroup() {
    GrpMoveStopFlag = kClear;
    if (!MakeReadyForMove()) {
        return;
    }
    const int group = TheMove().group;
    if (group < 1 || group > kHighestGroup) {
        CloseCtPort();
        ShowTexts({kWrongGroup});
        return;
    }
    RunMotion(MovePhase::Group, group, [group] { return RunGroup(group); });
}

} // namespace qdw8

#include "motion/move_state.h"

#include "app/screens.h"

namespace qdw8 {

MoveState& TheMove() {
    static MoveState state;
    return state;
}

MoveRun RunOfMove() {
    return static_cast<MoveRun>(TheMove().MoveRequest);
}

void TellMove() {
    if (Screens().frmMove) {
        Screens().frmMove();
    }
}

void ResetMoveState() {
    TheMove() = {};
}

} // namespace qdw8

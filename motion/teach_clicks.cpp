#include "motion/teach_clicks.h"

#include "app/boxes.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "motion/teach_chart.h"
#include "motion/teaching.h"

namespace qdw8 {
namespace {

constexpr std::int16_t kNotConfirmed = 3193;
constexpr std::int16_t kCloseAllTheSame = 3230;

/// Behind the close nobody sees the sign any more.
bool MayLeaveStop() {
    return TheTeachingForm().stop == StopSign::None ||
           AskBox(TextLines({kNotConfirmed, kCloseAllTheSame}), BoxButtons::OkCancel) ==
               BoxAnswer::Ok;
}

void Close() {
    if (!JogOpen() || !MayLeaveStop() || !MayLeaveTeachChart()) {
        return;
    }
    ResetTeachChart();
    UnloadJog();
    if (Screens().frmJOG) {
        Screens().frmJOG();
    }
}

} // namespace

void cmdJOGWrite_Click() {
    const TeachingForm form = TheTeachingForm();
    if (form.cmdJOGWrite) {
        TeachPosition({JogPresentPos, form.lblPosi});
    }
}

void cmdJogExit_Click() {
    LetStopOut(Close);
}

bool TeachingAllowsEnd() {
    if (!JogOpen()) {
        return true;
    }
    Screens().frmJOGShow();
    return false;
}

} // namespace qdw8

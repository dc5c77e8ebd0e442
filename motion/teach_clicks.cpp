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

/// A close runs: what it asks of the user and of the line lets a second click through.
bool closing = false;
struct Closing {
    Closing() { closing = true; }
    ~Closing() { closing = false; }
    Closing(const Closing&) = delete;
    Closing& operator=(const Closing&) = delete;
};

void Close() {
    if (!JogOpen() || closing) {
        return;
    }
    const Closing running;
    if (!MayLeaveStop()) {
        return;
    }
    const ChartEnd end = AskAboutTeachChart();
    if (end == ChartEnd::Stay) {
        return;
    }
    // What was taught is written for the devices that the axes keep.
    EndTeaching();
    if (end == ChartEnd::Adopt) {
        AdoptTeachingData();
    }
    ResetTeachChart();
    UnloadJog();
    if (Screens().frmJOG) {
        Screens().frmJOG();
    }
}

} // namespace

void cmdJOGWrite_Click() {
    if (TheTeachingForm().cmdJOGWrite) {
        TeachPosition(JogPresentPos);
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

#include "link/link_fixture.h"

#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/transfer_dialog.h"
#include "link/alarm.h"
#include "link/line_state.h"
#include "link/receiver.h"
#include "support/story.h"

namespace qdw8::test {
namespace {

/// The word of an event; empty for one that a story leaves out.
std::string WordOf(const std::string& event) {
    static const auto boxes = RowsOf("support/boxes.txt");
    for (const auto& box : boxes) {
        if (event == "box Ok: " + box[1]) {
            return box[0];
        }
    }
    return event == "line breaks"                                           ? "breaks"
           : event == "send 0CM0"                                           ? "again"
           : event.starts_with("send ")                                     ? "send"
           : event.starts_with("bar ")                                      ? event.substr(4)
           : event == "close" || event == "off" || event.starts_with("box") ? event
                                                                            : "";
}

} // namespace

LinkBench::LinkBench() {
    platform.recordsBoxes = true;
    ErrorList.fill({});
    ErrorList[0].code = "2";
    ErrorList[1] = {"13", "Homing not completed"};
    ErrorList[2] = {"24", "Home sensor not detected"};
    ErrorList[3] = {"1a", "small letter"};
    GoOnLine();
    SetOnlineState();
    ClearAlarmDisplay();
    Screens().frmMainPanel = [this, lit = true]() mutable {
        if (lit && !ThePanel().imgGreenLedOnline) {
            platform.events.emplace_back("off");
        }
        lit = ThePanel().imgGreenLedOnline;
    };
    Screens().frmTrance = [this] {
        const TransferDialog& now = TheTransferDialog();
        platform.events.push_back("bar " + (!now.shown ? "gone"
                                                       : std::to_string(now.prgBar1) + "/" +
                                                             std::to_string(now.prgBar1Max) +
                                                             (now.cancelShown ? "c" : "")));
    };
}

void LinkBench::answer(const std::string& answers) {
    for (const std::string& text :
         answers.empty() ? std::vector<std::string>{} : Split(answers, ';')) {
        std::vector<std::pair<std::int64_t, std::string>> pieces;
        for (const std::string& piece : Split(text, '~')) {
            if (piece.empty()) {
                continue;
            }
            const std::size_t at = piece.find('@');
            const std::size_t in = 10 * (pieces.size() + 1);
            pieces.emplace_back(at == piece.npos ? in : std::stoul(piece.substr(at + 1)),
                                piece.substr(0, at));
        }
        if (!pieces.empty() && !text.ends_with('~')) {
            pieces.back().second += "\r\n";
        }
        platform.answerBytes(pieces);
    }
}

void LinkBench::letAlarmStand() {
    AlarmFlag = kSet;
    ErrorNo = "9";
    ErrorText = "Old alarm";
    SetPanel(&MainPanel::imgAlarmLed, true);
    SetPanel(&MainPanel::lblAlarmNo, ErrorNo);
    SetPanel(&MainPanel::lblErrorComment, ErrorText);
}

std::string LinkBench::story() {
    std::string text;
    std::size_t sends = 0;
    for (const std::string& event : platform.events) {
        const std::string word = WordOf(event);
        if (word == "send" || word == "again") {
            text += std::to_string(platform.sentAt[sends++]) + " ";
        }
        text += word.empty() ? "" : word + " ";
    }
    platform.events.clear();
    platform.sent.clear();
    platform.sentAt.clear();
    return Trim(text) + ", " + std::to_string(platform.now);
}

std::string LinkBench::state() {
    std::string text;
    for (const auto& [flag, name] : {std::pair{OffLineFlag, "OffLine "},
                                     {OnLineFlag, "OnLine "},
                                     {CommErrorFlag, "CommError "},
                                     {AlarmFlag, "Alarm "},
                                     {AlarmNotResettableFlag, "NotResettable "},
                                     {ErrorFoundFlag, "ErrorFound "},
                                     {ErrorListMissingFlag, "NoList "}}) {
        text += IsSet(flag) ? name : "";
    }
    return Trim(text);
}

} // namespace qdw8::test

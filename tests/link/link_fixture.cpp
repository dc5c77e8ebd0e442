#include "link/link_fixture.h"

#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/transfer_dialog.h"
#include "link/alarm.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"

#include <fstream>
#include <map>
#include <sstream>

namespace qdw8::test {
namespace {

/// The word of an event; empty for one that a story leaves out.
std::string WordOf(const std::string& event) {
    static const std::map<std::string, std::string> words{
        {"close", "close"},
        {"off", "off"},
        {"line breaks", "breaks"},
        {"send 0CM0", "again"},
        {"box Ok: " + box::kPort, "port"},
        {"box Ok: " + box::kTimeout, "timeout"},
        {"box Ok: " + box::kError, "error"},
        {"box Ok: " + box::kHoming, "homing"},
        {"box Ok: " + box::kSensor, "sensor"},
        {"box Ok: " + box::kUnlisted, "unlisted"},
        {"box Ok: " + box::kLength, "length"},
        {"box Ok: " + box::kWrongData, "wrong data"},
        {"box Ok: " + box::kCommError, "failed"},
        {"box Ok: " + box::kMoving, "moving"},
        {"box Ok: " + box::kError + "\r\n[]", "no text"},
        {"box Ok: " + box::kNoErrorList, "no list"}};
    const auto found = words.find(event);
    if (found != words.end()) {
        return found->second;
    }
    return event.starts_with("send ")  ? "send"
           : event.starts_with("bar ") ? event.substr(4)
           : event.starts_with("box")  ? event
                                       : "";
}

} // namespace

std::vector<std::string> Split(const std::string& text, char mark) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, mark);) {
        parts.push_back(Trim(part));
    }
    return parts;
}

std::vector<std::vector<std::string>> RowsOf(const std::string& name) {
    std::vector<std::vector<std::string>> rows;
    std::ifstream table(QDW8_SOURCE_DIR "/tests/link/" + name);
    for (std::string line; std::getline(table, line);) {
        if (!line.starts_with('#')) {
            rows.push_back(Split(line, '|'));
        }
    }
    return rows;
}

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
    for (const std::string& text : Split(answers, ';')) {
        std::vector<std::pair<std::int64_t, std::string>> pieces;
        for (const std::string& piece : Split(text, '~')) {
            const std::size_t at = piece.find('@');
            const std::size_t in = 10 * (pieces.size() + 1);
            pieces.emplace_back(at == piece.npos ? in : std::stoul(piece.substr(at + 1)),
                                piece.substr(0, at));
            if (const auto end = pieces.back().second.find('^'); end != piece.npos) {
                pieces.back().second.replace(end, 1, "\r\n");
            }
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
                                     {ErrorFoundFlag, "ErrorFound "}}) {
        text += IsSet(flag) ? name : "";
    }
    return Trim(text);
}

} // namespace qdw8::test

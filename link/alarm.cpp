#include "link/alarm.h"

#include "app/boxes.h"
#include "app/field_reader.h"
#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "link/line_state.h"
#include "link/port.h"
#include "platform/cp932_text.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/whole_file.h"

#include <algorithm>
#include <charconv>
#include <exception>

namespace qdw8 {
namespace {

/// The state of a fresh start.
struct AlarmState {
    Flag AlarmNotResettableFlag = kClear;
    Flag ErrorFoundFlag = kClear;
    std::string ErrorNo;
    std::string ErrorText;
    std::string ErrorReplyText;
    Flag ErrorListMissingFlag = kClear;
    std::array<ErrorListRow, kErrorListRows + 1> ErrorList;
    bool listBoxShown = false;
};
AlarmState state;

} // namespace

Flag& AlarmNotResettableFlag = state.AlarmNotResettableFlag;
Flag& ErrorFoundFlag = state.ErrorFoundFlag;
std::string& ErrorNo = state.ErrorNo;
std::string& ErrorText = state.ErrorText;
std::string& ErrorReplyText = state.ErrorReplyText;
Flag& ErrorListMissingFlag = state.ErrorListMissingFlag;
std::array<ErrorListRow, kErrorListRows + 1>& ErrorList = state.ErrorList;

namespace {

std::string FirstCharacter(const std::string& text) {
    return text.substr(0, 1);
}

std::string LastCharacter(const std::string& text) {
    return text.empty() ? text : text.substr(text.size() - 1);
}

/// The count of rows: decimal digits and nothing else.
std::size_t RowCount(const std::string& field) {
    const std::string text = Trim(field);
    std::size_t count = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), count);
    if (result.ec != std::errc{} || result.ptr != text.data() + text.size()) {
        throw Fault("the error list doesn't begin with its count of rows");
    }
    return count;
}

void ReadErrorList() {
    FieldReader fields(FromCp932(ReadWholeFile(BesideProgram(ResText(120)))));
    ErrorList[0] = {fields.next(), {}};
    const std::size_t rows = RowCount(ErrorList[0].code);
    for (std::size_t row = 1; row <= rows; ++row) {
        if (row > kErrorListRows) {
            throw Fault("the error list has too many rows");
        }
        ErrorList[row].code = fields.next();
        ErrorList[row].message = fields.next();
    }
}

} // namespace

void LoadErrorList() {
    ErrorList.fill({});
    ErrorListMissingFlag = kClear;
    try {
        ReadErrorList();
    } catch (const std::exception&) {
        ErrorListMissingFlag = kSet;
        ShowTexts({30, 31});
    }
}

void DecodeCtError() {
    if (!IsSet(ErrorListMissingFlag)) {
        DecodeCtErrorSilently();
    } else if (!state.listBoxShown) {
        state.listBoxShown = true;
        ShowTexts({30, 31});
        state.listBoxShown = false;
    }
}

void DecodeCtErrorSilently() {
    if (IsSet(ErrorListMissingFlag)) {
        return;
    }
    const std::string_view reply =
        std::string_view(ErrorReplyText).substr(0, ErrorReplyText.find("\r\n"));
    // A reply that is too short has no class: it is taken as the one that no reset clears.
    const bool resettable = Mid(reply, 4, 1) == "0";
    const std::string errorClass = resettable ? "1" : "2";
    AlarmNotResettableFlag = FlagOf(!resettable);
    if (!resettable) {
        LastHeard = {Heard::LastingAlarm, PortNo};
    }
    ErrorNo = Mid(reply, 6, 1);
    SetPanel(&MainPanel::lblAlarmNo, ErrorNo);
    SetPanel(&MainPanel::imgAlarmLed, true);

    // Row 0 takes part, with the count of rows as its code.
    const auto rows =
        std::min(static_cast<std::size_t>(NumberFromText(ErrorList[0].code)), kErrorListRows);
    const auto end = ErrorList.begin() + static_cast<std::ptrdiff_t>(rows) + 1;
    const auto row = std::find_if(ErrorList.begin(), end, [&](const ErrorListRow& candidate) {
        return LastCharacter(candidate.code) == ErrorNo &&
               FirstCharacter(candidate.code) == errorClass;
    });
    ErrorFoundFlag = FlagOf(row != end);
    ErrorText = row != end ? row->message : ResText(32);
    SetPanel(&MainPanel::lblErrorComment, ErrorText);
}

void ClearAlarmDisplay() {
    SetPanel(&MainPanel::imgAlarmLed, false);
    SetPanel(&MainPanel::lblErrorComment, "No Error");
    SetPanel(&MainPanel::lblAlarmNo, "");
}

void ResetAlarmState() {
    state = {};
}

} // namespace qdw8

#pragma once

#include "app/Module1.h"

#include <array>
#include <cstddef>
#include <string>

/// Error replies of the controller: the error list, and the decoding of a reply into the alarm
/// display.
namespace qdw8 {

extern Flag& AlarmNotResettableFlag; ///< the last error reply was of the class no reset clears
extern Flag& ErrorFoundFlag;         ///< its code stands in the error list
extern std::string& ErrorNo;         ///< its code character
extern std::string& ErrorText;       ///< the list's text for it
extern std::string& ErrorReplyText;  ///< the last reply handed to the decoder

extern Flag& ErrorListMissingFlag;
/// The error list; row 0 holds only the count of rows, as its code.
struct ErrorListRow {
    std::string code;
    std::string message;
};
inline constexpr std::size_t kErrorListRows = 40;
extern std::array<ErrorListRow, kErrorListRows + 1>& ErrorList;

/// Reads the error list of the language of the run, beside the program. On any failure
/// `ErrorListMissingFlag` is set and a box shown; rows read so far are kept.
void LoadErrorList();
/// Decodes `ErrorReplyText` into the error fields and the alarm display. Without an error list it
/// shows a box and leaves the fields as they are; while that box is up, no second one comes.
void DecodeCtError();
/// The same without the box: an exchange that waits for this reply tells, or keeps quiet, itself.
void DecodeCtErrorSilently();
/// The alarm display after a good reply or a reset: lamp out, "No Error", no number.
void ClearAlarmDisplay();

void ResetAlarmState();

} // namespace qdw8

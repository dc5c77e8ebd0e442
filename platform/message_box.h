#pragma once

#include <functional>
#include <string>

namespace qdw8 {

enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Cancel, Yes, No };
enum class BoxIcon { None, Question, Exclamation, Stop };

/// One modal message box. Lines of the text are joined with "\r\n".
struct BoxQuestion {
    std::string text;
    BoxButtons buttons = BoxButtons::Ok;
    std::string title; ///< empty: the program's own name
    BoxIcon icon = BoxIcon::None;
    bool mildDefault = false; ///< Enter takes the last choice, not the first
};

/// Shows the box and waits for the answer while events go on. Closing the box answers Cancel where
/// there is such a button, else what the sole button says; a Yes and No box can't be closed.
using MessageBox = std::function<BoxAnswer(const BoxQuestion&)>;

} // namespace qdw8

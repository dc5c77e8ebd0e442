#pragma once

#include "app/screens.h"
#include "platform/message_box.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>

/// Boxes, choices and modal windows. Behind the confirmed end of the program (`ProgramEndFlag`)
/// nobody is told or asked anything more: nothing comes up, and the answer is the mildest, Cancel,
/// else No, else OK.
namespace qdw8 {

/// Joins lines with "\r\n". An empty line makes a blank one.
std::string Lines(std::initializer_list<std::string> lines);

/// The texts of the ids, one a line.
std::string TextLines(std::initializer_list<std::int16_t> ids);

/// A box with an OK button and the default title.
void ShowBox(const std::string& text);
/// The same with the texts of the ids, one a line.
void ShowTexts(std::initializer_list<std::int16_t> ids);

/// A question box with the default title.
BoxAnswer AskBox(const std::string& text, BoxButtons buttons);
/// Any box.
BoxAnswer AskBox(const BoxQuestion& question);
/// The choice dialog.
std::int16_t AskChoice(const SelectionQuestion& question);
/// Any other modal window, by its screen function. False: it did not come up.
bool ShowModal(const std::function<void()>& window);

/// One of these stands on the screen now: the user can't reach the windows under it.
bool ModalIsUp();

} // namespace qdw8

#pragma once

#include "parameter/para_controls.h"

#include <optional>
#include <string>

/// The user's edits in the parameter window. Each takes the mark of the field away, counts as an
/// unsaved edit when it changes something, and tells the window.
namespace qdw8 {

/// True for a character that can be typed into a text field: a digit, in `txtHomeOrder` 1 to 9. Of
/// them a field takes `ParaFieldLength`.
bool ParaKeyTaken(ParaControl control, char key);

/// What stands in a text field after it was edited.
void EditParaText(ParaControl control, std::size_t axis, const std::string& text);
/// A list takes the row (from 0) that was chosen.
void ChooseParaRow(ParaControl control, std::size_t axis, int row);

/// The field loses the focus: a number beyond its range empties it, with a beep. An empty field
/// stays empty without one.
void LeaveParaField(ParaControl control, std::size_t axis);

/// Where Enter goes from a text field: along the axes of an item, then to the next item with a text
/// field, from the last item of a page to the next page, from the last page to the first. From a
/// list it goes the same way without passing lists over. Grey fields are passed over. Nothing when
/// there is no field left.
std::optional<ParaPlace> NextParaField(ParaPlace from);

// The actuator lists, by choice or by typing. The speeds follow the size, the strokes the speed: a
// list that holds what stood there keeps it, any other shows its first row, and for sizes that the
// device list doesn't have everything stays. `txtActuator` follows.

/// The size is completed to its three characters. " 33" and "J52" set the speed to "L".
void ChooseActSize(std::size_t axis, const std::string& text);
void ChooseActSpeed(std::size_t axis, const std::string& text);
void ChooseActStroke(std::size_t axis, const std::string& text);

/// `chkTokuParaChange` was clicked. Ticking asks first, and a No leaves everything as it was;
/// the window then shows the box clear again.
void TickTokuParaChange(bool ticked);

} // namespace qdw8

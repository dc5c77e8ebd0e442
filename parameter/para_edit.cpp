#include "parameter/para_edit.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/number_forms.h"
#include "device/device_lists.h"
#include "link/background.h"
#include "parameter/para_fields.h"
#include "parameter/para_marks.h"
#include "platform/platform.h"

#include <algorithm>
#include <vector>

namespace qdw8 {
namespace {

void Edited(ParaControl control, std::size_t axis) {
    SetParaMark(control, axis, ParaMark::None);
    ParaEditedFlag = kSet;
    TellParameta2();
}

/// Of a list just filled: what stood there if the list has it, else its first row. A list of no
/// rows says nothing.
void Match(std::string& text, const std::vector<std::string>& rows) {
    if (!rows.empty() && !Holds(rows, text)) {
        text = rows.front();
    }
}

void ShowActuatorText(std::size_t axis) {
    ParaFields.txtActuator[axis] =
        BuildActuator({ParaFields.comboActSize[axis], Trim(ParaFields.comboActSpeed[axis]),
                       StrokeNumber(ParaFields.comboActStroke[axis])});
}

void FollowSpeed(std::size_t axis) {
    FollowActuator(axis);
    Match(ParaFields.comboActStroke[axis], ParaActuatorRows[axis].strokes);
    ShowActuatorText(axis);
}

void FollowSize(std::size_t axis) {
    const std::string& size = ParaFields.comboActSize[axis];
    std::string& speed = ParaFields.comboActSpeed[axis];
    if (size == " 33" || size == "J52") {
        speed = "L";
    } else {
        FollowActuator(axis);
        Match(speed, ParaActuatorRows[axis].speeds);
    }
    FollowSpeed(axis);
}

/// A list takes a text, and what hangs on it follows.
void Choose(ParaControl list, std::size_t axis, const std::string& text,
            void (*follow)(std::size_t axis)) {
    if (ParaText(list, axis) == text) {
        return;
    }
    ParaText(list, axis) = text;
    follow(axis);
    for (const ParaControl part :
         {ParaControl::comboActSize, ParaControl::comboActSpeed, ParaControl::comboActStroke}) {
        SetParaMark(part, axis, ParaMark::None);
    }
    Edited(list, axis);
}

/// Every field, along the axes of an item, in the order of the items.
std::vector<ParaPlace> Places() {
    std::vector<ParaPlace> places;
    for (const ParaControlRow& row : ParaControls()) {
        for (std::size_t axis = 0; axis < (row.perAxis() ? kAxes : 1); ++axis) {
            places.push_back({row.control, axis});
        }
    }
    return places;
}

} // namespace

bool ParaKeyTaken(ParaControl control, char key) {
    return key >= (control == ParaControl::txtHomeOrder ? '1' : '0') && key <= '9';
}

void EditParaText(ParaControl control, std::size_t axis, const std::string& text) {
    if (ParaText(control, axis) != text) {
        ParaText(control, axis) = text;
        Edited(control, axis);
    }
}

void ChooseParaRow(ParaControl control, std::size_t axis, int row) {
    if (ParaSelected(control, axis) != row) {
        ParaSelected(control, axis) = row;
        Edited(control, axis);
    }
}

void LeaveParaField(ParaControl control, std::size_t axis) {
    const auto& range = RowOf(control).leaving;
    const std::string& text = ParaText(control, axis);
    if (!range || text.empty()) {
        return;
    }
    const double number = NumberFromText(text);
    if (number < range->low || number > range->high) {
        EditParaText(control, axis, {});
        ThePlatform().Beep();
    }
}

std::optional<ParaPlace> NextParaField(ParaPlace from) {
    const bool listsToo = !RowOf(from.control).isText();
    std::vector<ParaPlace> places = Places();
    const auto here = std::find(places.begin(), places.end(), from);
    if (here != places.end()) {
        std::rotate(places.begin(), here + 1, places.end());
    }
    const auto next = std::find_if(places.begin(), places.end(), [=](const ParaPlace& place) {
        const ParaControlRow& row = RowOf(place.control);
        return (row.isText() || (listsToo && row.kind != ParaKind::Shown)) &&
               !ParaFieldGrey(place.control, place.axis);
    });
    return next == places.end() ? std::nullopt : std::optional(*next);
}

void ChooseActSize(std::size_t axis, const std::string& text) {
    Choose(ParaControl::comboActSize, axis, SizeCodeOf(text), FollowSize);
}

void ChooseActSpeed(std::size_t axis, const std::string& text) {
    Choose(ParaControl::comboActSpeed, axis, SpeedLetterOf(text), FollowSpeed);
}

void ChooseActStroke(std::size_t axis, const std::string& text) {
    Choose(ParaControl::comboActStroke, axis, Trim(text), ShowActuatorText);
}

void TickTokuParaChange(bool ticked) {
    if (ticked && !CommandsTaken()) {
        const PollHeld held; // nothing begins on the line under the question
        ticked = AskBox({TextLines({671, 672}), BoxButtons::YesNo, {}, BoxIcon::Exclamation}) ==
                 BoxAnswer::Yes;
    } else {
        ticked = ticked && ParaFields.chkTokuParaChange;
    }
    ParaFields.chkTokuParaChange = ticked;
    ParaStates.specialCommon = ticked;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        ParaStates.special[axis] = ticked && !IsSet(AxisOff[axis]);
    }
    TellParameta2();
}

} // namespace qdw8

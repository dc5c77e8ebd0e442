#include "para_words.h"

#include "parameter/para_edit.h"
#include "parameter/para_fields.h"
#include "parameter/para_marks.h"
#include "parameter/stroke_calculator.h"
#include "setup/para_window_commands.h"

namespace qdw8::test {
namespace {

ParaPlace Place(Args& args) {
    const ParaControl control = ParaControlNamed(Word(args)).value();
    return {control, static_cast<std::size_t>(Number(args) - 1)};
}

std::string NameOf(const ParaPlace& place) {
    return std::string(RowOf(place.control).name) + " " + std::to_string(place.axis + 1);
}

bool IsByNumber(const ParaPlace& place) {
    return RowOf(place.control).kind == ParaKind::List;
}

void Put(Args& args) {
    const ParaPlace place = Place(args);
    if (IsByNumber(place)) {
        ParaSelected(place.control, place.axis) = Number(args);
    } else {
        ParaText(place.control, place.axis) = Rest(args);
    }
}

void Edit(Args& args) {
    const auto [control, axis] = Place(args);
    const std::string text = Rest(args);
    switch (control) {
    case ParaControl::comboActSize: ChooseActSize(axis, text); break;
    case ParaControl::comboActSpeed: ChooseActSpeed(axis, text); break;
    case ParaControl::comboActStroke: ChooseActStroke(axis, text); break;
    default:
        if (IsByNumber({control, axis})) {
            ChooseParaRow(control, axis, std::stoi(text));
        } else {
            EditParaText(control, axis, text);
        }
    }
}

std::string Text(const ParaPlace& place) {
    return IsByNumber(place) ? std::to_string(ParaSelected(place.control, place.axis))
                             : ParaText(place.control, place.axis);
}

/// Where Enter leads from a field until it comes back to it, or never does.
std::string Walk(const ParaPlace& from) {
    std::string walk;
    std::string control;
    auto place = std::optional(from);
    do {
        place = NextParaField(*place);
        const std::string name = place ? NameOf(*place) : "nowhere";
        const std::string own = name.substr(0, name.find(' '));
        walk += own == control ? name.substr(name.find(' ')) : "; " + name;
        control = own;
    } while (place && *place != from && walk.size() < 1000);
    return walk;
}

std::string Actuator(std::size_t axis) {
    std::string text;
    for (const auto* list : {&ParaActuatorRows[axis].sizes, &ParaActuatorRows[axis].speeds,
                             &ParaActuatorRows[axis].strokes}) {
        for (const std::string& row : *list) {
            text += row + ",";
        }
        text += "|";
    }
    return text + ParaFields.txtActuator[axis];
}

/// Stroke, lead and kind of the actuator ("-" an empty field), the axis that takes the result: what
/// stands there, and where the focus goes.
std::string Calculated(Args& args) {
    StrokeForm form = LoadStrokeCalculator();
    for (std::string* const field : {&form.txtStrokeTyo, &form.txtRido}) {
        *field = Word(args);
        *field = *field == "-" ? "" : *field;
    }
    form.optActType = static_cast<std::size_t>(Number(args));
    form.optInputSaki = static_cast<std::size_t>(Number(args) - 1);
    cmdCulStrokePulse_Click(form);
    const auto next = cmdInputStroke_Click(form);
    return form.lblStrokePulse + (next ? " " + NameOf(*next) : "");
}

/// What is left of a stroke and a lead on leaving their fields.
std::string Left(Args& args) {
    StrokeForm form;
    args >> form.txtStrokeTyo >> form.txtRido;
    LeaveStrokeField(form, StrokeField::txtStrokeTyo);
    LeaveStrokeField(form, StrokeField::txtRido);
    return form.txtStrokeTyo + "," + form.txtRido;
}

} // namespace

StoryWords ParaWords() {
    return {{"field", Put}, {"edit", Edit}};
}

StoryValues ParaValues() {
    return {{"field", [](Args& a) { return Text(Place(a)); }},
            {"walk", [](Args& a) { return Walk(Place(a)); }},
            {"actuator-lists", [](Args& a) { return Actuator(Place(a).axis); }},
            {"edited", [](Args&) { return IsSet(ParaEditedFlag) ? "yes" : "no"; }},
            {"named", [](Args&) { return ParaName; }},
            {"mark",
             [](Args& a) {
                 const auto [control, axis] = Place(a);
                 return ParaFieldTip(control, axis);
             }},
            {"grey",
             [](Args& a) {
                 const auto [control, axis] = Place(a);
                 return ParaFieldGrey(control, axis) ? "yes" : "no";
             }},
            {"editable",
             [](Args& a) {
                 const auto [control, axis] = Place(a);
                 return ParaFieldEnabled(control, axis) ? "yes" : "no";
             }},
            {"buttons",
             [](Args&) {
                 std::string names;
                 for (const ParaCommandRow& command : ParaCommands()) {
                     names += ParaCommandEnabled(command) ? std::string(command.name) + " " : "";
                 }
                 return names;
             }},
            {"calculated", Calculated},
            {"left", Left}};
}

} // namespace qdw8::test

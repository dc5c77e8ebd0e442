#include "parameter/stroke_calculator.h"

#include "app/number_forms.h"
#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "parameter/para_edit.h"
#include "platform/fault.h"
#include "platform/platform.h"

#include <algorithm>
#include <cstdint>

namespace qdw8 {
namespace {

/// Where the user goes on after the axis' result was entered: habits that came with the window.
constexpr std::array<ParaPlace, kAxes> kNext{{{ParaControl::txtAxisStroke, 1},
                                              {ParaControl::txtAxisLead, 2},
                                              {ParaControl::txtAxisStroke, 3},
                                              {ParaControl::txtAxisLead, 0}}};

bool IsDigits(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

bool IsListedLead(double lead) {
    return lead == 2 || lead == 6 || lead == 8;
}

std::string Pulses(const StrokeForm& form) {
    const std::int16_t stroke = ToInt16(NumberFromText(form.txtStrokeTyo));
    const std::int16_t lead = ToInt16(NumberFromText(form.txtRido));
    // Neither word comes for a figure that is merely odd: a stroke that is empty and above 150 and
    // below 0 at once there never was, and a lead that is filled passes whatever it is.
    if (form.txtRido.empty() && !IsListedLead(lead)) {
        return ResText(1315);
    }
    const std::int16_t ppr = form.optActType == 0 ? 400 : 192;
    return PlainDecimal(MaxPulseOf(stroke, lead, ppr));
}

} // namespace

StrokeForm LoadStrokeCalculator() {
    StrokeForm form;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        form.axisThere[axis] = !ParaFieldGrey(ParaControl::txtAxisStroke, axis);
    }
    const auto first = std::find(form.axisThere.begin(), form.axisThere.end(), true);
    if (first != form.axisThere.end()) {
        form.optInputSaki = static_cast<std::size_t>(first - form.axisThere.begin());
    }
    return form;
}

void LeaveStrokeField(StrokeForm& form, StrokeField field) {
    const bool isStroke = field == StrokeField::txtStrokeTyo;
    std::string& text = isStroke ? form.txtStrokeTyo : form.txtRido;
    const double number = NumberFromText(text);
    const bool good = isStroke ? number >= 0 && number <= 500 : IsListedLead(number);
    if (!text.empty() && !good) {
        text.clear();
        ThePlatform().Beep();
    }
}

void cmdCulStrokePulse_Click(StrokeForm& form) {
    try {
        form.lblStrokePulse = Pulses(form);
    } catch (const Fault&) {
        // No result, such as for a stroke of no pulse: what stands there stays, without a word.
    }
}

std::optional<ParaPlace> cmdInputStroke_Click(const StrokeForm& form) {
    const std::size_t axis = form.optInputSaki;
    if (!IsDigits(form.lblStrokePulse) || ParaFieldGrey(ParaControl::txtAxisStroke, axis)) {
        return {};
    }
    EditParaText(ParaControl::txtAxisStroke, axis, form.lblStrokePulse);
    const ParaPlace next = kNext.at(axis);
    return ParaFieldGrey(next.control, next.axis) ? NextParaField(next) : next;
}

} // namespace qdw8

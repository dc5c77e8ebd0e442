#include "parameter/para_field_check.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "parameter/para_check.h"
#include "parameter/para_fields.h"
#include "parameter/para_marks.h"

#include <string>

namespace qdw8 {
namespace {

template<typename Judge> void EachFieldInUse(Judge judge) {
    for (const ParaControlRow& row : ParaControls()) {
        for (std::size_t axis = 0; axis < (row.perAxis() ? kAxes : 1); ++axis) {
            if (!row.perAxis() || !IsSet(AxisOff[axis])) {
                judge(row, axis);
            }
        }
    }
}

void MarkEmpty() {
    EachFieldInUse([](const ParaControlRow& row, std::size_t axis) {
        if (row.isText() && ParaText(row.control, axis).empty()) {
            SetParaMark(row.control, axis, ParaMark::Empty);
        }
    });
}

bool ActuatorPartGood(ParaControl list, const std::string& text) {
    switch (list) {
    case ParaControl::comboActSize: return SizeCodeGood(text);
    case ParaControl::comboActSpeed: return SpeedLetterGood(Trim(text));
    default: return DeviceStrokeGood(NumberFromText(text));
    }
}

/// A number too wide for its item is out of range too, so the texts are asked and not `ParaSet`.
void MarkOutOfRange() {
    EachFieldInUse([](const ParaControlRow& row, std::size_t axis) {
        if (row.isText()) {
            const ParaItem& item = ItemOfRow(row.row);
            const double number = NumberFromText(ParaText(row.control, axis));
            if (number < item.low || number > item.high) {
                SetParaMark(row.control, axis, ParaMark::OutOfRange);
            }
        } else if (row.kind == ParaKind::ActuatorList &&
                   !ActuatorPartGood(row.control, ParaText(row.control, axis))) {
            SetParaMark(row.control, axis, ParaMark::NoActuator);
        }
    });
}

void FollowAxes() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (ParaStates.axis[axis] == IsSet(AxisOff[axis])) {
            YukoJikuHyojiSettei();
            return;
        }
    }
}

/// Edits of parameters that the program works with no more, another actuator's perhaps, aren't
/// taken without a word.
bool EditsStillMeant() {
    return !IsSet(ParaEditedFlag) || !ParaSetHasMovedOn() ||
           AskBox({TextLines({3058, 3059}), BoxButtons::OkCancel, {}, BoxIcon::Exclamation}) ==
               BoxAnswer::Ok;
}

} // namespace

bool TakeParaFields(std::int16_t invalidId, std::int16_t adviceId) {
    if (!EditsStillMeant()) {
        return false;
    }
    FollowAxes();
    ClearParaMarks();
    const bool filled = ParaFieldsFilled();
    const bool good = filled && TorikomiParametaValue() == 0 && ParametaValueCheck() == 0;
    if (!filled) {
        MarkEmpty();
    } else if (!good) {
        MarkOutOfRange();
    }
    if (good) {
        ParaLoadedFlag = kSet;
    }
    TellParameta2();
    if (!filled) {
        ShowTexts({7, 8});
    } else if (!good) {
        ShowTexts({invalidId, adviceId});
    }
    return good;
}

} // namespace qdw8

#include "parameter/para_fields.h"

#include "app/number_forms.h"
#include "app/screens.h"
#include "device/axis_device.h"
#include "device/device_list.h"
#include "device/device_lists.h"
#include "parameter/para_marks.h"
#include "platform/fault.h"

#include <algorithm>
#include <string>
#include <utility>

namespace qdw8 {

Flag ParaEditedFlag;

namespace {

/// `ParaSet` as the fields showed it or gave it last, and as it was before the edits.
struct Image {
    ParameterSet shown;
    ParameterSet kept;
    Flag keptLoaded = kClear;
    std::string name;
};
Image image;

/// The value hidden behind the selected row, 0 for a row that doesn't count.
double SelectedValue(const ParaControlRow& list, int selected) {
    const auto rows = ParaListRows(list.row);
    const bool valid = selected >= 0 && selected <= list.lastRow &&
                       static_cast<std::size_t>(selected) < rows.size();
    return valid ? rows[static_cast<std::size_t>(selected)].value : 0;
}

int RowOfValue(const ParaControlRow& list, double value) {
    const auto rows = ParaListRows(list.row);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double held = list.find == ParaFind::ByValue ? rows[i].value : static_cast<double>(i);
        if (held == value) {
            return static_cast<int>(i);
        }
    }
    return kNoRow;
}

/// A number that was typed: whole, whatever the item could hold.
double FieldNumber(const std::string& text) {
    return ToInt32(NumberFromText(text));
}

void TakeField(ParameterSet& set, const ParaControlRow& row, std::size_t axis) {
    if (row.isText()) {
        SetParaValue(set, ItemOfRow(row.row), axis, FieldNumber(ParaText(row.control, axis)));
    } else if (row.kind == ParaKind::List) {
        SetParaValue(set, ItemOfRow(row.row), axis,
                     SelectedValue(row, ParaSelected(row.control, axis)));
    }
}

void ShowField(const ParaControlRow& row, std::size_t axis) {
    if (row.isText()) {
        ParaText(row.control, axis) = PlainDecimal(ParaValue(ParaSet, ItemOfRow(row.row), axis));
    } else if (row.kind == ParaKind::List) {
        ParaSelected(row.control, axis) =
            RowOfValue(row, ParaValue(ParaSet, ItemOfRow(row.row), axis));
    }
}

void TakeActuator(ParameterSet& set, std::size_t axis) {
    ActuatorParts& parts = set.parts[axis];
    parts.size = ParaFields.comboActSize[axis];
    parts.speed = Trim(ParaFields.comboActSpeed[axis]);
    parts.stroke = ToInt16(NumberFromText(ParaFields.comboActStroke[axis]));
    set.Actuator[axis] = BuildActuator(parts);
}

void ShowActuator(std::size_t axis) {
    const ActuatorParts& parts = ParaSet.parts[axis];
    ParaFields.comboActSize[axis] = parts.size;
    ParaFields.comboActSpeed[axis] = parts.speed;
    ParaFields.comboActStroke[axis] = std::to_string(parts.stroke);
    ParaFields.txtActuator[axis] = ParaSet.Actuator[axis];
    FollowActuator(axis);
}

void TakeAxis(ParameterSet& set, std::size_t axis) {
    for (const ParaControlRow& row : ParaControls()) {
        if (row.perAxis()) {
            TakeField(set, row, axis);
        }
    }
    TakeActuator(set, axis);
}

void ShowAxis(std::size_t axis) {
    for (const ParaControlRow& row : ParaControls()) {
        if (row.perAxis()) {
            ShowField(row, axis);
        }
    }
    ShowActuator(axis);
}

/// The lists that are selected by number have no free text; they keep their row.
void EmptyAxis(std::size_t axis) {
    for (const ParaControlRow& row : ParaControls()) {
        const bool left = row.special && !ParaFields.chkTokuParaChange;
        if (row.perAxis() && row.kind != ParaKind::List && !left) {
            ParaText(row.control, axis).clear();
        }
    }
    ClearParaMarks(axis);
}

bool Filled(const ParaControlRow& row) {
    for (std::size_t axis = 0; axis < (row.perAxis() ? kAxes : 1); ++axis) {
        if ((!row.perAxis() || !IsSet(AxisOff[axis])) && ParaText(row.control, axis).empty()) {
            return false;
        }
    }
    return true;
}

} // namespace

std::string& ParaName = image.name;

bool ParaFieldsFilled() {
    const auto rows = ParaControls();
    return std::all_of(rows.begin(), rows.end(),
                       [](const ParaControlRow& row) { return !row.isText() || Filled(row); });
}

std::int16_t TorikomiParametaValue() {
    try {
        ParameterSet set = ParaSet;
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            if (!IsSet(AxisOff[axis])) {
                TakeAxis(set, axis);
            }
        }
        for (const ParaControlRow& row : ParaControls()) {
            if (!row.perAxis()) {
                TakeField(set, row, 0);
            }
        }
        ParaSet = std::move(set);
    } catch (const Fault&) {
        return 1;
    }
    image.shown = ParaSet;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis])) {
            DevSettei[axis].DevSize = ParaSet.parts[axis].size;
            DevSettei[axis].DevSpeed = ParaSet.parts[axis].speed;
        }
    }
    return 0;
}

void ParametaHyoji() {
    YukoJikuHyojiSettei();
    ClearParaMarks();
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis])) {
            ShowAxis(axis);
        }
    }
    for (const ParaControlRow& row : ParaControls()) {
        if (!row.perAxis()) {
            ShowField(row, 0);
        }
    }
    image.shown = ParaSet;
    if (!IsSet(ParaEditedFlag)) {
        CountParaAsKept();
    }
    TellParameta2();
}

void ShowNoParameters() {
    YukoJikuHyojiSettei();
    image.shown = ParaSet;
    CountParaAsKept();
}

void ShowAgreedMask() {
    ParaFields.txtOneAxis = std::to_string(AxisMaskOf(AxisOff));
    image.shown.AXIS = image.kept.AXIS = ParaSet.AXIS;
    YukoJikuHyojiSettei();
}

bool ParaSetHasMovedOn() {
    ParameterSet shown = image.shown;
    shown.ACC_DCC = ParaSet.ACC_DCC; // no field shows it, and a write fetches it
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (IsSet(AxisOff[axis])) {
            // A file's text is built for every axis, whether the file is written or not.
            shown.Actuator[axis] = ParaSet.Actuator[axis];
        }
    }
    return shown != ParaSet;
}

bool AxesHaveMovedOn() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (ParaStates.axis[axis] == IsSet(AxisOff[axis])) {
            return true;
        }
    }
    return false;
}

void CountParaAsKept() {
    ParaEditedFlag = kClear;
    image.kept = ParaSet;
    image.keptLoaded = ParaLoadedFlag;
}

void GiveUpParaEdits() {
    if (IsSet(ParaEditedFlag) && !ParaSetHasMovedOn()) {
        ParaSet = image.kept;
        ParaLoadedFlag = image.keptLoaded;
    }
    ParaEditedFlag = kClear;
}

void ResetParaFields() {
    ParaFields = ParaFieldTexts{};
    ParaStates = {};
    ParaActuatorRows.fill({});
    ParaEditedFlag = kClear;
    image = {};
}

void YukoJikuHyojiSettei() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const bool inUse = !IsSet(AxisOff[axis]);
        ParaStates.axis[axis] = inUse;
        if (ParaFields.chkTokuParaChange) {
            ParaStates.special[axis] = inUse;
        }
        if (!inUse) {
            EmptyAxis(axis);
        }
    }
    TellParameta2();
}

void FollowActuator(std::size_t axis) {
    ActuatorRows& rows = ParaActuatorRows[axis];
    const std::string& size = ParaFields.comboActSize[axis];
    rows.sizes = DeviceListTables[axis].sizes;
    rows.speeds = FilterSpeedsForSize(axis, size);
    rows.strokes = FilterStrokes(axis, size, ParaFields.comboActSpeed[axis]);
}

void TellParameta2() {
    if (Screens().frmParameta2) {
        Screens().frmParameta2();
    }
}

} // namespace qdw8

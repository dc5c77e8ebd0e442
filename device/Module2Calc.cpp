#include "device/Module2Calc.h"

#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "device/axis_device.h"
#include "platform/fault.h"

#include <cmath>

namespace qdw8 {
namespace {

/// A quotient of doubles; a divisor of 0 is a fault and not an infinity that goes on its way.
double Divide(double dividend, double divisor) {
    if (divisor == 0) {
        throw Fault("division by zero");
    }
    return dividend / divisor;
}

/// The fixed-point form with four decimals.
double FourDecimals(double value) {
    return RoundHalfEven(value * 10000) / 10000;
}

/// The single-precision figure behind three decimals, as the scale shows it.
std::string ScaleText(double figure) {
    const auto single = static_cast<float>(figure);
    const double shown = NumberFromText(PlainDecimalSingle(single));
    return PlainDecimalSingle(static_cast<float>(NumberFromText(FixedDecimals(shown, 3))));
}

} // namespace

double PulseToMm(std::int16_t lead, std::int16_t ppr, double value) {
    const double unit = Divide(lead, ppr);
    return value * unit;
}

double MmToPulse(std::int16_t lead, std::int16_t ppr, double value) {
    return RoundHalfEven(Divide(value, lead) * ppr);
}

double SnapMmToPulse(std::int16_t lead, std::int16_t roundUp, std::int16_t ppr, double value) {
    const double unit = Divide(lead, ppr);
    const double q = Divide(value, unit);
    const double fraction = FourDecimals(q - std::trunc(q));
    double n = 0;
    if (fraction == 0) {
        n = q;
    } else if (roundUp == 0) {
        n = std::trunc(fraction <= 0.5 ? q : q + 0.5);
    } else if (roundUp == 1) {
        n = std::trunc(fraction < 0.5 ? q : q + 0.5);
    }
    return ToInt32(n) * unit;
}

double MaxPulseOf(std::int16_t stroke, std::int16_t lead, std::int16_t ppr) {
    const double p = Divide(stroke, lead) * ppr;
    const double shown = NumberFromText(FixedDecimals(p, 1));
    if (shown == 0) {
        // The form that drops every zero leaves no digit of a zero, and so no number to read.
        throw Fault("a stroke of no pulse");
    }
    return std::trunc(shown + 0.9);
}

void Culc_MaxPulse() {
    for (std::size_t axis = 0; axis < DevSetting.size(); ++axis) {
        AxisDevice& device = DevSetting[axis];
        device.MaxPulse =
            IsSet(AxisOff[axis])
                ? 0
                : ToInt32(MaxPulseOf(device.DevStroke, device.DevLead, device.DevPPR));
    }
}

void CalcMaxStrokeMm() {
    for (std::size_t axis = 0; axis < DevSetting.size(); ++axis) {
        AxisDevice& device = DevSetting[axis];
        if (!IsSet(AxisOff[axis])) {
            const double mm = PulseToMm(device.DevLead, device.DevPPR, device.MaxPulse);
            device.MaxStrokeMm = FourDecimals(std::trunc(mm * 1000) / 1000);
        }
    }
}

void ShowUnitScale() {
    for (std::size_t axis = 0; axis < AxisOff.size(); ++axis) {
        if (!IsSet(AxisOff[axis])) {
            ShowUnitScaleOfAxis(static_cast<int>(axis));
            return;
        }
    }
}

void ShowUnitScaleOfAxis(int axis) {
    if (axis < 0 || axis >= kAxes || IsSet(AxisOff[static_cast<std::size_t>(axis)])) {
        return;
    }
    const AxisDevice& device = DevSetting[static_cast<std::size_t>(axis)];
    try {
        const double pulsesPerMm = Divide(1, device.DevLead) * device.DevPPR;
        const double mmPerPulse = Divide(1, device.DevPPR) * device.DevLead;
        const std::string mark = "<" + std::to_string(axis + 1) + ">1";
        const std::string pulse = ResText(6);
        SetPanelScale(mark + "mm = " + ScaleText(pulsesPerMm) + pulse,
                      mark + pulse + "= " + ScaleText(mmPerPulse) + "mm");
    } catch (const Fault&) {
        // An axis without a device has no scale: what stands there stays.
    }
}

void Change_DispUnit() {
    const std::string unit = ResText(IsSet(DispMmFlag) ? 230 : 229);
    for (std::size_t axis = 0; axis < AxisOff.size(); ++axis) {
        SetPanelText(&MainPanel::posiHeader, axis, ResText(228) + std::to_string(axis + 1) + unit);
    }
}

} // namespace qdw8

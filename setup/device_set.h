#pragma once

#include "setup/device_form.h"

#include <cstdint>
#include <string>

/// The ways out of the device windows.
namespace qdw8 {

/// `cmdDeviceSet` of `frmDevice2`: the models and options of the axes in use into `DevSettei`, the
/// families into `FamilyText`. Boxes of axes that were changed become `AxisOff` if the user says
/// so; else the axes in use stay as they were. Nothing of an axis out of use is touched.
void cmdDeviceSet2_Click(const DeviceForm& form);
/// `cmdDeviceSet` of `frmDevice3`: the same without the axes; every family becomes "QD".
void cmdDeviceSet3_Click(const DeviceForm& form);

/// `cmdDeviceCancel` and closing. False: the window must stay. True: what the edits changed outside
/// the form is as it was before; `frmDevice2` leaves `DeviceCancelled` set for its caller.
bool CancelDevice2(const DeviceForm& form);
bool CancelDevice3(const DeviceForm& form);

/// After `frmDevice3` has gone, whichever way: the axis mask chosen in it counts no longer.
void Device3Closed();

/// The axes' models and options into `DevSettei`, of each axis in use, with the family flag.
void TakeFormDevices(const DeviceForm& form);

/// True for the sizes that are of the new type whatever the box of the old type says.
bool CountsAsNewOnly(const std::string& size);
/// The stroke that a text means in mm; 0 if it means none.
std::int16_t StrokeNumber(const std::string& text);

} // namespace qdw8

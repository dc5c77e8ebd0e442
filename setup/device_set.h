#pragma once

#include "setup/device_form.h"

/// The ways out of the device windows.
namespace qdw8 {

/// `cmdDeviceSet` of `frmDevice2`: the models and options of the axes in use into `DevSettei`, the
/// families into `FamilyText`. Boxes of axes that were changed become `AxisOff` if the user says
/// so; else the axes in use stay as they were. Nothing of an axis out of use is touched.
void cmdDeviceSet2_Click(const DeviceForm& form);
/// `cmdDeviceSet` of `frmDevice3`: the same without the axes; every family becomes "QD".
void cmdDeviceSet3_Click(const DeviceForm& form);

/// `cmdDeviceCancel` and closing. False: the window must stay. At start-up `frmDevice2` has no
/// cancel; closing it asks for the end of the program, which `ProgramEndFlag` then tells. True:
/// what the edits changed outside the form is as it was before; `frmDevice2` leaves
/// `DeviceCancelled` set for its caller.
bool CancelDevice2(const DeviceForm& form);
bool CancelDevice3(const DeviceForm& form);

/// After `frmDevice3` has gone, whichever way: the axis mask chosen in it counts no longer.
void Device3Closed();

/// The axes' models and options into `DevSettei`, of each axis in use, with the family flag.
void TakeFormDevices(const DeviceForm& form);

} // namespace qdw8

#pragma once

/// The parameter window comes and goes.
namespace qdw8 {

/// The window is loaded: actuator lists out of the device list (one that can't be read was told by
/// a box, and the lists are empty), the lock closed, no marks, no edits. Once parameters were
/// loaded the fields show `ParaSet`, before that they are empty.
void LoadParameta2();

/// A command has ended, whichever it was. The fields follow `ParaSet` where it was loaded by way of
/// the devices, unless they hold edits. While commands are taken nothing happens.
void FollowParaSet();

/// The window is to be closed. Edits that are neither in a file nor in the controller can be saved
/// first. False: it stays open, because the user wants so, the saving didn't come about, or a
/// command runs.
bool ParaMayClose();

} // namespace qdw8

#pragma once

/// What the teaching window does where the moving of the axes (teaching.h) and the chart
/// (teach_chart.h) meet.
namespace qdw8 {

/// The present position goes into the chosen row of the chart. Nothing while no reading stands or
/// an axis may be on its way (`TheTeachingForm().cmdJOGWrite`).
void cmdJOGWrite_Click();

/// The window is to close. A stop that is due goes out first; one that is not confirmed, then the
/// positions in the chart, are asked about. The window goes (`JogOpen`) unless the user says
/// Cancel; teaching then goes on as it was. Out of the wait of an exchange all this happens behind
/// it.
void cmdJogExit_Click();

/// The main window is asked to close, and with it the program: while the teaching window is open it
/// comes to the front instead. True: it is not open.
bool TeachingAllowsEnd();

} // namespace qdw8

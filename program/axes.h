#pragma once

namespace qdw8 {

/// After the axes in use changed by what the controller says: an axis that came into use and of
/// which nothing is known brings its actuator along from the controller, or goes out of use again;
/// then the axis texts, colours and scale are painted anew. The port must be open.
void TakeOverAxes();

/// Takes the axes out of use for which nothing gives a lead: they could convert nothing.
void TakeOutAxesWithoutLead();

} // namespace qdw8

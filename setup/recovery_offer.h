#pragma once

namespace qdw8 {

/// The end of start-up: offers each table that a run left with unsaved changes
/// (position/recovery.h) until the user takes one back, and keeps from then on what is unsaved.
///
/// A table that is taken back stands in the grid as its user saw it, in its unit, and counts as
/// unsaved; other axes or devices than those in force, and in mm other leads, are put to the user
/// as for a position file, and Cancel leads back to the offer. The cells are checked, and a cell
/// that was being edited is so again. The document has its file only if nobody has changed that
/// since. What the grid can't show of it stays in its place until what stands there is saved or
/// given up.
///
/// What can't be read is set aside, and so is what two starts came to no end with; a box names the
/// file. What a newer version has kept stays for it.
void OfferRecovery();

} // namespace qdw8

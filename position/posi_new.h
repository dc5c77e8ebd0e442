#pragma once

/// The commands that begin and end a document.
namespace qdw8 {

/// `mnuFileNew`: a table of fresh rows in place of the present one. Unsaved changes can be saved
/// first; if that is cancelled or fails, nothing happens but a box that says so.
void mnuFileNew_Click();

/// `mnuFileClose`: unsaved changes can be saved first; then the main window is asked to close.
void mnuFileClose_Click();

} // namespace qdw8

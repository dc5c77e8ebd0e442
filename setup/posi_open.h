#pragma once

/// The command that opens a position file.
namespace qdw8 {

/// `mnuFileOpen`, `cmdPosiFileOpen` and their kin. Unsaved changes are not asked about. A file that
/// was made for other axes or actuators is put to the user: opened with the present ones, with the
/// file's own and their factory parameters, or with those of a parameter file.
///
/// Where the file doesn't come to be shown (cancelled, unreadable, a bad device name, no row that
/// could be shown) grid, table and range variables are as they were.
void OpenPosiFile();

} // namespace qdw8

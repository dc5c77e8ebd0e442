#pragma once

#include "platform/common_dialog.h"

#include <QStringList>

namespace qdw8 {

/// The entries of a filter "A(*.qdd)|*.qdd|All Files(*.*)|*.*" as a Qt file dialog takes them:
/// one text for each, that ends with the patterns in brackets. "*.*" means every file, with a
/// point in its name or without.
QStringList NameFilters(const std::string& filter);

/// Shows the file dialog of `CommonDialog`.
std::optional<FileAnswer> ShowFileDialog(const FileQuestion& question);

} // namespace qdw8

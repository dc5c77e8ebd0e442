#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

/// What the program has to show and to save, worked out from the simulator's own data.
namespace e2e {

enum class Unit { Pulses, Mm };

/// A row of the grid: position number, then the 20 columns.
using GridRow = QStringList;

/// The rows of the positions `first` to `last`.
QVector<GridRow> expectedRows(int first, int last, Unit unit);

/// The texts of the four axes' devices.
QStringList expectedDevices();

/// A position file of these positions, byte for byte.
QByteArray expectedFile(int first, int last);

} // namespace e2e

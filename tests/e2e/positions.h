#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

/// What the program has to show and to save of the positions that the simulator comes with. They
/// stand in stories/controller.qdd.
namespace e2e {

/// A row of the grid: position number, then the 20 columns.
QVector<QStringList> PositionRows(int first, int last, bool mm);

/// A position file of these positions, byte for byte.
QByteArray PositionFile(int first, int last);

/// What a file holds. Fails if it can't be read.
QByteArray ContentOf(const QString& name);

} // namespace e2e

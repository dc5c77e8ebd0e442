#pragma once

#include "hands.h"

#include <QMessageBox>
#include <QString>
#include <QTableView>
#include <QWidget>

/// What is on the screen, as the user's words look for it. Everything here runs on the program's
/// thread. A spot that can't be clicked now has no widget.
namespace e2e {

/// The first visible control of the name; the first one that is also enabled and not behind a modal
/// window. Null if there is none.
QWidget* seen(const QString& name);
QWidget* ready(const QString& name);
QMessageBox* boxOnTop();
QTableView* table(const QString& name);

/// Where to press a control: a round or square mark has its place at the left.
Spot spotOn(QWidget* widget);
/// The entry of a menu that is open; the bar counts as one.
Spot spotOfEntry(const QString& menuName, const QString& name);
/// Of the grid, counted from 0: a cell, and the number of a line in front of it.
Spot spotOfCell(int row, int column);
Spot spotOfLine(int row);

QString readText(const QWidget* widget);

} // namespace e2e

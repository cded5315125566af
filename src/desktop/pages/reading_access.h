// What readers of the screen are told of a view of readings: the list as a table, the strip as a text.
#pragma once

#include <QPoint>

namespace counter {

class ReadingGrid;

// From now on. Asking again changes nothing.
void ServeReadersOfScreens();

// The list has another number of rows; the keyboard is at another cell (column, row).
void TellRowsChanged(ReadingGrid& grid);
void TellCursor(ReadingGrid& grid, const QPoint& cell);

}  // namespace counter

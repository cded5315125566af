// How a reading fits into a column: in how many lines, and in which font.
#pragma once

#include <QFont>
#include <string>
#include <string_view>
#include <vector>

namespace counter {

enum class ReadingLayout {
    Row,      // as the meter sends it
    Stacked,  // its values one below the other
    Apart,    // the same, and what stands behind a value, as the characters of alarms, in a line of its own
};

// Without blanks at their ends. They point into `reading`.
std::vector<std::string_view> ReadingLines(std::string_view reading, ReadingLayout layout);

struct ReadingFit {
    QFont Font;
    ReadingLayout Layout = ReadingLayout::Row;
    int Lines = 1;
    int Characters = 0;  // that a line has room for
};

// The first layout in which the whole reading fits and can be read. `room`: pixels between the margins of a
// cell. With `kept` the rows stay as they were made for it, and only the font changes.
ReadingFit FitReading(const std::string& reading, int room, const ReadingFit* kept = nullptr);

}  // namespace counter

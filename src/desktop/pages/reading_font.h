// The font in which a reading fits into its column.
#pragma once

#include <QFont>
#include <string>

namespace counter {

struct ReadingFit {
    QFont Font;
    int Lines = 1;       // 1, or as many as the reading has values, which then stand one below the other
    int Characters = 0;  // that a line has room for
};

// `room`: pixels between the margins of a cell. Values stand in a row as long as that can be read well; with
// `lines` given, as many as there are already.
ReadingFit FitReading(const std::string& reading, int room, int lines = 0);

}  // namespace counter

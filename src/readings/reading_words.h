// What the strip under a view of readings says, and who hears it instead of seeing it.
#pragma once

#include <string>

#include "readings/reading_view.h"

namespace counter {

// Numbers have the decimals of the meter; mean and deviation one more, since they lie between the values. An
// item without a value is "-".
struct ReadingWords {
    std::string State;    // "Running", "No reading for 12 s"
    std::string Rate;     // "20.0/s"; empty while nothing comes
    std::string Count;    // values of the item
    std::string Outside;  // "3 / 5" below and above the bars of a histogram; empty for other views
    std::string Current, Smallest, Largest, Mean, Deviation;
};

// Of the item that the view has chosen, now.
ReadingWords WordsOf(const ReadingView& view);

// All of them in one line, "Running, 20.0/s, current 1.50, min 1.00 ...".
std::string Sentence(const ReadingWords& words);

}  // namespace counter

// Help pairs: the files that the tool reads its help from, a pair for each hundred of help numbers.
//
//   "Help" n ".R10"   the index: 99 records of 6 bytes, record 1 first
//       bytes 0..3    position of the text in the text file from 1, little endian, signed
//       bytes 4..5    its length in characters, little endian, signed
//   "Help" n ".S10"   the texts, one byte a character, back to back
//
// n has two characters, a blank and the digit below 10. Help number 100 * n + r has record r; a record
// without a text says position 1, length 0.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tools/help/help_source.h"

namespace help_tool {

struct Pair {
    std::string Index;
    std::string Texts;
};

// By n. Adds a fault for a number that has a text already and for a text that a record's length can't say.
std::map<int, Pair> MakePairs(const std::vector<Entry>& entries, std::vector<Fault>& faults);

// "Help11", "Help 5": the name without its extension.
std::string PairName(int n);

}  // namespace help_tool

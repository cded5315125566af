// Help texts: read by number from the pairs of files that are data of the program.
//
// Help number 100 * n + r, 0 < r, has record r of "Help" n ".R10", where n is two characters, a blank and the
// digit below 10. A record is 6 bytes, little endian: four of the text's position in "Help" n ".S10", counted
// from 1, two of its length, both signed. A text is single bytes; "$" switches emphasis, CR LF ends a line.
#pragma once

#include <optional>
#include <string>

#include "platform/files.h"

namespace counter {

// The text as it stands in the file. Nothing where a file, the record or part of the text is missing and
// where the record says what can't be; a record of length 0 is an empty text.
std::optional<std::string> ReadHelpText(const FileReader& files, const std::string& folder, int helpId);

// The same with a blank for every "$", for a label that knows no emphasis.
std::optional<std::string> LoadHelpText(const FileReader& files, const std::string& folder, int helpId);

}  // namespace counter

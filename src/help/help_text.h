// Help texts: read by number from the pairs of files that are data of the program.
//
// Help number 100 * n + r, 0 < r, has record r of "Help" n ".R10", where n is two characters, a blank and the
// digit below 10. A record is 6 bytes, little endian: four of the text's position in "Help" n ".S10", counted
// from 1, two of its length, both signed. A text is single bytes; "$" switches emphasis, CR LF ends a line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace counter {

// The text as it is in the file. Nothing where a file, the record or part of the text is missing and
// where the record says what can't be; a record of length 0 is an empty text.
std::optional<std::string> ReadHelpText(const FileReader& files, const std::string& folder, int helpId);

// The text out of the first of the folders that has it.
std::optional<std::string> FirstHelpText(const FileReader& files, const std::vector<std::string>& folders,
                                         int helpId);

// The same with a blank for every "$", for a label that knows no emphasis.
std::optional<std::string> LoadHelpText(const FileReader& files, const std::string& folder, int helpId);

// A help text cut at its marks of emphasis.
struct HelpSegment {
    std::string Text;
    bool Emphasised = false;

    friend bool operator==(const HelpSegment&, const HelpSegment&) = default;
};

// What comes before the first "$" is plain, from there to the second emphasised, and so on in turn. What
// follows the last "$" is plain even where the turn would be the other's. Empty segments are left out.
std::vector<HelpSegment> HelpSegments(std::string_view text);

// The two long reference texts about batches, shown in a read-only box of fixed pitch. A text is beside the
// help files as "rate_batch.txt" or "vf_batch.txt": printable ASCII, one line an entry of the text's table,
// each ended by LF.
enum class BatchHelpKind {
    Rate = 1,
    VF = 2,
};

// How many entries the table of a text has; what a file holds beyond them isn't shown.
inline constexpr int kRateBatchEntries = 316;
inline constexpr int kVFBatchEntries = 302;

// The text as the box shows it: for each entry four blanks as left margin, the entry, CR LF. Read from the
// first of the folders that has the file; nothing where none has. A file that was cut off gives what is
// there.
std::optional<std::string> BatchHelpText(const FileReader& files, const std::vector<std::string>& folders,
                                         BatchHelpKind kind);

}  // namespace counter

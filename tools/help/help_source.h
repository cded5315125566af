// Help sources: the text files from which the help files are made, as people edit them.
//
//   # A comment, outside or inside an entry.
//   [1101 1102] Title of the entry
//   A paragraph over one or more lines; *these words* are emphasised, \* is an asterisk.
//
//   An empty line ends a paragraph.
//   - An item begins on a line of its own,
//     and goes on over as many lines as it likes.
//
//   [1103 +3118] Title of an entry after which the text of 3118 follows, its title included
//
//   [1375 plain] Title of an entry for a label that knows no emphasis
//
//   [1138 fixed] Title of a table
//   Lines that stay as they are, asterisks and all.
//
// The title is the first line of the text, emphasised unless the entry is plain or a table. Characters are
// printable ASCII; "$" is the mark of emphasis in the files made, so only a table may hold it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace help_tool {

// What is wrong with a source, and where.
struct Fault {
    std::string File;
    int Line = 0;  // from 1
    std::string Reason;

    // "FILE:LINE: REASON".
    std::string Text() const { return File + ":" + std::to_string(Line) + ": " + Reason; }
};

struct Entry {
    std::vector<int> Numbers;  // one text may serve several
    std::string File;
    int Line = 0;      // of the heading
    std::string Text;  // as it goes into the text file: CR LF ends lines, "$" switches emphasis
    int Follows = 0;   // the number whose text comes after this one; 0: none
};

// Appends the entries of one source and what is wrong with it.
void ReadHelpSource(const std::string& file, std::string_view content, std::vector<Entry>& entries,
                    std::vector<Fault>& faults);

}  // namespace help_tool

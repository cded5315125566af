// Batch help: the two long reference texts about batches, shown in a read-only box of fixed pitch.
//
// A text lies beside the help files as "rate_batch.txt" or "vf_batch.txt": printable ASCII, one line an entry
// of the text's table, each ended by LF.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace counter {

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

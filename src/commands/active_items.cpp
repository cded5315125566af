#include "commands/active_items.h"

#include <algorithm>
#include <utility>

namespace counter {

namespace {

// Characters of a value whose line has no further sign place: more than any line is long.
constexpr std::size_t kWholeRest = 100;

// Length of the value at the front of the line: up to the sign place of the next.
std::size_t ValueLength(std::string_view line) {
    const std::size_t next = line.find_first_of("- ", 1);
    return std::min({next, kWholeRest, line.size()});
}

void Put(ActiveItems& values, std::size_t number, std::string_view text) {
    if (number < values.size()) values[number] = text;
}

// Three values: Item 1 alone is active. Four: Item 1 and Item 2 are.
void MovePeakAndValley(ActiveItems& values, std::size_t count) {
    if (count != 3 && count != 4) return;
    values[kValley] = std::exchange(values[count], {});
    values[kPeak] = std::exchange(values[count - 1], {});
}

}  // namespace

SplitLine SplitActiveItems(std::string_view rawReply, bool withPeakValley) {
    SplitLine split;
    const std::size_t count = rawReply.size() / 10 + 1;
    for (std::size_t number = 1; number <= count; ++number) {
        const std::size_t length = ValueLength(rawReply);
        Put(split.Values, number, rawReply.substr(0, length));
        rawReply.remove_prefix(length);
    }
    split.Rest = rawReply;
    if (withPeakValley) {
        MovePeakAndValley(split.Values, count);
    } else {
        Put(split.Values, count + 1, rawReply);
    }
    return split;
}

}  // namespace counter

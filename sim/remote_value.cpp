#include "sim/remote_value.h"

#include <algorithm>

namespace sim {

RemoteValue RemoteValueOf(std::string_view text) {
    constexpr int kMostDecimals = 5, kDigits = 1000000;  // six digits
    RemoteValue value{std::string(text)};
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    bool point = false;
    for (char c : text) {
        if (c == '.' && !point) {
            point = true;
            continue;
        }
        if (c < '0' || c > '9' || value.Decimals == kMostDecimals) break;
        value.Count = (10 * value.Count + (c - '0')) % kDigits;
        if (point) ++value.Decimals;
    }
    if (negative) value.Count = -value.Count;
    return value;
}

}  // namespace sim

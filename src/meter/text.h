// Small helpers for the text of fields and entries.
#pragma once

#include <algorithm>
#include <string_view>

namespace counter {

// Without the blanks at both ends.
constexpr std::string_view Trimmed(std::string_view text) {
    std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

}  // namespace counter

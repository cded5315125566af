// Numbers among the words of a command line.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>

namespace counter {

// The whole text as a number, a double also as "1e3", "inf" and "nan". Nothing where anything else is in
// it, and where Number can't hold it.
template <class Number>
std::optional<Number> ExactNumber(std::string_view text) {
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

}  // namespace counter

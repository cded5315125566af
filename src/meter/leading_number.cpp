#include "meter/leading_number.h"

#include <charconv>
#include <cmath>
#include <string>

namespace counter {

namespace {

bool BeginsNumber(std::string_view text) {
    return !text.empty() && (text.front() == '.' || (text.front() >= '0' && text.front() <= '9'));
}

// Of a number that no double holds: nothing is left of one with a negative exponent.
double TooFar(std::string_view number) {
    const std::size_t exponent = number.find_first_of("eE");
    const bool small = exponent != std::string_view::npos && number.substr(exponent + 1, 1) == "-";
    return small ? 0 : HUGE_VAL;
}

}  // namespace

double LeadingNumber(std::string_view text) {
    std::string number(text);
    std::erase(number, ' ');
    const bool negative = number.starts_with('-');
    if (negative || number.starts_with('+')) number.erase(0, 1);
    // from_chars also knows words for infinity and a second sign, which are no numbers here.
    if (!BeginsNumber(number)) return 0;
    double value = 0;
    const char* const last = number.data() + number.size();
    const auto [end, error] = std::from_chars(number.data(), last, value);
    if (error == std::errc::result_out_of_range) value = TooFar({number.data(), end});
    return negative ? -value : value;
}

double RoundHalfEven(double value) {
    return std::nearbyint(value);  // in the rounding mode that a process has unless it changes it
}

}  // namespace counter

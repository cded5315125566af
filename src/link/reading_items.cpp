#include "link/reading_items.h"

#include <algorithm>

namespace counter {

namespace {

bool IsSign(char c) {
    return c == '+' || c == '-';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsExponent(char c) {
    return c == 'E' || c == 'e';
}

std::string Digits(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    std::string digits(text.begin(), end);
    text.remove_prefix(digits.size());
    return digits;
}

// "E5" or "E-5" of what begins with it; empty where no digit follows, which is no exponent.
std::string Exponent(std::string_view text) {
    if (text.empty() || !IsExponent(text.front())) return {};
    text.remove_prefix(1);
    const std::string sign = text.starts_with('-') ? "-" : "";
    if (!text.empty() && IsSign(text.front())) text.remove_prefix(1);
    const std::string digits = Digits(text);
    return digits.empty() ? std::string() : "E" + sign + digits;
}

std::string NumberText(std::string item) {
    std::erase(item, ' ');
    std::string_view text = item;
    const std::string sign = text.starts_with('-') ? "-" : "";
    if (!text.empty() && IsSign(text.front())) text.remove_prefix(1);
    const std::string whole = Digits(text);
    std::string decimals;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        decimals = Digits(text);
    }
    if (whole.empty() && decimals.empty()) return {};
    return sign + (whole.empty() ? "0" : whole) + (decimals.empty() ? "" : "." + decimals) + Exponent(text);
}

// The sign behind the "E" of a number: "1.5E-3", not "E-3".
bool SignsExponent(std::string_view frame, std::size_t at) {
    return at >= 2 && IsExponent(frame[at - 1]) && (IsDigit(frame[at - 2]) || frame[at - 2] == '.');
}

// Length of the value at the front: up to the sign place of the next, once this one shows something.
std::size_t ItemLength(std::string_view frame) {
    bool shows = false;
    for (std::size_t i = 0; i < frame.size(); ++i) {
        const char c = frame[i];
        const bool signPlace = IsSign(c) && !(i > 0 && IsSign(frame[i - 1])) && !SignsExponent(frame, i);
        if (shows && (c == ' ' || signPlace)) return i;
        shows = shows || (c != ' ' && !signPlace);
    }
    return frame.size();
}

}  // namespace

std::vector<std::string_view> ItemTextsOf(std::string_view frame) {
    const std::size_t first = std::min(frame.find_first_of(" +-.0123456789"), frame.size());
    const bool isValue = frame.substr(first, 1) == " ";  // one that shows no number, or blanks in front
    frame.remove_prefix(isValue ? 0 : first);
    std::vector<std::string_view> texts;
    while (frame.find_first_not_of(' ') != std::string_view::npos) {
        const std::size_t length = ItemLength(frame);
        texts.push_back(frame.substr(0, length));
        frame.remove_prefix(length);
    }
    return texts;
}

std::vector<std::string> ItemsOf(std::string_view frame) {
    std::vector<std::string> items;
    for (const std::string_view text : ItemTextsOf(frame)) items.push_back(NumberText(std::string(text)));
    return items;
}

}  // namespace counter

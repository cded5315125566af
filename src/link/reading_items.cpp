#include "link/reading_items.h"

#include <algorithm>
#include <iterator>

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

// A letter for an alarm, or a mark for one that is off.
bool TellsAlarm(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

std::string AlarmsAtEnd(std::string_view text) {
    const auto shown = std::find_if(text.rbegin(), text.rend(), [](char c) { return c != ' '; }).base();
    const auto first = std::find_if_not(std::make_reverse_iterator(shown), text.rend(), TellsAlarm).base();
    return {first, shown};
}

// How many characters in front of the first value belong to none.
std::size_t LeadLength(std::string_view frame) {
    const std::size_t first = std::min(frame.find_first_of(" +-.0123456789"), frame.size());
    const bool isValue = frame.substr(first, 1) == " ";  // one that shows no number, or blanks in front
    return isValue ? 0 : first;
}

bool ShowsNothing(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

}  // namespace

std::vector<std::string_view> ItemTextsOf(std::string_view frame) {
    frame.remove_prefix(LeadLength(frame));
    std::vector<std::string_view> texts;
    while (!ShowsNothing(frame)) {
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

// A lead goes with the first value, blanks at the end with the last.
std::vector<ReadingItem> SplitReading(std::string_view frame) {
    std::vector<ReadingItem> items;
    while (!ShowsNothing(frame)) {
        const std::size_t lead = items.empty() ? LeadLength(frame) : 0;
        const std::size_t length = lead + ItemLength(frame.substr(lead));
        const bool last = ShowsNothing(frame.substr(length));
        items.push_back(ReadingItemOf(frame.substr(0, last ? frame.size() : length)));
        frame.remove_prefix(length);
    }
    return items;
}

ReadingItem ReadingItemOf(std::string_view sent) {
    const std::string_view value = sent.substr(LeadLength(sent));
    return {std::string(sent), NumberText(std::string(value)), AlarmsAtEnd(value)};
}

std::string_view Stripped(std::string_view frame) {
    const auto shown = [](char c) { return static_cast<unsigned char>(c) > ' '; };
    const auto first = std::find_if(frame.begin(), frame.end(), shown);
    const auto last = std::find_if(frame.rbegin(), std::make_reverse_iterator(first), shown).base();
    return {first, last};
}

}  // namespace counter

#include "curve/prm_file.h"

#include <algorithm>
#include <array>

#include "meter/text.h"

namespace counter {

namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kItemEnds = ",\r\n";
constexpr std::string_view kBlanks = " \t";
constexpr char kEndOfText = '\x1A';  // after the text of a file that a DOS program wrote

std::size_t EndOf(std::string_view text, std::string_view ends) {
    return std::min(text.find_first_of(ends), text.size());
}

// An item in quotes may hold commas, but no line end: its text becomes part of one frame.
std::string_view TakeText(std::string_view& rest) {
    if (!rest.starts_with('"')) {
        const std::string_view text = rest.substr(0, EndOf(rest, kItemEnds));
        rest.remove_prefix(text.size());
        return Trimmed(text);
    }
    rest.remove_prefix(1);
    const std::string_view text = rest.substr(0, std::min(rest.find('"'), EndOf(rest, kLineEnds)));
    rest.remove_prefix(text.size());
    rest.remove_prefix(EndOf(rest, kItemEnds));
    return text;
}

std::optional<std::string> TakeItem(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (rest.empty()) return std::nullopt;
    const std::string_view text = TakeText(rest);
    rest.remove_prefix(std::min<std::size_t>(rest.starts_with("\r\n") ? 2 : 1, rest.size()));
    if (text.size() > kMostItemLength) return std::nullopt;
    return std::string(text);
}

}  // namespace

bool IsProperCurve(const CurveItems& items) {
    constexpr std::size_t kItemDigits = 84;
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    return std::ranges::all_of(std::array{&items.First, &items.Second}, [&](const std::string* item) {
        return item->size() == kItemDigits && item->find_first_not_of(kDigits) == std::string::npos;
    });
}

std::optional<CurveItems> ParsePrm(std::string_view content) {
    content = content.substr(0, content.find(kEndOfText));
    const auto first = TakeItem(content);
    if (!first) return std::nullopt;
    const auto second = TakeItem(content);
    if (!second) return std::nullopt;
    return CurveItems{*first, *second};
}

}  // namespace counter

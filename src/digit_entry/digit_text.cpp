#include "digit_entry/digit_text.h"

#include <algorithm>

namespace counter {

namespace {

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool PointBehind(const DigitLimits& limits, int box, int entryDecimal) {
    if (limits.FieldType == kByteType) return false;
    const bool signedClock = limits.FieldType > 1 && limits.TimeEntry > 0;
    return signedClock ? box == 2 || box == 4 : box == 7 - entryDecimal;
}

}  // namespace

BareText BareTextOf(std::string_view fieldText, bool takePointOut) {
    BareText bare;
    std::copy_if(fieldText.begin(), fieldText.end(), std::back_inserter(bare.Text),
                 [](char character) { return character != ' '; });
    const std::size_t point = bare.Text.find('.');
    if (point == std::string::npos) return bare;
    bare.PointPlace = static_cast<int>(point) + 1;
    const auto behind = std::count_if(bare.Text.begin() + bare.PointPlace, bare.Text.end(), IsDigit);
    bare.PointCode =
        static_cast<int>(point == 0 ? static_cast<std::ptrdiff_t>(bare.Text.size()) : behind) + 1;
    if (takePointOut) bare.Text.erase(point, 1);
    return bare;
}

DigitTexts SpreadText(std::string_view text, const DigitLimits& limits, int entryDecimal) {
    DigitTexts boxes;
    std::size_t at = 0;
    for (int box = FirstBox(limits.FieldType); box <= kLastBox && at < text.size(); ++box) {
        std::string& content = boxes[static_cast<std::size_t>(box)];
        content = text[at++];
        if (PointBehind(limits, box, entryDecimal)) content += '.';
        if (at < text.size() && text[at] == '.') ++at;
    }
    return boxes;
}

std::string FirstPointOnly(std::string_view text) {
    std::string rest(text);
    const std::size_t point = rest.find('.');
    if (point == std::string::npos) return rest;
    rest.erase(std::remove(rest.begin() + static_cast<std::ptrdiff_t>(point) + 1, rest.end(), '.'),
               rest.end());
    return rest;
}

std::string WithoutLeadingZeros(std::string_view text) {
    while (text.size() > 1 && text.front() == '0') text.remove_prefix(1);
    return std::string(text);
}

}  // namespace counter

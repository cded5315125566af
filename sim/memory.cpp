#include "sim/memory.h"

#include <algorithm>

#include "sim/hex.h"

namespace sim {

namespace {

struct Region {
    int Position;     // of its first digit
    int Digits;       // how many
    int HighestWord;  // where the first four digits lie
};

constexpr Region kRegions[] = {{1, 108, 0x1A}, {109, 96, 0x32}, {205, 44, 0x74}, {249, 12, 0x35}};

// Where one digit of the image lies.
struct Cell {
    int Word;
    int Shift;  // of its lowest bit
};

Cell CellOf(int position) {
    const auto region = std::find_if(std::begin(kRegions), std::end(kRegions), [&](const Region& r) {
        return position >= r.Position && position < r.Position + r.Digits;
    });
    const int offset = position - region->Position;
    return {region->HighestWord - offset / 4, 12 - 4 * (offset % 4)};
}

bool AllDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return DigitValue(c) >= 0; });
}

bool InMemory(int highest, int count) {
    return count > 0 && highest <= 0xFF && highest - count + 1 >= 0;
}

int MaskOf(int high, int low) {
    return ((1 << (high - low + 1)) - 1) << low;
}

}  // namespace

std::string Memory::Block(int highest, int count) const {
    std::string digits;
    if (!InMemory(highest, count)) return digits;
    for (int i = 0; i < count; ++i) digits += HexOf(Word(highest - i), 4);
    return digits;
}

bool Memory::SetBlock(int highest, int count, std::string_view digits) {
    if (!InMemory(highest, count) || digits.size() != 4 * static_cast<std::size_t>(count)) return false;
    if (!AllDigits(digits)) return false;
    for (int i = 0; i < count; ++i)
        SetWord(highest - i, static_cast<std::uint16_t>(*NumberOf(digits.substr(4 * i, 4))));
    return true;
}

std::string Memory::ImageText() const {
    std::string text;
    for (const Region& region : kRegions) text += Block(region.HighestWord, region.Digits / 4);
    return text;
}

bool Memory::LoadImage(std::string_view text) {
    if (text.size() != kImageDigits || !AllDigits(text)) return false;
    for (const Region& region : kRegions)
        SetBlock(region.HighestWord, region.Digits / 4, text.substr(region.Position - 1, region.Digits));
    return true;
}

std::uint32_t Memory::Number(int position, int digits) const {
    std::uint32_t value = 0;
    for (int i = 0; i < digits; ++i) {
        const Cell cell = CellOf(position + i);
        value = value << 4 | (Word(cell.Word) >> cell.Shift & 0xF);
    }
    return value;
}

void Memory::SetNumber(int position, int digits, std::uint32_t value) {
    for (int i = digits - 1; i >= 0; --i, value >>= 4) {
        const Cell cell = CellOf(position + i);
        const std::uint32_t kept = Word(cell.Word) & ~(0xFu << cell.Shift);
        SetWord(cell.Word, static_cast<std::uint16_t>(kept | (value & 0xF) << cell.Shift));
    }
}

int Memory::Bits(int position, int high, int low) const {
    return (static_cast<int>(Number(position, 2)) & MaskOf(high, low)) >> low;
}

void Memory::SetBits(int position, int high, int low, int value) {
    const int mask = MaskOf(high, low);
    const int byte = static_cast<int>(Number(position, 2));
    SetNumber(position, 2, static_cast<std::uint32_t>((byte & ~mask) | ((value << low) & mask)));
}

}  // namespace sim

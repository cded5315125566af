// The cells of the menu's grids: how a text or six digits are spread over the columns S and 1 to 6.
//
// A cell is a blank and a character, and a point where the meter lights one after it: " 7", " 7.". A column
// that the text doesn't reach is a lone blank. In rows of digits, a cell is the bare digit.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace counter {

// A text of a few characters that lives where it is declared: a menu has some 400 cells of at most three
// characters, and none of them is worth an allocation.
template <std::size_t Capacity>
class ShortText {
    static_assert(Capacity < 256);

  public:
    constexpr ShortText() = default;
    constexpr ShortText(std::string_view text) { Append(text); }
    constexpr ShortText(const char* text) { Append(text); }

    // What goes beyond the capacity is dropped.
    constexpr void Append(std::string_view text) {
        std::string_view fitting = text.substr(0, Capacity - size_);
        std::copy(fitting.begin(), fitting.end(), text_.begin() + size_);
        size_ = static_cast<std::uint8_t>(size_ + fitting.size());
    }
    constexpr std::string_view View() const { return {text_.data(), size_}; }
    constexpr operator std::string_view() const { return View(); }

    friend constexpr bool operator==(const ShortText& a, const ShortText& b) { return a.View() == b.View(); }

  private:
    std::array<char, Capacity> text_{};
    std::uint8_t size_ = 0;
};

using MenuCell = ShortText<3>;
using MenuCells = std::array<MenuCell, 7>;   // S, 1 to 6
using DigitCells = std::array<MenuCell, 6>;  // 1 to 6, of the small grids beside a row

// Six digits 0..31 of a row whose digits are fields of bits.
using MenuDigits = std::array<int, 6>;
inline constexpr int kBlankDigit = -1;

// Where points are lit in a value.
enum class CellPoints {
    Inside,  // where the value's point is, but not after the last digit
    Last,    // there too
    Clock,   // after hours and minutes, wherever the value's point is
};

// A decoded value, sign or blank first. A point in front or after the first character stays a character.
MenuCells CellsOfValue(std::string_view text, CellPoints points);

// A setpoint: as a value, but always with a sign, which is in column S without a blank.
MenuCells CellsOfSetpoint(std::string_view text);

// A mnemonic, seven characters with the one for S.
MenuCells CellsOfText(std::string_view text);

// A mnemonic of six characters in the digit columns alone; its points are characters.
DigitCells DigitCellsOfText(std::string_view text);

// A multiplier in the digit columns alone; of one without a point the last six characters.
DigitCells DigitCellsOfMultiplier(std::string_view text);

// S is blank. A digit above 9 is a letter as the meter spells it, and from 16 on a digit or letter with a
// point: 11 is "b", 21 is "5.". kBlankDigit and anything outside 0..31 is a blank.
MenuCells CellsOfDigits(const MenuDigits& digits);

// S blank, then the six.
MenuCells WithBlankSign(const DigitCells& digits);

}  // namespace counter

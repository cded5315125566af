// Memory: the 256 words of the meter's non-volatile memory, and the setup image that lies in it.
//
// The image is a text of 260 hexadecimal digits made of four stretches of memory. In each the first digits
// are the highest word, so that a later position is a lower address:
//
//     positions    words
//       1..108     0x1A down to 0x00
//     109..204     0x32 down to 0x1B
//     205..248     0x74 down to 0x6A
//     249..260     0x35 down to 0x33
//
// Positions count digits from 1. The other words hold curves and what only the meter knows.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace sim {

inline constexpr int kImageDigits = 260;

class Memory {
  public:
    // Words, address 0x00..0xFF.
    std::uint16_t Word(int address) const { return words_.at(static_cast<std::size_t>(address)); }
    void SetWord(int address, std::uint16_t value) {
        words_.at(static_cast<std::size_t>(address)) = value;
        ++changes_;
    }
    // Another number after every write: what was worked out from the words holds as long as it stays.
    std::uint64_t Changes() const { return changes_; }

    // `count` words from `highest` down, four digits each; empty when they run out of the memory.
    std::string Block(int highest, int count) const;
    // Writes `count` words from `highest` down. False, with nothing written, when they run out of the memory
    // or `digits` is not exactly 4 x `count` upper-case digits.
    bool SetBlock(int highest, int count, std::string_view digits);

    // The image, always 260 digits.
    std::string ImageText() const;
    // False, with nothing changed, when `text` is not 260 upper-case hexadecimal digits.
    bool LoadImage(std::string_view text);

    // The number in `digits` (1..8) image digits at `position`; writing keeps the low digits of `value`.
    std::uint32_t Number(int position, int digits) const;
    void SetNumber(int position, int digits, std::uint32_t value);
    // Bits `high` down to `low` of the byte (two digits) at `position`.
    int Bits(int position, int high, int low) const;
    void SetBits(int position, int high, int low, int value);

  private:
    std::array<std::uint16_t, 256> words_{};
    std::uint64_t changes_ = 0;
};

}  // namespace sim

// SetupImage: the whole configuration of the meter as one text of hexadecimal digits, and the only functions
// that touch its digits.
//
// A position is the place of a digit, from 1 on. A byte is the two digits at its position, bit 7 the high bit
// of the first. The text may be short (204 digits after a Get that failed), long (300 from a file) or hold
// anything at all. So everything here works on what is there: a digit that isn't there reads as missing, a
// write outside is dropped, nothing changes the length. Digits are read in either case.
#pragma once

#include <string>
#include <string_view>

namespace counter {

// As many digits as the four stretches of the meter's memory have: 108 + 96 + 44 + 12.
inline constexpr int kImageDigits = 260;

struct SetupImage {
    std::string SetupData = std::string(kImageDigits, '0');
    bool operator==(const SetupImage&) const = default;
};

// A text is a whole setup when it is 260 hexadecimal digits, of either case, and nothing else. What else a
// file holds can be worked on digit by digit, but is nothing to write into a meter: an empty file would be a
// setup of zeros, the meter's address included.
bool IsWholeSetup(std::string_view digits);
// What keeps a text from being one, as "100 characters instead of 260 hexadecimal digits" or "character 17
// is 'G' and no hexadecimal digit"; empty for a whole setup.
std::string WhyNoWholeSetup(std::string_view digits);

// Whether a text can be a setup at all, one that is short, long or damaged included: what was once written as
// one. A text of nothing, a picture or a letter can't.
bool CanBeSetup(std::string_view digits);

// The bits hiBit..loBit (0..7) of the byte at `pos`, right-aligned; 0 when loBit is above hiBit.
int BitsGet(const SetupImage& image, int hiBit, int loBit, int pos);

// Puts `value` into the bits hiBit..loBit and keeps the others. The value isn't cut to the field: one that is
// too large spills into higher bits, and of a result above 0xFF the first two of three digits are stored.
// Both are required; callers pass legal values.
void BitsPut(SetupImage& image, int hiBit, int loBit, int pos, int value);

// 0..255. A pair with a character that isn't hexadecimal is 0 as a whole; a lone last digit is its value.
int ByteGet(const SetupImage& image, int pos);

// 0..255; of a larger value the first two digits are stored.
void BytePut(SetupImage& image, int pos, int value);

// What is there of `count` digits from `pos` on; shorter at the end of the image.
std::string DigitsGet(const SetupImage& image, int pos, int count);

// The same digits, or as few of them, in both.
bool SameDigits(const SetupImage& a, const SetupImage& b, int pos, int count);

// Overwrites the digits from `pos` on; what reaches beyond the image is dropped.
void DigitsPut(SetupImage& image, int pos, std::string_view digits);

// One digit, 0..15; 0 where it isn't hexadecimal or isn't there.
int HexDigitGet(const SetupImage& image, int pos);

// False on a Basic meter, true on an Extended one, whichever curve that has.
bool ExtendedMeterFromSetup(const SetupImage& image);

}  // namespace counter

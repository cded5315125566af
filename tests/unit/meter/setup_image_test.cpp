#include "meter/setup_image.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "image_with.h"

namespace counter {
namespace {

TEST(BitsPut, KeepsTheOtherBitsAndSpillsUpwards) {
    // clang-format off
    const struct {
        const char* Name;
        int HiBit, LoBit, Pos, Value;
        const char *Before, *After;
    } cases[] = {
        {"middle bits",              5, 3, 171,   4, "00", "20"},
        {"one digit keeps its zero", 3, 0, 199,   7, "00", "07"},
        {"lower case is read",       3, 0, 199,   1, "c3", "C1"},
        {"spills into bit 4",        3, 0, 165,  16, "00", "10"},
        {"three digits lose one",    7, 7, 185,   2, "04", "10"},
        {"damaged pair is replaced", 2, 0, 193,   1, "G9", "01"},
        {"no bits at all",           1, 3, 171,   0, "A5", "A5"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SetupImage image = With(c.Pos, c.Before);
        BitsPut(image, c.HiBit, c.LoBit, c.Pos, c.Value);
        EXPECT_EQ(image.SetupData, With(c.Pos, c.After).SetupData) << c.Name;
    }
}

TEST(SetupImage, OutsideReadsAsNothingAndDropsWrites) {
    SetupImage image{"12345678f"};
    EXPECT_EQ(ByteGet(image, 9), 15) << "a lone last digit is its value";
    EXPECT_EQ(DigitsGet(image, 5, 6), "5678f");
    for (int pos : {-2000000000, -1, 0, 10, 205, 2000000000}) {
        EXPECT_EQ(ByteGet(image, pos), 0) << pos;
        EXPECT_EQ(BitsGet(image, 7, 0, pos), 0) << pos;
        EXPECT_EQ(HexDigitGet(image, pos), 0) << pos;
        EXPECT_EQ(DigitsGet(image, pos, 6), "") << pos;
        BytePut(image, pos, 255);
        BitsPut(image, 7, 7, pos, 1);
        DigitsPut(image, pos, "FFFFFF");
    }
    EXPECT_EQ(DigitsGet(image, 1, -1), "");
    EXPECT_EQ(BitsGet(image, 2, 5, 1), 0) << "no bits at all";
    EXPECT_EQ(image.SetupData, "12345678f");

    EXPECT_EQ(HexDigitGet(image, 9), 15);
    BytePut(image, 9, 0xAB);
    EXPECT_STREQ(image.SetupData.c_str(), "12345678A") << "nothing behind the end";
    DigitsPut(image, 7, "CDEF00");
    EXPECT_EQ(image.SetupData, "123456CDE");

    SetupImage longImage{std::string(300, '0')};
    BytePut(longImage, 299, 0x5A0);  // the first two digits of three
    EXPECT_EQ(longImage.SetupData, std::string(298, '0') + "5A");
    EXPECT_EQ(ByteGet(longImage, 299), 0x5A);
}

// What a meter must not be given, and what keeps it off a terminal.
TEST(SetupImage, WholeIs260DigitsOfEitherCase) {
    const std::string zeros(260, '0');
    const struct {
        std::string Digits, Why;
    } cases[] = {
        {zeros.substr(10) + "abcdefABCD", ""},
        {"", "0 characters instead of 260 hexadecimal digits"},
        {zeros.substr(1), "259 characters instead of 260 hexadecimal digits"},
        {zeros + "0", "261 characters instead of 260 hexadecimal digits"},
        {zeros.substr(1) + "G", "character 260 is 'G' and no hexadecimal digit"},
        {zeros.substr(1) + " ", "character 260 is ' ' and no hexadecimal digit"},
        {"\x1B",
         "1 character instead of 260 hexadecimal digits; character 1 is '\\x1B' and no hexadecimal digit"},
        {"0\x9B",
         "2 characters instead of 260 hexadecimal digits; character 2 is '\\x9B' and no hexadecimal digit"},
        {"0\xB5",
         "2 characters instead of 260 hexadecimal digits; character 2 is '\u00B5' and no hexadecimal digit"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(WhyNoWholeSetup(c.Digits), c.Why);
        EXPECT_EQ(IsWholeSetup(c.Digits), c.Why.empty()) << c.Digits;
    }
}

RC_GTEST_PROP(SetupImage, FieldsOfAnyImageReadBackAsWritten, (std::string text)) {
    SetupImage image{text};
    int length = static_cast<int>(text.size());
    int pos = *rc::gen::inRange(-3, length + 4);
    int lo = *rc::gen::inRange(0, 8);
    int hi = *rc::gen::inRange(lo, 8);
    int value = *rc::gen::inRange(0, 1 << (hi - lo + 1));
    int before = ByteGet(image, pos);

    BitsPut(image, hi, lo, pos, value);

    RC_ASSERT(image.SetupData.size() == text.size());
    if (pos < 1 || pos >= length) return;  // not a whole byte
    RC_ASSERT(BitsGet(image, hi, lo, pos) == value);
    for (int bit = 0; bit < 8; ++bit) {
        if (bit < lo || bit > hi) RC_ASSERT(BitsGet(image, bit, bit, pos) == (before >> bit & 1));
    }
    text.replace(static_cast<std::size_t>(pos) - 1, 2, image.SetupData, static_cast<std::size_t>(pos) - 1, 2);
    RC_ASSERT(image.SetupData == text);
}

}  // namespace
}  // namespace counter

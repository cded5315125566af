#include "meter/hex_text.h"

#include <gtest/gtest.h>

namespace counter {
namespace {

TEST(HexByte, GoesBeyondFForASumAboveAByte) {
    const std::pair<int, const char*> cases[] = {{0, "00"},   {10, "0A"},  {159, "9F"}, {160, "A0"},
                                                 {255, "FF"}, {256, "G0"}, {272, "H0"}, {-1, "00"}};
    for (auto [value, text] : cases) EXPECT_EQ(HexByte(value), text) << value;
}

TEST(TextOfHex, ReadsPairs) {
    EXPECT_EQ(TextOfHex("2A310d"), "*1\r");
    EXPECT_EQ(TextOfHex("FF80"), "\xFF\x80");
    EXPECT_EQ(TextOfHex("414"), "A@") << "the missing digit is 0";
    EXPECT_EQ(TextOfHex("G141"), std::string_view("\0A", 2)) << "not hexadecimal";
}

TEST(HexNumber, KeepsTheLastDigits) {
    EXPECT_EQ(HexNumber(0xBEEF, 6), "00BEEF");
    EXPECT_EQ(HexNumber(0x12345678, 4), "5678");
}

TEST(ParseHex, IsZeroUnlessAllParses) {
    EXPECT_EQ(ParseHex("fFa0"), 0xFFA0u);
    for (const char* text : {"", "12G4", " 5", "@A", "`a", "1/", "1:"}) EXPECT_EQ(ParseHex(text), 0u) << text;
}

}  // namespace
}  // namespace counter

#include "meter/value_codec.h"

#include <gtest/gtest.h>

#include "image_with.h"

namespace counter {
namespace {

constexpr ValueContext kPlain{};
constexpr ValueContext kClock{0, 5, 2};
constexpr ValueContext kVf{2, 8, 0};
constexpr ValueContext kVf1mA{2, 9, 0};
constexpr int kPos = 37;  // any position but 137

TEST(ValueDecode, ShowsTheFieldAsTheMeterDoes) {
    // clang-format off
    const struct {
        const char* Name;
        ValueContext Context;
        int Code, Pos;
        const char* Digits;
        int DecPt;
        const char* Text;
        int PointUsed;
    } cases[] = {
        {"scale, menu cell",           kPlain, 13, kPos, "0186A0", 6, " 1.00000",  6},
        {"magnitude above 999999",     kPlain,  3, kPos, "0FFFFF", 6, " +0.48575", 6},
        {"negative, menu cell",        kPlain, 12, kPos, "FFD8F0", 2, "-01000.0",  2},
        {"minus one",                  kPlain,  2, kPos, "FFFFFF", 1, " -000001.", 1},
        {"largest loses a digit",      kPlain,  2, kPos, "7FFFFF", 1, " +388607.", 1},
        {"a million is zero",          kPlain,  2, kPos, "0F4240", 1, " +000000.", 1},
        {"point 0 is 1",               kPlain,  2, kPos, "002710", 0, " +010000.", 1},
        {"point 7 is 6",               kPlain,  2, kPos, "002710", 7, " +0.10000", 6},
        {"gate time",                  kPlain,  0, kPos, "000A",   3, "000.10",    3},
        {"unsigned to its top",        kPlain,  0, kPos, "FFFF",   1, "65535.",    1},
        {"calibration",                kPlain,  1, 137,  "8064",   4, " -00100.",  1},
        {"code 1 elsewhere",           kPlain,  1, kPos, "8064",   1, " -000100.", 1},
        {"stored point",               kPlain,  4, kPos, "C12345", 1, " -074.565", 4},
        {"V-F board rules the point",  kVf,     4, kPos, "C12345", 1, " -07.4565", 5},
        {"V-F 0-1 mA",                 kVf1mA,  4, kPos, "C12345", 1, " -0.74565", 6},
        {"clock",                      kClock,  2, kPos, "000E4D", 1, " +010101.", 1},
        {"clock, rounds down below 0", kClock,  2, kPos, "FFFFFF", 1, " -004041.", 1},
        {"clock, longest",             kClock,  2, kPos, "7FFFFF", 1, " +301007.", 1},
        {"damaged first digit",        kPlain,  4, kPos, "?12345", 1, " +074565.", 1},
        {"damaged calibration",        kPlain,  1, 137,  "G064",   1, " +00000.",  1},
    };
    // clang-format on
    for (const auto& c : cases) {
        int decPt = c.DecPt;
        EXPECT_EQ(ValueDecode(With(c.Pos, c.Digits), c.Context, c.Code, c.Pos, decPt), c.Text) << c.Name;
        EXPECT_EQ(decPt, c.PointUsed) << c.Name;
    }
}

TEST(ValueDecode, TakesWhatAShortImageHas) {
    EXPECT_EQ(ValueText(SetupImage{""}, kPlain, 2, 1, 1), " +000000.");
    EXPECT_EQ(ValueText(SetupImage{""}, kPlain, 1, 137, 1), " +00000.");
    EXPECT_EQ(ValueText(SetupImage{"00FF"}, kPlain, 2, 1, 1), " +000255.");
    EXPECT_EQ(ValueText(SetupImage{"80"}, kPlain, 1, 1, 1), " -000000.");
}

TEST(ValueEncode, StoresWhatWasEntered) {
    // clang-format off
    const struct {
        const char* Name;
        ValueContext Context;
        int Code;
        const char *Text, *Digits;
    } cases[] = {
        {"scale",                     kPlain, 3, "+1.00000",  "0186A0"},
        {"negative scale",            kPlain, 3, "-1.00000",  "8186A0"},
        {"negative zero of code 3",   kPlain, 3, "-0.00000",  "800000"},
        {"code 3 loses its top",      kPlain, 3, "+1048577.", "000001"},
        {"minus one",                 kPlain, 2, "-000001.",  "FFFFFF"},
        {"minus zero is zero",        kPlain, 2, "-000000.",  "000000"},
        {"largest negative entry",    kPlain, 2, "-999999.",  "F0BDC1"},
        {"missing sign costs digit",  kPlain, 2, "123456.",   "005BA0"},
        {"before all",                kPlain, 4, "+.123456",  "61E240"},
        {"no point",                  kPlain, 4, "+123456",   "61E240"},
        {"code 0 loses its top",      kPlain, 0, "65537.",    "0001"},
        {"calibration",               kPlain, 1, "-00100.",   "8064"},
        {"negative zero of code 1",   kPlain, 1, "-00000.",   "8000"},
        {"clock",                     kClock, 2, "+010203",   "000E8B"},
        {"no digits",                 kPlain, 2, "+abc",      "000000"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SetupImage image = With(kPos, c.Code < 2 ? "AAAA" : "AAAAAA");
        ValueEncode(image, c.Context, c.Code, kPos, c.Text);
        EXPECT_EQ(image.SetupData, With(kPos, c.Digits).SetupData) << c.Name;
    }
}

TEST(ValueEncode, WritesNoOtherCodeAndNothingOutside) {
    SetupImage image{"AAAAAAAA"};
    for (int code : {-1, 5, 6, 7, 12}) ValueEncode(image, kPlain, code, 1, "+123456.");
    ValueEncode(image, kPlain, 2, 9, "+123456.");
    EXPECT_EQ(image.SetupData, "AAAAAAAA");
    ValueEncode(image, kPlain, 2, 7, "-000001.");
    EXPECT_EQ(image.SetupData, "AAAAAAFF");
}

TEST(ClockText, IsMadeOfAnyValueText) {
    EXPECT_EQ(WithoutBlanksAndPoints(" +0101.01 "), "+010101");
    EXPECT_EQ(AddClkDP("123456"), "+12. 34. 56");
    EXPECT_EQ(AddClkDP(" -010203 "), "-01. 02. 03");
    EXPECT_EQ(AddClkDP(""), ". . ");
}

}  // namespace
}  // namespace counter

// Register numbers and image digits.
#include "transfer/setup_conversions.h"

#include <gtest/gtest.h>

namespace counter {
namespace {

TEST(Conversions, Int24ToImage) {
    const struct {
        const char* In;
        const char* Out;
    } cases[] = {
        {"0186A0", "0186A0"}, {"000000", "000000"}, {"FFFFFF", "800001"}, {"FE7960", "8186A0"},
        {"F0BDC1", "8F423F"}, {"800001", "800001"}, {"F00000", "800000"},
    };
    for (const auto& c : cases) EXPECT_EQ(Int24ToImage(c.In), c.Out) << c.In;
}

TEST(Conversions, Float32ToImage) {
    const struct {
        const char* In;
        const char* Out;
    } cases[] = {
        {"01002710", "102710"}, {"0401E240", "41E240"}, {"06FFFFFF", "E00001"}, {"01FE1DC0", "91E240"},
        {"00000000", "000000"}, {"060F423F", "6F423F"}, {"08FFFFFF", "000001"},
    };
    for (const auto& c : cases) EXPECT_EQ(Float32ToImage(c.In), c.Out) << c.In;
}

TEST(Conversions, ImageToInt32) {
    const struct {
        const char* In;
        const char* Out;
    } cases[] = {
        {"002710", "00002710"}, {"0F423F", "000F423F"}, {"0F4240", "000F423F"}, {"FFFFFF", "FFFFFFFF"},
        {"F0BDC1", "FFF0BDC1"}, {"F0BDC0", "FFF0BDC1"}, {"100000", "FFF0BDC1"}, {"12", "0012"},
    };
    for (const auto& c : cases) EXPECT_EQ(ImageToInt32(c.In), c.Out) << c.In;
}

TEST(Conversions, ImageSignToInt32) {
    const struct {
        const char* In;
        const char* Out;
    } cases[] = {
        {"0186A0", "000186A0"},
        {"8186A0", "EFFE7960"},
        {"800001", "EFFFFFFF"},
        {"800000", "F0000000"},
        {"", "00"},
    };
    for (const auto& c : cases) EXPECT_EQ(ImageSignToInt32(c.In), c.Out) << c.In;
}

TEST(Conversions, ImageToFloat32) {
    const struct {
        const char* In;
        const char* Out;
    } cases[] = {
        {"41E240", "0401E240"}, {"002710", "00002710"}, {"C1E240", "04FE1DC0"}, {"800001", "01FFFFFF"},
        {"F00001", "06FFFFFF"}, {"A00000", "02000000"}, {"712345", "07012345"}, {"4", "004"},
    };
    for (const auto& c : cases) EXPECT_EQ(ImageToFloat32(c.In), c.Out) << c.In;
}

}  // namespace
}  // namespace counter

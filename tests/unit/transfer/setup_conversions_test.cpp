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

}  // namespace
}  // namespace counter

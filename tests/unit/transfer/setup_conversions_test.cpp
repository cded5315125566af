// Register numbers and image digits.
#include "transfer/setup_conversions.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace counter {
namespace {

TEST(Conversions, BetweenRegistersAndImage) {
    const struct {
        const char* Name;
        std::string (*Convert)(std::string_view);
        std::vector<std::pair<const char*, const char*>> Pairs;
    } cases[] = {
        // clang-format off
        {"Int24ToImage", Int24ToImage,
         {{"0186A0", "0186A0"}, {"000000", "000000"}, {"FFFFFF", "800001"}, {"FE7960", "8186A0"},
          {"F0BDC1", "8F423F"}, {"800001", "800001"}, {"F00000", "800000"}}},
        {"Float32ToImage", Float32ToImage,
         {{"01002710", "102710"}, {"0401E240", "41E240"}, {"06FFFFFF", "E00001"}, {"01FE1DC0", "91E240"},
          {"00000000", "000000"}, {"060F423F", "6F423F"}, {"08FFFFFF", "000001"}}},
        {"ImageToInt32", ImageToInt32,
         {{"002710", "00002710"}, {"0F423F", "000F423F"}, {"0F4240", "000F423F"}, {"FFFFFF", "FFFFFFFF"},
          {"F0BDC1", "FFF0BDC1"}, {"F0BDC0", "FFF0BDC1"}, {"100000", "FFF0BDC1"}, {"12", "0012"}}},
        {"ImageSignToInt32", ImageSignToInt32,
         {{"0186A0", "000186A0"}, {"8186A0", "EFFE7960"}, {"800001", "EFFFFFFF"}, {"800000", "F0000000"},
          {"", "00"}}},
        {"ImageToFloat32", ImageToFloat32,
         {{"41E240", "0401E240"}, {"002710", "00002710"}, {"C1E240", "04FE1DC0"}, {"800001", "01FFFFFF"},
          {"F00001", "06FFFFFF"}, {"A00000", "02000000"}, {"712345", "07012345"}, {"4", "004"}}},
        // clang-format on
    };
    for (const auto& c : cases) {
        for (const auto& [in, out] : c.Pairs) EXPECT_EQ(c.Convert(in), out) << c.Name << " " << in;
    }
}

}  // namespace
}  // namespace counter

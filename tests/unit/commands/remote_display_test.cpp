// Values for a Modbus meter's display: 32 bits, whatever point the user typed.
#include "commands/remote_display.h"

#include <gtest/gtest.h>

namespace counter::test {
namespace {

TEST(RemoteDigits, DropsThePointAndCountsIn32Bits) {
    const std::pair<const char*, const char*> cases[] = {
        // clang-format off
        {"12.34", "000004D2"}, {"1.2.3", "0000007B"},  {".5", "00000005"},  {"5.", "00000005"},  {"", "00000000"},
        {"ABC", "00000000"},   {"12AB", "0000000C"},   {"-1", "FFFFFFFF"},  {"- 12.5", "FFFFFF83"},
        {"25e-1", "00000002"}, {"35e-1", "00000004"},  {"1e3", "000003E8"}, {"2147483647", "7FFFFFFF"},
        {"2147483648", ""},    {"-2147483649", ""},    {"21474836.48", ""}, {"-2147483648", "80000000"}, {"1e400", ""},
        // clang-format on
    };
    for (const auto& [text, digits] : cases) EXPECT_EQ(RemoteDigits(text).value_or(""), digits) << text;
}

}  // namespace
}  // namespace counter::test

#include "sim/register_map.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

TEST(RegisterMap, TopByteOfAWrittenScaleMeansNothing) {
    Device device{MeterOptions{}};
    EXPECT_TRUE(WriteHolding(device, 0x09, {0xEFFE, 0x7960}));
    EXPECT_EQ(HexOf(device.Words().Number(43, 6), 6), "8186A0");
}

TEST(RegisterMap, GapsAndReadOnlyRegistersRefuseTheWholeRequest) {
    Device device{MeterOptions{}};
    for (int gap : {0x00, 0x3C, 0x40, 0x60, 0x63, 0x67, 0x69, 0xFFFF})
        EXPECT_FALSE(ReadHolding(device, gap, 1)) << gap;
    EXPECT_FALSE(ReadHolding(device, 0x3B, 2));
    EXPECT_FALSE(WriteHolding(device, 0x3B, {1, 2})) << "into the gap";
    for (int readOnly : {0x64, 0x65, 0x66}) EXPECT_FALSE(WriteHolding(device, readOnly, {9})) << readOnly;
    EXPECT_EQ(device.Words().ImageText(), kDefaultImage);
    EXPECT_TRUE(WriteHolding(device, 0x6D, {0, 1234})) << "remote data to display and Item 3";
    EXPECT_FALSE(ReadInput(device, 0x0B, 3));
    EXPECT_EQ(ReadInput(device, 0x0B, 2), (RegisterValues{0, 1234}));
}

}  // namespace
}  // namespace sim

#include "meter/crc_tables.h"

#include <gtest/gtest.h>

namespace counter {
namespace {

// The check of one byte, bit by bit: the polynomial 0xA001 shifted right.
unsigned BitwiseCrc(unsigned value) {
    for (int bit = 0; bit < 8; ++bit) value = (value & 1) != 0 ? value >> 1 ^ 0xA001 : value >> 1;
    return value;
}

TEST(CrcTables, ArePublishedExceptForOneEntry) {
    for (unsigned i = 0; i < 256; ++i) {
        EXPECT_EQ(FirstCrcTable[i], i == 233 ? 0xC2 : BitwiseCrc(i) & 0xFF) << "entry " << i;
        EXPECT_EQ(SecondCrcTable[i], BitwiseCrc(i) >> 8) << "entry " << i;
    }
    EXPECT_EQ(BitwiseCrc(233) & 0xFF, kCrcEntryPublished);
}

}  // namespace
}  // namespace counter

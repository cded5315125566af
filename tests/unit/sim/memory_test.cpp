#include "sim/memory.h"

#include <gtest/gtest.h>

namespace sim {
namespace {

TEST(Memory, ImageLiesInFourStretchesEachFromItsHighestWordDown) {
    static constexpr struct {
        const char* Name;
        int Position;  // of the word's first digit
        int Word;
    } kCases[] = {
        // clang-format off
        {"first of the image", 1, 0x1A},     {"last of the first stretch", 105, 0x00},
        {"first of the second", 109, 0x32},  {"calibration", 137, 0x2B},
        {"first written back", 141, 0x2A},   {"multipliers", 165, 0x24},
        {"last of the second", 201, 0x1B},   {"first of the third", 205, 0x74},
        {"version and type", 233, 0x6D},     {"last of the third", 245, 0x6A},
        {"first of the fourth", 249, 0x35},  {"last of the image", 257, 0x33},
        // clang-format on
    };
    for (const auto& c : kCases) {
        Memory memory;
        memory.SetWord(c.Word, 0x1234);
        std::string expected(260, '0');
        expected.replace(c.Position - 1, 4, "1234");
        EXPECT_EQ(memory.ImageText(), expected) << c.Name;
        EXPECT_EQ(memory.Number(c.Position, 4), 0x1234u) << c.Name;
    }
}

TEST(Memory, ImageIsTakenWholeOrNotAtAll) {
    std::string image;
    for (int i = 0; i < 260; ++i) image += "0123456789ABCDEF"[(i * 7 + i / 16) % 16];
    Memory memory;
    ASSERT_TRUE(memory.LoadImage(image));
    EXPECT_EQ(memory.ImageText(), image);
    for (const auto& bad : {std::string(259, '1'), std::string(261, '1'), std::string(259, '1') + "a",
                            std::string(259, '1') + "G", std::string()})
        EXPECT_FALSE(memory.LoadImage(bad)) << bad.size();
    EXPECT_EQ(memory.ImageText(), image);
}

TEST(Memory, FieldsCrossWordsAndBitsKeepTheirNeighbours) {
    Memory memory;
    memory.SetNumber(7, 6, 0x1ABCDEF);  // two digits in one word, four in the next; the seventh digit is lost
    EXPECT_EQ(memory.ImageText().substr(0, 13), "000000ABCDEF0");
    EXPECT_EQ(memory.Number(7, 6), 0xABCDEFu);
    memory.SetNumber(191, 2, 0xFF);
    memory.SetBits(191, 6, 4, 2);
    EXPECT_EQ(memory.Number(191, 2), 0xAFu);
    EXPECT_EQ(memory.Bits(191, 6, 4), 2);
    EXPECT_EQ(memory.Number(189, 2), 0u);
}

}  // namespace
}  // namespace sim

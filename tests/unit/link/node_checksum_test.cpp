// The node's check against vectors worked by hand.
#include "link/node_checksum.h"

#include <gtest/gtest.h>

#include "meter/hex_text.h"

namespace counter::test {
namespace {

// clang-format off
// The login of node 0080A3010203 for TCP port 10001 (2711): groups 0080A301, 02035A93, D1C07E42, 04vv0000 and
// 27110000, where vv is the variant. Worked by hand, "term > sum" for each group and the fold of the last sum;
// "=" brings a carry in again. The first term and sum are 0080A301, but for variants 2 and 6.
//
//   0  plain
//      02035A93 > 0283FD94, D1C07E42 > D4447BD6, 04000000 > D8447BD6, 27110000 > FF557BD6
//      FF55 + 7BD6 = 1 7B2B = 7B2C
//   1  xor the sum
//      0283F992 > 03049C93, D2C4E2D1 > D5C97F64, D1C87F64 > 1 A791FEC8 = A791FEC9,
//      8080FEC9 > 1 2812FD92 = 2812FD93;  2812 + FD93 = 1 25A5 = 25A6
//   2  rotated right by own bits
//      by 1 80405180 > 80405180, by 19 (93) 6B526040 > EB92B1C0, by 2 (42) B4701F90 > 1 A002D150 = A002D151,
//      by 0 04020000 > A404D151, by 0 27110000 > CB15D151;  CB15 + D151 = 1 9C66 = 9C67
//   3  xor the sum with its halves swapped
//      (A3010080) A1025A13 > A182FD14, (FD14A182) 2CD4DFC0 > CE57DCD4, (DCD4CE57) D8D7CE57 > 1 A72FAB2B =
//      A72FAB2C, (AB2CA72F) 8C3DA72F > 1 336D525B = 336D525C;  336D + 525C = 85C9
//   4  rotated left by bits of the sum
//      by 1 0406B526 > 04875827, by 7 (27) E03F2168 > E4C6798F, by 15 (8F) 00000202 > E4C67B91,
//      by 17 (91) 00004E22 > E4C6C9B3;  E4C6 + C9B3 = 1 AE79 = AE7A
//   5  xor the sum moved left by a byte
//      (80A30100) 82A05B93 > 8320FE94, (20FE9483) F13EEAC1 > 1 745FE955 = 745FE956, (5FE95674) 5BEC5674 >
//      D04C3FCA, (4C3FCAD0) 6B2ECAD0 > 1 3B7B0A9A = 3B7B0A9B;  3B7B + 0A9B = 4616
//   6  rotated left by own bits
//      by 1 01014602 > 01014602, by 19 D498101A > D599561C, by 2 4701F90B > 1 1C9B4F27 = 1C9B4F28,
//      by 0 04060000 > 20A14F28, by 0 27110000 > 47B24F28;  47B2 + 4F28 = 96DA
//   7  xor the sum moved right by a byte
//      (010080A3) 0303DA30 > 03847D31, (3103847D) E0C3FA3F > E4487770, (70E44877) 74E34877 > 1 592BBFE7 =
//      592BBFE8, (E8592BBF) CF482BBF > 1 2873EBA7 = 2873EBA8;  2873 + EBA8 = 1 141B = 141C
//   8  rotated right by bits of the sum
//      by 1 8101AD49 > 8182504A, by 10 (4A) 90B4701F > 1 1236C069 = 1236C06A, by 10 00010200 > 1237C26A,
//      by 10 0009C440 > 124186AA;  1241 + 86AA = 98EB
// clang-format on
TEST(NodeChecksum, OneVectorForEachVariant) {
    constexpr int kByHand[] = {0x7B2C, 0x25A6, 0x9C67, 0x85C9, 0xAE7A, 0x4616, 0x96DA, 0x141C, 0x98EB};
    for (int variant = 0; variant <= 8; ++variant) {
        std::string frame = TextOfHex("0080A30102035A93D1C07E420400000027110000");
        frame[13] = static_cast<char>(variant);
        EXPECT_EQ(NodeChecksum(frame, variant), kByHand[variant]) << "variant " << variant;
    }
}

TEST(NodeChecksum, BytesOfTheCheckCountAsZero) {
    EXPECT_EQ(NodeChecksum(TextOfHex("0080A30102035A93D1C07E420406FFFF27110000"), 6), 0x96DA);
}

// Groups FFFFFFFF, but FFFF0000 where the check is cut out: sums FFFFFFFF, 1 FFFFFFFE = FFFFFFFF, FFFFFFFF,
// 1 FFFEFFFF = FFFF0000; FFFF + 0000. The carry comes in again at every group.
TEST(NodeChecksum, CarriesComeInAgain) {
    EXPECT_EQ(NodeChecksum(std::string(16, '\xFF'), 0), 0xFFFF);
}

// Rotated by no bits a group stays, and variant 6 is the plain sum: 11223300 + 44556600 = 55779900,
// + 77889900 = CD003200, + AABB0000 = 1 77BB3200 = 77BB3201; 77BB + 3201.
TEST(NodeChecksum, ALastByteOfZeroLeavesAGroup) {
    EXPECT_EQ(NodeChecksum(TextOfHex("112233004455660077889900AABB0000"), 6), 0xA9BC);
}

}  // namespace
}  // namespace counter::test

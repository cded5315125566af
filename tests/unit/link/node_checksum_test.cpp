// The node's check against vectors worked by hand.
#include "link/node_checksum.h"

#include <gtest/gtest.h>

#include "meter/hex_text.h"

namespace counter::test {
namespace {

// The login of node 0080A3010203 for TCP port 10001 (2711): groups 0080A301, 02035A93, D1C07E42, 04vv0000 and
// 27110000, where vv is the variant.
TEST(NodeChecksum, OneVectorForEachVariant) {
    constexpr int kByHand[] = {0x7B2C, 0x25A6, 0x9C67, 0x85C9, 0xAE7A, 0x4616, 0x96DA, 0x141C, 0x98EB};
    for (int variant = 0; variant <= 8; ++variant) {
        std::string frame = TextOfHex("0080A30102035A93D1C07E420400000027110000");
        frame[13] = static_cast<char>(variant);
        EXPECT_EQ(NodeChecksum(frame, variant), kByHand[variant]) << "variant " << variant;
    }
}

// FFFFFFFF is FFFF0000 where the check is cut out, and each sum brings its carry in again. Rotated by no bits
// a group stays, and variant 6 is the plain sum: 11223300 + 44556600 + 77889900 = CD003200, + AABB0000 = 1
// 77BB3200 = 77BB3201.
TEST(NodeChecksum, OddFrames) {
    EXPECT_EQ(NodeChecksum(TextOfHex("0080A30102035A93D1C07E420406FFFF27110000"), 6), 0x96DA) << "cut out";
    EXPECT_EQ(NodeChecksum(std::string(16, '\xFF'), 0), 0xFFFF) << "carries";
    EXPECT_EQ(NodeChecksum(TextOfHex("112233004455660077889900AABB0000"), 6), 0xA9BC) << "no rotation";
}

}  // namespace
}  // namespace counter::test

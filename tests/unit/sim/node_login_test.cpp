// The node's own check of logins, against the same vectors as the tool's: both were worked by hand, and
// neither code was asked. How each came about is in tests/unit/link/node_checksum_test.cpp.
#include "sim/node_login.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

const std::string kAddress = Bytes("0080A3010203");

TEST(NodeLogin, CheckOfEachVariant) {
    constexpr int kByHand[] = {0x7B2C, 0x25A6, 0x9C67, 0x85C9, 0xAE7A, 0x4616, 0x96DA, 0x141C, 0x98EB};
    for (int variant = 0; variant <= 8; ++variant) {
        std::string frame = Bytes("0080A301 02035A93 D1C07E42 0400FFFF 27110000");
        frame[13] = static_cast<char>(variant);
        EXPECT_EQ(NodeCheck(frame, variant), kByHand[variant]) << "variant " << variant;
    }
    EXPECT_EQ(NodeCheck(std::string(16, '\xFF'), 0), 0xFFFF);
}

TEST(NodeLogin, OnlyAGoodOneForThisNodeNamesAPort) {
    const struct {
        const char *Name, *Digits;
        int Port;  // -1: no login
    } cases[] = {
        {"good, variant 6", "0080A30102035A93D1C07E42 0406 96DA 2711 0000", 10001},
        {"good, variant 1", "0080A30102035A93D1C07E42 0401 25A6 2711 0000", 10001},
        {"wrong check", "0080A30102035A93D1C07E42 0406 96DB 2711 0000", -1},
        {"another port, same check", "0080A30102035A93D1C07E42 0406 96DA 2712 0000", -1},
        {"plain sum is no login", "0080A30102035A93D1C07E42 0400 7B2C 2711 0000", -1},
        {"variant 9", "0080A30102035A93D1C07E42 0409 7B35 2711 0000", -1},
        {"another node", "0080A30102045A93D1C07E42 0406 96DA 2711 0000", -1},
        {"another command", "0080A30102035A93D1C07E42 0306 96DA 2711 0000", -1},
        {"too short", "0080A30102035A93D1C07E42 0406 96DA 2711", -1},
        {"too long", "0080A30102035A93D1C07E42 0406 96DA 2711 0000 0000", -1},
        {"nothing", "", -1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ParseNodeLogin(Bytes(c.Digits), kAddress).value_or(-1), c.Port) << c.Name;
}

}  // namespace
}  // namespace sim

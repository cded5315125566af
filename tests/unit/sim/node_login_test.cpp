// Which datagrams are logins. tests/unit/link/node_frames_test.cpp has a good one of each variant.
#include "sim/node_login.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

const std::string kAddress = Bytes("0080A3010203");

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

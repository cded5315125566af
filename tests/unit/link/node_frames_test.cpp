// Frames between tool and node, byte for byte.
#include "link/node_frames.h"

#include <gtest/gtest.h>

#include "meter/hex_text.h"
#include "sim/node_login.h"

namespace counter::test {
namespace {

TEST(NodeFrames, AsTheNodeReadsThem) {
    const struct {
        const char* Name;
        std::string Frame;
        const char* Digits;
    } cases[] = {
        // clang-format off
        {"login, variant 6", NodeLoginFrame("0080A3010203", 6, 10001), "0080A30102035A93D1C07E42040696DA27110000"},
        {"login, variant 1", NodeLoginFrame("0080A3010203", 1, 10001), "0080A30102035A93D1C07E42040125A627110000"},
        {"keep-alive",       NodeKeepAlive("0080A3010203"),            "0080A30102035A93D1C07E42010105FF"},
        {"command, on",      NodeCommand("0080A3010203", true),        "0080A30102035A93D1C07E42570410000000FF"},
        {"command, off",     NodeCommand("0080A3010203", false),       "0080A30102035A93D1C07E42570400000000FF"},
        {"a short address",  NodeId("0080"),                           "0080000000005A93D1C07E42"},
        // clang-format on
    };
    for (const auto& c : cases) EXPECT_EQ(HexOfText(c.Frame), c.Digits) << c.Name;
    for (int variant = 1; variant <= 8; ++variant)
        EXPECT_EQ(sim::ParseNodeLogin(NodeLoginFrame("0080A3010203", variant, 10001),
                                      NodeId("0080A3010203").substr(0, 6)),
                  10001)
            << variant;
}

TEST(NodeFrames, AStatusFrameIsKnownByLengthTokenAndMark) {
    const struct {
        const char *Name, *Digits;
        bool Status;
    } cases[] = {
        // clang-format off
        {"status",                     "5A93D1C07E420080A301020305040000000000", true},
        {"a meter's reply by chance",  "5A93D1C07E42313233343536050437380D0A41", true},
        {"18 bytes",                   "5A93D1C07E420080A3010203050400000000",   false},
        {"20 bytes",                   "5A93D1C07E420080A3010203050400000000000A", false},
        {"another token",              "5A93D1C07E430080A301020305040000000000", false},
        {"the node's address first",   "0080A30102035A93D1C07E4205040000000000", false},
        {"another mark",               "5A93D1C07E420080A301020304050000000000", false},
        {"nothing",                    "",                                       false},
        // clang-format on
    };
    for (const auto& c : cases) EXPECT_EQ(IsStatusFrame(TextOfHex(c.Digits)), c.Status) << c.Name;
    const std::string status = TextOfHex(cases[0].Digits);
    for (const std::string& piece : {status + "reply", "reply" + status, status + "reply" + status})
        EXPECT_EQ(WithoutStatusFrames(piece), "reply") << "a keep-alive is answered together with a request";
    EXPECT_EQ(WithoutStatusFrames(status + status), "");
}

}  // namespace
}  // namespace counter::test

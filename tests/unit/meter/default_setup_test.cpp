#include "meter/default_setup.h"

#include <gtest/gtest.h>

namespace counter {
namespace {

const char kDefaultText[] =
    "0027100000000000000000000000000186A00000000186A0004E20002710002710002710000000000000002710"
    "002710000000000000000100000000000000000000000080640002271023112E050101040055070500012C000A"
    "000004012150490900000000000000000000000000000000000053030D0008000D00002710000000";

TEST(DefaultSetup, ReplacesTheImageWhole) {
    for (const std::string& before : {std::string(), std::string("short"), std::string(300, 'F')}) {
        SetupImage image{before};
        BuildDefaultSetup(image);
        EXPECT_EQ(image.SetupData, kDefaultText);
    }
}

}  // namespace
}  // namespace counter

#include "meter/default_setup.h"

#include <gtest/gtest.h>

#include "meter/derived_values.h"
#include "meter/value_codec.h"

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

TEST(DefaultSetup, IsARateOfTwoInputs) {
    SetupImage image;
    BuildDefaultSetup(image);
    DerivedValues values = DeriveFromImage(image, 83);
    EXPECT_EQ(values.InputOption, 1);
    EXPECT_EQ(values.ExtendedMeter, 1);
    EXPECT_EQ(values.ItemCount, 2);
    EXPECT_EQ(values.RelayOption, 1);
    EXPECT_EQ(values.AnalogOption, 2);
    EXPECT_EQ(ValueText(image, {}, 3, 43, 6), " +1.00000");
}

}  // namespace
}  // namespace counter

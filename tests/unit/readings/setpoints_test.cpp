// Which setpoints a chart shows.
#include "readings/setpoints.h"

#include <gtest/gtest.h>

#include "meter/default_setup.h"
#include "meter/field_code.h"
#include "meter/meter_words.h"

namespace counter::test {
namespace {

using Lines = std::vector<std::string>;

Lines Shown(const SetupImage& image, int item) {
    Lines lines;
    for (const ShownSetpoint& setpoint : SetpointsOf(image, 90, MeterKind::Counter, item))
        lines.push_back(std::to_string(setpoint.Alarm) + ": " + setpoint.Text);
    return lines;
}

TEST(Setpoints, AreThoseOfEnabledAlarmsThatWatchTheItem) {
    SetupImage image;
    BuildDefaultSetup(image);
    PutCode(image, Field::Mode, Mode::Rate);
    PutCode(image, Field::Function, Function::AandB);
    PutCode(image, Field::RelayOption, 1);  // four relays
    PutCode(image, Field::DecimalPoint1, 3);
    const Field sources[] = {Field::Alarm1Source, Field::Alarm2Source, Field::Alarm3Source,
                             Field::Alarm4Source};
    for (int i = 0; i < 4; ++i) PutCode(image, sources[i], i % 2 == 0 ? 1 : 2);
    for (Field state : {Field::Alarm1State, Field::Alarm2State, Field::Alarm3State, Field::Alarm4State})
        PutCode(image, state, 0);
    DigitsPut(image, RowOf(Field::Setpoint1).Pos, "0003E8");  // 1000 digits
    DigitsPut(image, RowOf(Field::Setpoint3).Pos, "FFFFF6");  // -10
    EXPECT_EQ(Shown(image, 1), (Lines{"1: 10.00", "3: -0.10"}));
    EXPECT_EQ(Shown(image, 2).size(), 2U);
    EXPECT_EQ(Shown(image, 3), Lines{});
    PutCode(image, Field::Alarm1State, 2);
    EXPECT_EQ(Shown(image, 1), Lines{"3: -0.10"}) << "the first is disabled";
    PutCode(image, Field::RelayOption, 2);
    EXPECT_EQ(Shown(image, 1), Lines{}) << "two relays";
    PutCode(image, Field::Alarm1State, 1);
    PutCode(image, Field::Alarm1Source, 0);
    EXPECT_EQ(Shown(image, 1), Lines{"1: 10.00"}) << "the filtered item";
}

}  // namespace
}  // namespace counter::test

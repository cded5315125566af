#include "meter/field_value.h"

#include <gtest/gtest.h>

#include "meter/default_setup.h"

namespace counter {
namespace {

SetupImage DefaultWith(int pos, std::string_view digits) {
    SetupImage image;
    BuildDefaultSetup(image);
    DigitsPut(image, pos, digits);
    return image;
}

TEST(FieldValue, ReadsAsPeopleSayIt) {
    // clang-format off
    const struct {
        const char* Name;
        int Pos;
        const char* Digits;
        Field Handle;
        const char* Text;
        bool IsNumber;
        int Number;
    } cases[] = {
        {"list",                       191, "50", Field::BaudRate,      "9600",              false,   5},
        {"code without entry",         191, "70", Field::BaudRate,      "7",                 true,    7},
        {"mode",                       199, "50", Field::Mode,          "Stopwatch",         false,   5},
        {"one more than the index",    189, "21", Field::Address,       "1",                 false,   1},
        {"point code 1",               151, "61", Field::DecimalPoint1, "111111.",           false,   1},
        {"input code 4",               193, "4C", Field::InputOption,   "V-F Converter",     false,   4},
        {"input code 3",               193, "4B", Field::InputOption,   "3",                 true,    3},
        {"relay code 3",               193, "60", Field::RelayOption,   "2-Relay Board",     false,   3},
        {"resolution 12",              155, "0C", Field::Resolution,    "100000",            false,  12},
        {"alarm state 3",              203, "03", Field::Alarm1State,   "Disabled",          false,   3},
        {"range code 3, unipolar",     167, "0C", Field::AnalogRange,   "4-20mA Current",    false,   3},
        {"control inputs 15",          197, "0F", Field::ControlInputs,
                                       "Item 2            Item 3              Function Reset", false, 15},
        {"hysteresis",                 201, "08", Field::Deviation1Type, "Split Hysteresis", false,   1},
        {"span of alarm 1",            201, "28", Field::Deviation1Type, "Span Hysteresis",  false,   1},
        {"carried byte",               153, "2E", Field::Carried153,    "2E",                false,   0},
    };
    // clang-format on
    for (const auto& c : cases) {
        FieldValue value = ValueOfField(DefaultWith(c.Pos, c.Digits), c.Handle);
        EXPECT_EQ(value.Text, c.Text) << c.Name;
        EXPECT_EQ(value.IsNumber, c.IsNumber) << c.Name;
        EXPECT_EQ(value.Number, c.Number) << c.Name;
    }
    SetupImage bipolar = DefaultWith(143, "03");
    DigitsPut(bipolar, 167, "0C");
    EXPECT_EQ(ValueOfField(bipolar, Field::AnalogRange).Text, "-10V to +10V");
}

// Digits at two positions of the default setup, and what a field then reads.
TEST(FieldValue, FollowsVersionDisplayAndMode) {
    // clang-format off
    const struct {
        const char* Name;
        int Pos1;
        const char* Digits1;
        int Pos2;
        const char* Digits2;
        Field Handle;
        const char* Text;
    } cases[] = {
        {"control inputs 8 before 78",  233, "4D", 197, "08", Field::ControlInputs,
                                        "Hold              External Gate       Function Reset"},
        {"control inputs 9 before 78",  233, "4D", 197, "09", Field::ControlInputs,
                                        "Peak or Valley    External Gate       No Action"},
        {"control inputs 8 from 78",    233, "4E", 197, "08", Field::ControlInputs,
                                        "Total A Reset     Total B Reset       Both A,B Reset"},
        {"tare on a remote display",    185, "64", 197, "0F", Field::ControlInputs,
                                        "Enable Tare       Tare if enabled     Tare"},
        {"hysteresis before 82",        233, "51", 201, "08", Field::Deviation1Type, "Hysteresis"},
        {"hysteresis of alarm 3",       233, "51", 229, "08", Field::Deviation3Type, "Hysteresis"},
        {"filtered item by its number", 199, "02", 169, "00", Field::Alarm1Source,   "Filtered Item3"},
        {"source that isn't offered",   199, "01", 169, "C0", Field::Alarm1Source,   "Item 1"},
        {"source of a remote display",  185, "64", 169, "40", Field::Alarm1Source,   "Item 3"},
        {"function by its name",        199, "0F", 185, "04", Field::Function,       "(A / B) -1"},
        {"function of another mode",    199, "24", 185, "04", Field::Function,       "A -B  UpDn"},
        {"function that doesn't exist", 199, "04", 185, "04", Field::Function,       "4"},
        {"clock of a stopwatch",        199, "50", 185, "54", Field::Offset2,        "+00. 00. 00"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SetupImage image = DefaultWith(c.Pos1, c.Digits1);
        DigitsPut(image, c.Pos2, c.Digits2);
        EXPECT_EQ(ValueOfField(image, c.Handle).Text, c.Text) << c.Name;
    }
    SetupImage clock = DefaultWith(199, "50");
    DigitsPut(clock, 185, "54");
    DigitsPut(clock, 37, "000E4D");
    EXPECT_EQ(ValueOfField(clock, Field::Offset1).Text, "+01. 01. 01");
    DigitsPut(clock, 199, "00");
    EXPECT_EQ(ValueOfField(clock, Field::Offset1).Text, "+00. 36. 61") << "a clock that is no stopwatch's";
}

TEST(FieldValue, TakesThePointOfTheSetupView) {
    // Decimal Point 1 is code 2 and 2 is code 5; alarm 1 has the filtered item, alarm 2 Item 1, alarm 3
    // Item 2, alarm 4 Item 3; the analog outputs have Item 2 and Item 1.
    // clang-format off
    const struct {
        const char *Name, *ModeAndFunction;
        Field Handle;
        const char* Text;
    } cases[] = {
        {"offset 2",                      "00", Field::Offset2,     "+00.0000"},
        {"preset",                        "24", Field::Preset,      "+00000.0"},
        {"group 2, layout 2",             "0B", Field::HighRead2,   "+01000.0"},
        {"group 2, layout 3",             "02", Field::HighRead2,   "+01.0000"},
        {"time out",                      "00", Field::TimeOut,     "003.00"},
        {"cutoff",                        "00", Field::CutoffValue, "1000.0"},
        {"alarm on the filtered item",    "02", Field::Setpoint1,   "+01.0000"},
        {"alarm on Item 1",               "02", Field::Setpoint2,   "+02000.0"},
        {"alarm on Item 2",               "02", Field::Setpoint3,   "+000000."},
        {"alarm on Item 3",               "02", Field::Deviation4,  "+00.0000"},
        {"alarm on Item 2 of two",        "00", Field::Setpoint3,   "+00.0000"},
        {"alarm on an item not offered",  "00", Field::Setpoint4,   "+00000.0"},
        {"analog output on Item 2",       "00", Field::AnalogHi,    "+01.0000"},
        {"analog output 2 on Item 1",     "00", Field::Analog2Hi,   "+01000.0"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SetupImage image = DefaultWith(151, "52");
        DigitsPut(image, 167, "12");
        DigitsPut(image, 169, "1B");
        DigitsPut(image, 199, c.ModeAndFunction);
        EXPECT_EQ(ValueOfField(image, c.Handle).Text, c.Text) << c.Name;
    }
}

TEST(FieldValue, TakesWhatAShortOrDamagedImageHas) {
    EXPECT_EQ(FieldDigits(DefaultWith(109, "2c"), Field::Parity), "2c");
    EXPECT_EQ(FieldDigits(SetupImage{std::string(206, '1')}, Field::Deviation4), "11");
    EXPECT_EQ(ValueOfField(SetupImage{std::string(120, '1')}, Field::Carried113).Text, "11111111");
}

TEST(FieldEqual, ComparesTheBitsOfTheFieldAlone) {
    SetupImage image = DefaultWith(199, "03");
    EXPECT_FALSE(FieldEqual(image, DefaultWith(199, "04"), Field::Function));
    EXPECT_TRUE(FieldEqual(image, DefaultWith(199, "53"), Field::Function)) << "only the Mode differs";
    EXPECT_FALSE(FieldEqual(image, DefaultWith(199, "53"), Field::Mode));
    EXPECT_FALSE(FieldEqual(image, DefaultWith(55, "002711"), Field::Setpoint1));
    EXPECT_FALSE(FieldEqual(image, DefaultWith(55, "802710"), Field::Setpoint1));
    EXPECT_FALSE(FieldEqual(image, DefaultWith(135, "01"), Field::Carried113)) << "last of 24 digits";
    EXPECT_FALSE(FieldEqual(DefaultWith(199, "G3"), DefaultWith(199, "00"), Field::Function));
    EXPECT_FALSE(FieldEqual(DefaultWith(199, "G3"), DefaultWith(199, "H3"), Field::Function));
    EXPECT_TRUE(FieldEqual(DefaultWith(199, "G3"), DefaultWith(199, "G3"), Field::Function));
    EXPECT_TRUE(FieldEqual(DefaultWith(199, "0a"), DefaultWith(199, "0A"), Field::Function));
    EXPECT_TRUE(FieldEqual(SetupImage{std::string(204, '0')}, SetupImage{}, Field::Setpoint3));
}

}  // namespace
}  // namespace counter

// Keys and arrows of digit entry: what each box admits, where point, focus and caret go.
#include <gtest/gtest.h>

#include "digit_entry/entry_desk.h"

namespace counter::test {
namespace {

constexpr FieldCase kSetpoint = {2, 55, " +0100.00"};
constexpr FieldCase kFreePoint = {4, 103, " +123.456"};

// Every character that a box takes of "+-0123456789", and a beep for all others.
TEST(BoxLimits, OnlyWhatTheMeterCouldShow) {
    const struct {
        const char* Name;
        FieldCase Field;
        int Box;
        const char* Takes;
    } cases[] = {
        // clang-format off
        {"type 0, first digit",       {0, 177, "000.10"},                    2, "01"},
        {"type 0 at position 145",    {0, 145, "10000."},                    2, "012345"},
        {"type 0 at position 25",     {0, 25, "10000."},                     2, "012345"},
        {"type 1, sign",              {1, 137, " -00100."},                  1, "+-"},
        {"type 1, first digit",       {1, 137, " -00100."},                  2, "012"},
        {"type 1, other digits",      {1, 137, " -00100."},                  6, "0123456789"},
        {"type 2, sign",              {2, 55, " +000000."},                  0, "+-"},
        {"type 2, third digit",       {2, 55, " +000000."},                  3, "0123456789"},
        {"clock, tens of minutes",    {2, 37, "+00. 00. 00", 1, 0, 0, 1, 5, 2}, 3, "012345"},
        {"clock, tens of seconds",    {2, 37, "+00. 00. 00", 1, 0, 0, 1, 5, 1}, 5, "012345"},
        {"scale, sign",               {3, 43, " +1.00000"},                  0, "+-"},
        {"level, sign",               {4, 103, " +123.456"},                 0, "+-"},
        {"level, digit",              {4, 103, " +123.456"},                 5, "0123456789"},
        {"byte, first digit",         {7, 111, "1"},                         4, "012"},
        {"byte, other digits",        {7, 111, "1"},                         5, "0123456789"},
        {"a type without limits",     {6, 111, "1"},                         3, "+-0123456789aA: "},
        // clang-format on
    };
    for (const auto& c : cases) {
        std::string takes;
        EntryDesk desk(c.Field);
        int beeps = 0;
        for (const char key : std::string("+-0123456789aA: ")) {
            desk.Dialog.FocusBox(c.Box);
            const std::string before = desk.Boxes();
            desk.Dialog.Key(key);
            const bool refused = desk.Dialog.Beeps() > beeps;
            if (!refused) takes += desk.Dialog.BoxText(c.Box)[0];
            EXPECT_EQ(desk.Dialog.FocusedBox() == c.Box, refused || c.Box == kLastBox) << c.Name << key;
            EXPECT_TRUE(!refused || desk.Boxes() == before) << c.Name << key;
            beeps = desk.Dialog.Beeps();
        }
        EXPECT_EQ(takes, c.Takes) << c.Name;
    }
}

TEST(Keys, TypeFromBoxToBox) {
    const struct {
        const char* Name;
        FieldCase Field;
        const char *Keys, *Boxes;
        int Focus, Caret, AtEnd, Beeps;
    } cases[] = {
        // clang-format off
        {"the point stays in its box",       kSetpoint,  ">>>>7",         "+ 0 1 0 7. 0 0", 5, 0, 0, 0},
        {"digits pass over the point",       kSetpoint,  "-987654",       "- 9 8 7 6. 5 4", 6, 1, 0, 0},
        {"the last box takes more keys",     kSetpoint,  "-98765432",     "- 9 8 7 6. 5 2", 6, 1, 0, 0},
        {"a point is swallowed silently",    kSetpoint,  "+.1..2",        "+ 1 2 0 0. 0 0", 3, 0, 0, 0},
        {"refused keys beep and stay",       kSetpoint,  "1x+-",          "+ 0 1 0 0. 0 0", 1, 0, 0, 3},
        {"right and left",                   kSetpoint,  ">><",           "+ 0 1 0 0. 0 0", 1, 0, 0, 0},
        {"right in box 6 moves the caret",   kSetpoint,  ">>>>>>>",       "+ 0 1 0 0. 0 0", 6, 1, 1, 0},
        {"left again only moves it back",    kSetpoint,  ">>>>>>><",      "+ 0 1 0 0. 0 0", 6, 0, 0, 0},
        {"and then goes to box 5",           kSetpoint,  ">>>>>>><<",     "+ 0 1 0 0. 0 0", 5, 0, 0, 0},
        {"the last digit is not remembered", kSetpoint,  "+123456<",      "+ 1 2 3 4. 5 6", 5, 0, 0, 0},
        {"left of the first box",            {0, 177, "000.10"}, "<",     "_ _ 0 0 0. 1 0", 2, 0, 0, 0},
        {"point behind the last box",        {2, 55, " +000000."}, "+123456", "+ 1 2 3 4 5 6.", 6, 0, 0, 0},
        {"scale stays at the start of 6",    {3, 43, " +1.00000"}, "-2345678", "- 2. 3 4 5 6 8", 6, 0, 0, 0},
        {"a byte has no point",              {7, 111, "1"}, "123",        "_ _ _ _ 1 2 3",  6, 0, 0, 0},
        {"clock keeps both points",          {2, 37, "+00. 00. 00", 1, 0, 0, 1, 5, 2}, "-112233",
                                                                          "- 1 1. 2 2. 3 3", 6, 1, 0, 0},
        {"a DecPt of 7 stands at the sign",  {2, 25, " +000000.", 7, 1}, "-1", "-. 1 0 0 0 0 0", 2, 0, 0, 0},
        {"fixed point of a V-F board",       {4, 103, " +12.3456", 1, 0, 0, 2}, "-.98.76",
                                                                          "- 9 8. 7 6 5 6", 5, 0, 0, 0},
        {"free: typed over is lost",         kFreePoint, "-987654",       "- 9 8 7 6 5 4",  6, 1, 1, 0},
        {"free: set before a digit",         kFreePoint, "+1.23456",      "+ 1 2 3 4 5 6",  6, 1, 1, 0},
        {"free: set behind a digit",         kFreePoint, "+98<.",         "+ 9 8. 3 4 5 6", 2, 0, 0, 0},
        {"free: the last one counts",        kFreePoint, ">>>.>>.",       "+ 1 2 3 4 5. 6", 5, 0, 0, 0},
        {"free: not behind the sign",        kFreePoint, ".",             "+ 1 2 3. 4 5 6", 0, 0, 0, 0},
        {"free: behind box 6",               kFreePoint, "+123456.",      "+ 1 2 3 4 5 6.", 6, 1, 1, 0},
        {"free: in front of box 6",          kFreePoint, ">>>>>>.",       "+ 1 2 3 4 5 6.", 6, 0, 0, 0},
        {"free: last digit is remembered",   kFreePoint, "+123456<",      "+ 1 2 3 4 5 6",  6, 0, 0, 0},
        // clang-format on
    };
    for (const auto& c : cases) {
        EntryDesk desk(c.Field);
        desk.Type(c.Keys);
        EXPECT_EQ(desk.Boxes(), c.Boxes) << c.Name;
        EXPECT_EQ(desk.Dialog.FocusedBox(), c.Focus) << c.Name;
        EXPECT_EQ(desk.Dialog.Caret(), c.Caret) << c.Name;
        EXPECT_EQ(desk.Shared.EntryAtEnd, c.AtEnd) << c.Name;
        EXPECT_EQ(desk.Dialog.Beeps(), c.Beeps) << c.Name;
    }
}

// A "." on the OK button ends the digits of a level with a character of code 0.
TEST(OkButton, APointIsSetBehindACharacterOfCode0) {
    EntryDesk desk(kFreePoint);
    desk.Dialog.KeyOnOk('5');
    EXPECT_EQ(desk.Boxes(), "+ 1 2 3. 4 5 6");
    desk.Dialog.KeyOnOk('.');
    EXPECT_EQ(desk.Boxes(), std::string("+ 1 2 3 4 5 \0.", 14));
    desk.Dialog.Ok();
    EXPECT_EQ(desk.Digits(103), "103039") << "12345 with the point behind it";
    EntryDesk setpoint(kSetpoint);
    setpoint.Dialog.KeyOnOk('.');
    EXPECT_EQ(setpoint.Boxes(), "+ 0 1 0 0. 0 0");
}

}  // namespace
}  // namespace counter::test

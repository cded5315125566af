// Opening and leaving digit entry: what is in the boxes, what reaches the image and the field.
#include "digit_entry/digit_entry.h"

#include <gtest/gtest.h>

#include <random>

#include "digit_entry/entry_desk.h"
#include "meter/value_codec.h"

namespace counter::test {
namespace {

constexpr FieldCase kClock = {2, 37, "+00. 00. 00", 1, 0, 0, 1, 5, 2};

TEST(OpenDigitEntry, SpreadsTheTextOverTheBoxes) {
    const struct {
        const char* Name;
        FieldCase Field;
        const char* Boxes;
        int Focus, EntryDecimal;
        const char* Marks;
    } cases[] = {
        // clang-format off
        {"gate time",             {0, 177, "000.10"},                     "_ _ 0 0 0. 1 0",  2, 3, "2"},
        {"pulses per revolution", {0, 161, "01024."},                     "_ _ 0 1 0 2 4.",  2, 1, "0"},
        {"cutoff value",          {0, 145, "100.00", 4, 0, 1},            "_ _ 1 0. 0 0 0",  2, 4, "3"},
        {"gate time at cutoff",   {0, 177, "000.10", 1, 0, 1},            "_ _ 0 0 0. 1 0",  2, 3, "2"},
        {"time out at cutoff",    {0, 173, "002.00", 6, 0, 1},            "_ _ 0 0 2. 0 0",  2, 3, "2"},
        {"calibration",           {1, 137, " -00100."},                   "_ - 0 0 1. 0 0",  1, 3, "2"},
        {"calibration at cutoff", {1, 137, " -00100.", 1, 0, 1},          "_ - 0 0 1 0 0.",  1, 1, "0"},
        {"setpoint",              {2, 55, " +010000."},                   "+ 0 1 0 0 0 0.",  0, 1, "0"},
        {"its own two decimals",  {2, 55, " -0123.45", 6},                "- 0 1 2 3. 4 5",  0, 3, "2"},
        {"preset follows DecPt1", {2, 25, " +0123.45", 4, 1},             "+ 0 1 2. 3 4 5",  0, 4, "3"},
        {"no point at all",       {2, 55, " +123456"},                    "+ 1 2 3 4 5 6.",  0, 1, "0"},
        {"scale",                 {3, 43, " +1.00000"},                   "+ 1. 0 0 0 0 0",  0, 6, "5"},
        {"clock",                 {2, 37, "+12. 34. 56", 1, 0, 0, 1, 5, 2}, "+ 1 2. 3 4. 5 6", 0, 5, "4"},
        {"level, free point",     {4, 103, " -074.565"},                  "- 0 7 4. 5 6 5",  0, 4, ""},
        {"level, point at end",   {4, 103, " +010000."},                  "+ 0 1 0 0 0 0.",  0, 1, ""},
        {"level, no point",       {4, 103, " +123456"},                   "+ 1 2 3 4 5 6.",  0, 1, ""},
        {"level of a V-F board",  {4, 103, " +07.4565", 1, 0, 0, 2},      "+ 0 7. 4 5 6 5",  0, 5, ""},
        {"the same in Mode 9",    {4, 103, " +0.74565", 1, 0, 0, 2, 9},   "+ 0. 7 4 5 6 5",  0, 6, ""},
        {"byte",                  {7, 111, "7"},                          "_ _ _ _ 0 0 7",   4, 1, "0"},
        {"a type without fields", {5, 111, "123"},                        "_ _ _ _ _ _ _",   0, 0, ""},
        // clang-format on
    };
    for (const auto& c : cases) {
        EntryDesk desk(c.Field);
        EXPECT_EQ(desk.Boxes(), c.Boxes) << c.Name;
        EXPECT_EQ(desk.Dialog.FocusedBox(), c.Focus) << c.Name;
        EXPECT_EQ(desk.Shared.EntryDecimal, c.EntryDecimal) << c.Name;
        EXPECT_EQ(desk.Marks(), c.Marks) << c.Name;
        for (int box = 0; box < kDigitBoxes; ++box) {
            EXPECT_EQ(desk.Dialog.Controls.Find("txtDigit", box)->Enabled, box >= c.Focus) << c.Name << box;
        }
    }
}

// clang-format off
TEST(OpenDigitEntry, ItsTitleSaysTheRangeAndAKeyThatOpenedItIsTyped) {
    const struct {
        FieldCase Field;
        const char* Title;
        char Key;
        const char* Boxes;
        int RefusedBox;  // -1: it was taken
    } cases[] = {
        {{0, 177, "000.10"},                       "Enter Decimal Value - Gate Time, 0.00 to 199.99 seconds", '1', "_ _ 1 0 0. 1 0", -1},
        {{0, 177, "000.10"},                       "Enter Decimal Value - Gate Time, 0.00 to 199.99 seconds", '5', "_ _ 0 0 0. 1 0", 2},
        {{1, 137, " -00100."},                     "Enter Decimal Value - Gate Time, -299.99 to +299.99",     '2', "_ - 2 0 1. 0 0", -1},
        {{2, 55, " -0123.45", 6},                  "Enter Decimal Value - Gate Time, -9999.99 to +9999.99",   '7', "- 7 1 2 3. 4 5", -1},
        {{2, 55, " -0123.45", 6},                  "Enter Decimal Value - Gate Time, -9999.99 to +9999.99",   '+', "+ 0 1 2 3. 4 5", -1},
        {{2, 37, "+12. 34. 56", 1, 0, 0, 1, 5, 2}, "Enter Decimal Value - Gate Time, -99:59:59 to +99:59:59 as hours, minutes, seconds", '9', "+ 9 2. 3 4. 5 6", -1},
        {{4, 103, " -074.565"},                    "Enter Decimal Value - Gate Time, -999999 to +999999 with a point anywhere", '8', "- 8 7 4. 5 6 5", -1},
        {{7, 111, "7"},                            "Enter Decimal Value - Gate Time, 0 to 255",               '9', "_ _ _ _ 0 0 7", 4},
    };
    // clang-format on
    for (const auto& c : cases) {
        EntryDesk desk(c.Field);
        Control frame;
        frame.Caption = "Gate Time";
        desk.Target.Container = &frame;
        desk.Open(c.Field);
        EXPECT_EQ(desk.Dialog.Title(), c.Title);
        desk.Dialog.FirstKey(c.Key);
        EXPECT_EQ(desk.Boxes(), c.Boxes) << c.Title << c.Key;
        EXPECT_EQ(desk.Dialog.Beeps() > 0 ? desk.Dialog.RefusedBox() : -1, c.RefusedBox) << c.Title << c.Key;
    }
}

TEST(StoreDigits, WritesImageAndField) {
    const struct {
        const char* Name;
        FieldCase Field;
        const char *Keys, *Digits, *FieldText;
    } cases[] = {
        // clang-format off
        {"gate time at its limit", {0, 177, "000.10"},                  "19999",    "4E1F",   "199.99"},
        {"cutoff at its limit",    {0, 145, "10000.", 1, 0, 1},         "59999",    "EA5F",   "59999."},
        {"calibration",            {1, 137, " -00100."},                "+00250",   "00FA",   " +002.50"},
        {"its negative zero",      {1, 137, " -00100."},                "-00000",   "8000",   " -000.00"},
        {"setpoint",               {2, 55, " +010000."},                "-000001",  "FFFFFF", " -000001."},
        {"no negative zero",       {2, 55, " +010000."},                "-000000",  "000000", " -000000."},
        {"point stays",            {2, 55, " +0100.00"},                "+123456",  "01E240", " +1234.56"},
        {"scale",                  {3, 43, " +1.00000"},                "-1",       "8186A0", " -1.00000"},
        {"level, moved point",     {4, 103, " +010000."},               "+123456<<<<.", "41E240", " +123.456"},
        {"level, point lost",      {4, 103, " +123.456"},               "-123456",  "E1E240", " -123456"},
        {"level of a V-F board",   {4, 103, " +00.0000", 1, 0, 0, 2},   "+1.23456", "51E240", " +12.3456"},
        {"seconds of a clock",     {2, 37, "+00. 00. 00", 1, 0, 0, 1, 5, 2}, "+010203", "000E8B", " +010203"},
        {"clock as a number",      {2, 25, "+00. 00. 00", 1, 0, 0, 1, 5, 1}, "+010203", "0027DB", " +010203"},
        {"byte",                   {7, 111, "1"},                       "255",      "FF",     "255"},
        {"byte, zeros dropped",    {7, 111, "1"},                       "007",      "07",     "7"},
        {"byte of zero",           {7, 111, "1"},                       "000",      "00",     "0"},
        // clang-format on
    };
    for (const auto& c : cases) {
        EntryDesk desk(c.Field);
        EXPECT_EQ(desk.Target.BackColor, ColorLightGreen) << c.Name;
        desk.Type(c.Keys);
        desk.Dialog.Ok();
        const std::string digits = c.Digits;
        EXPECT_EQ(desk.Digits(c.Field.Pos, static_cast<int>(digits.size())), digits) << c.Name;
        EXPECT_EQ(desk.Target.Text, c.FieldText) << c.Name;
        EXPECT_EQ(desk.Target.BackColor, ColorWhite) << c.Name;
        EXPECT_EQ(desk.Dialog.Beeps(), 0) << c.Name;
    }
}

// Leaving: OK, Cancel and Enter differ in what they store and what is left after them.
TEST(Leaving, OkStoresAndCloses) {
    EntryDesk desk(kClock);
    EXPECT_EQ(desk.Shared.EntryReturn, 1);
    desk.Shared.SetupRefreshOn = false;
    std::string told;
    desk.Dialog.Controls.Changed = [&] { told += desk.Dialog.Shown() ? "up " : "hidden "; };
    desk.Dialog.ShowHourglass = [&](bool shown) { told += shown ? "hourglass " : "done "; };
    EXPECT_EQ(desk.Pump.Took([&] { desk.Dialog.Controls.Click(*desk.Dialog.Controls.Find("cmdOK")); }), 10);
    EXPECT_EQ(told, "hidden hidden ");
    desk.Open(kClock);
    desk.State.EthernetMode = true;
    told.clear();
    EXPECT_EQ(desk.Pump.Took([&] { desk.Dialog.Ok(); }), 1010);
    EXPECT_EQ(told, "hidden hourglass done ");
    EXPECT_FALSE(desk.Dialog.Shown());
    EXPECT_EQ(desk.Shared.EntryReturn, 1);
    EXPECT_EQ(desk.Derived.TimeEntry, 0);
    EXPECT_TRUE(desk.Shared.SetupRefreshOn);
}

TEST(Leaving, CancelStoresNothing) {
    EntryDesk desk(kClock);
    const std::string before = desk.Image.SetupData;
    desk.Type("-112233");
    desk.Dialog.Controls.Click(*desk.Dialog.Controls.Find("cmdCancel"));
    EXPECT_FALSE(desk.Dialog.Shown());
    EXPECT_EQ(desk.Image.SetupData, before);
    EXPECT_EQ(desk.Target.Text, "+00. 00. 00");
    EXPECT_EQ(desk.Target.BackColor, ColorWhite);
    EXPECT_EQ(desk.Shared.EntryReturn, 1);
    EXPECT_EQ(desk.Derived.TimeEntry, 2) << "stays, for the refresh to clear";
}

TEST(Leaving, EnterStoresAndStaysUp) {
    EntryDesk desk(kClock);
    desk.Type("+010203~");
    EXPECT_TRUE(desk.Dialog.Shown());
    EXPECT_EQ(desk.Digits(37), "000E8B");
    EXPECT_EQ(desk.Shared.EntryReturn, 0);
    EXPECT_EQ(desk.Derived.TimeEntry, 0);
    desk.Dialog.Cancel();
    EXPECT_EQ(desk.Digits(37), "000E8B") << "Cancel does not undo Enter";
    EXPECT_EQ(desk.Shared.EntryReturn, 1);
    for (const char* keys : {"+010203~", "+010203~~", "+010203~<>+"}) {
        desk.Open(kClock);
        desk.Type(keys);
        desk.Dialog.Ok();
        EXPECT_EQ(desk.Digits(37), "000E8B") << keys << ": nothing was touched since Enter";
        EXPECT_EQ(desk.Target.Text, " +010203") << keys;
        EXPECT_EQ(desk.Shared.EntryReturn, 1);
    }
    desk.Open(kClock);
    desk.Type("+010203~+010204");
    desk.Dialog.Ok();
    EXPECT_EQ(desk.Digits(37), "0027DC") << "behind Enter the clock value is a plain number";
    EXPECT_EQ(desk.Target.Text, " +01.0204") << "with its first point alone";
}

TEST(Leaving, HelpClosesAndLetsTheViewBeBuiltAnew) {
    EntryDesk desk({2, 55, " +010000."});
    const std::string before = desk.Image.SetupData;
    desk.Target.HelpNumber = 1150;
    int shown = 0;
    desk.Dialog.OpenHelp = [&](int number) { shown = number; };
    desk.Type("-1");
    desk.Dialog.HelpKey();
    EXPECT_EQ(shown, 1150);
    EXPECT_FALSE(desk.Dialog.Shown());
    EXPECT_EQ(desk.Shared.EntryReturn, 0);
    EXPECT_EQ(desk.Target.BackColor, ColorWhite);
    EXPECT_EQ(desk.Image.SetupData, before);
}

TEST(Leaving, AByteOf256OrMoreKeepsTheDialog) {
    for (const char* keys : {"256", "299"}) {
        EntryDesk desk({7, 111, "1"});
        desk.Shared.EntryByte = 35;
        desk.Type(keys);
        desk.Dialog.Ok();
        EXPECT_TRUE(desk.Dialog.Shown()) << keys;
        EXPECT_EQ(desk.Dialog.Beeps(), 1) << keys;
        EXPECT_EQ(desk.Dialog.FocusedBox(), 4) << keys;
        EXPECT_EQ(desk.Digits(111, 2), "01") << keys;
        EXPECT_EQ(desk.Target.Text, "1") << keys;
        EXPECT_EQ(desk.Shared.EntryByte, 35) << keys;
        desk.Type("255");
        desk.Dialog.Ok();
        EXPECT_FALSE(desk.Dialog.Shown()) << keys;
        EXPECT_EQ(desk.Shared.EntryByte, 255) << keys;
    }
}

// Every value that a field can show comes back as it was stored.
TEST(RoundTrip, OpeningAndOkChangeNothing) {
    // clang-format off
    const struct { int Type, Pos, Digits, Most, TimeEntry; } kinds[] = {
        {0, 177, 4, 19999, 0}, {1, 137, 4, 29999, 0}, {2, 55, 6, 999999, 0}, {3, 43, 6, 999999, 0},
        {4, 103, 6, 999999, 0}, {2, 37, 6, 99 * 3600 + 3599, 2}};
    // clang-format on
    EntryDesk desk({});
    std::mt19937 random(62);
    for (int i = 0; i < 20000; ++i) {
        const auto& kind = kinds[random() % std::size(kinds)];
        auto number = static_cast<unsigned>(random() % static_cast<unsigned>(kind.Most + 1));
        const int point = static_cast<int>(random() % 6) + 1;
        const bool negative = kind.TimeEntry == 0 && random() % 2 == 0;
        if (kind.Type == 1 && negative) number += 0x8000;
        if (kind.Type == 2 && negative) number = (0 - number) & 0xFFFFFF;
        if (kind.Type >= 3 && negative) number += 0x800000;
        if (kind.Type == 4) number += static_cast<unsigned>(point) << 20;
        char digits[16];
        std::snprintf(digits, sizeof digits, "%0*X", kind.Digits, number);
        DigitsPut(desk.Image, kind.Pos, digits);
        const ValueContext context{1, 0, kind.TimeEntry};
        std::string text = ValueText(desk.Image, context, kind.Type, kind.Pos, kind.Type == 3 ? 6 : point);
        if (kind.TimeEntry == 2) text = AddClkDP(WithoutBlanksAndPoints(text));
        desk.Open({kind.Type, kind.Pos, text.c_str(), 1, 0, 0, 1, 0, kind.TimeEntry});
        desk.Dialog.Ok();
        ASSERT_EQ(desk.Digits(kind.Pos, kind.Digits), digits) << "type " << kind.Type << ", " << text;
    }
}

}  // namespace
}  // namespace counter::test

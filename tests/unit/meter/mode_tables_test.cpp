#include "meter/mode_tables.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "meter/derived_values.h"

namespace counter {
namespace {

struct Pair {
    int Mode, Function;
    const char* Name;
    int Word, Level, Filter;
    const char* Flags;  // C curve, B inner slope B, 2 two items, R square root, T time out
    std::vector<int> Items;
    std::vector<int> Source;  // rule, filtered item, items
};

// clang-format off
const Pair kPairs[] = {
    { 0,  0, "A, B",            0x4144, 0, 1, "2T",  {0, 1},        {0, 1, 2}},
    { 0,  1, "A Only",          0x4294, 0, 1, "CRT", {0},           {0, 1, 1}},
    { 0,  2, " Batch",          0x030F, 3, 3, "",    {4, 6, 0},     {0, 3, 3}},
    { 0,  3, "A, A Total",      0x4494, 0, 1, "CRT", {0, 4},        {3, 1, 2}},
    { 0, 11, "A + B",           0x4606, 2, 1, "T",   {7, 0, 1},     {0, 1, 3}},
    { 2,  4, "A -B  UpDn",      0x1330, 0, 0, "CB",  {16},          {0, 0, 1}},
    { 2,  6, " Burst",          0x5409, 1, 2, "T",   {4, 0},        {0, 2, 2}},
    { 2, 10, "A, B InhibitCtl", 0x1710, 0, 0, "C",   {18},          {2, 0, 1}},
    { 3,  0, "None",            0x0000, 0, 0, "",    {0},           {0, 0, 0}},
    { 4,  2, " 1/AB ",          0x0000, 0, 0, "",    {0},           {0, 1, 1}},
    { 5,  1, "A to B",          0x1E20, 0, 0, "B",   {25, 48},      {3, 0, 2}},
    { 6,  2, "A to B (+-180)",  0x6024, 0, 1, "BT",  {27},          {0, 1, 1}},
    { 8,  2, " Batch",          0x630F, 3, 3, "T",   {29, 31, 4},   {0, 3, 3}},
    { 8,  8, "",                0x2519, 1, 2, "C",   {30, 0},       {0, 0, 0}},
    { 9,  3, "A, A Total",      0x2994, 0, 1, "CR",  {34, 4},       {3, 1, 2}},
    {12,  1, "Rate",            0x7206, 2, 1, "T",   {45, 46, 47},  {0, 1, 1}},
};
// clang-format on

std::string FlagsOf(int word) {
    std::string flags;
    if (word & kWordCurve) flags += 'C';
    if (word & kWordInnerSlopeB) flags += 'B';
    if (word & kWordTwoItems) flags += '2';
    if (word & kWordSquareRoot) flags += 'R';
    if (word & kWordTimeOut) flags += 'T';
    return flags;
}

std::vector<int> ItemsOf(const Pair& pair) {
    DerivedValues values{0, pair.Mode, pair.Function};
    values.ModeWord = ModeWordOf(pair.Mode, pair.Function, 76);
    ItemLevelUpdate(values);
    const auto& row = ItemRows.at(static_cast<std::size_t>(ItemRowOfWord(values.ModeWord)));
    return {row.begin(), row.begin() + values.ItemCount};
}

TEST(ModeTables, HoldEachPair) {
    for (const Pair& p : kPairs) {
        SCOPED_TRACE("Mode " + std::to_string(p.Mode) + ", Function " + std::to_string(p.Function));
        int word = ModeWordOf(p.Mode, p.Function, 76);
        EXPECT_EQ(FunctionName(p.Mode, p.Function), p.Name);
        EXPECT_EQ(word, p.Word);
        EXPECT_EQ(LayoutOfWord(word), p.Level);
        EXPECT_EQ(FilterItemOfWord(word), p.Filter);
        EXPECT_EQ(FlagsOf(word), p.Flags);
        EXPECT_EQ(ItemsOf(p), p.Items);
        SourceCode source = EntryOf(SourceTable, p.Mode, p.Function);
        EXPECT_EQ((std::vector<int>{source.Rule, source.FilteredItem, source.Items}), p.Source);
    }
}

unsigned DigestOf(const std::string& text) {
    unsigned digest = 2166136261U;
    for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * 16777619U;
    return digest;
}

// Names, words and sources of all pairs, and the items of all rows, as they were reviewed against the meter's
// own list.
TEST(ModeTables, AllPairsAreTheReviewedOnes) {
    std::string all;
    for (int mode = -1; mode < 17; ++mode) {
        for (int function = -1; function < 17; ++function) {
            const SourceCode source = EntryOf(SourceTable, mode, function);
            const int sources = 100 * source.Rule + 10 * source.FilteredItem + source.Items;
            const int word = ModeWordOf(mode, function, 83);
            all += std::string(FunctionName(mode, function)) + "/" + std::to_string(word) + "/" +
                   std::to_string(sources) + ";";
        }
    }
    EXPECT_EQ(DigestOf(all), 2715594866U) << all;
    std::string items;
    for (const std::string_view name : ItemNames) items += std::string(name) + ";";
    for (const auto& row : ItemRows)
        for (const int item : row) items += std::to_string(item) + ";";
    EXPECT_EQ(DigestOf(items), 1927166886U) << items;
}

TEST(ModeTables, PhaseHasItsCurveAbove76) {
    EXPECT_EQ(ModeWordOf(6, 2, 76), 0x6024);
    EXPECT_EQ(ModeWordOf(6, 2, 77), 0x6034);
    EXPECT_EQ(ModeWordOf(6, 1, 77), 0x5F24);
}

TEST(ModeTables, SpellNamesAsShown) {
    EXPECT_EQ(ModeNames[9], "VF 0-1 mA");
    EXPECT_EQ(ModeNames[11], "");
    EXPECT_EQ(ItemNames[23], " Time Inteval A to B");
    EXPECT_EQ(ItemNames[42], " # Batches");
}

}  // namespace
}  // namespace counter

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
    { 0,  5, "A, B Total",      0x4544, 0, 1, "2T",  {0, 5},        {0, 1, 2}},
    { 0, 11, "A + B",           0x4606, 2, 1, "T",   {7, 0, 1},     {0, 1, 3}},
    { 0, 12, "A - B",           0x4706, 2, 1, "T",   {8, 0, 1},     {0, 1, 3}},
    { 0, 13, "A X B",           0x4806, 2, 1, "T",   {9, 0, 1},     {0, 1, 3}},
    { 0, 14, "A / B",           0x4906, 2, 1, "T",   {10, 0, 1},    {0, 1, 3}},
    { 0, 15, "(A / B) -1",      0x4A06, 2, 1, "T",   {11, 0, 1},    {0, 1, 3}},
    { 1,  0, "A, B",            0x4B44, 0, 1, "2T",  {2, 3},        {0, 1, 2}},
    { 1,  1, "A Only",          0x4C94, 0, 1, "CRT", {2},           {0, 1, 1}},
    { 1, 11, "A + B",           0x4D06, 2, 1, "T",   {12, 2, 3},    {0, 1, 3}},
    { 1, 12, "A - B",           0x4E06, 2, 1, "T",   {13, 2, 3},    {0, 1, 3}},
    { 1, 13, "A X B",           0x4F06, 2, 1, "T",   {14, 2, 3},    {0, 1, 3}},
    { 1, 14, "A / B",           0x5006, 2, 1, "T",   {15, 2, 3},    {0, 1, 3}},
    { 2,  0, "A, B",            0x1140, 0, 0, "2",   {4, 5},        {0, 0, 2}},
    { 2,  1, "A Only",          0x1210, 0, 0, "C",   {4},           {2, 0, 1}},
    { 2,  4, "A -B  UpDn",      0x1330, 0, 0, "CB",  {16},          {0, 0, 1}},
    { 2,  6, " Burst",          0x5409, 1, 2, "T",   {4, 0},        {0, 2, 2}},
    { 2,  7, "B, A Rate",       0x5509, 1, 2, "T",   {5, 0},        {0, 2, 2}},
    { 2,  9, "A, B UpDnCtl",    0x1610, 0, 0, "C",   {17},          {0, 0, 1}},
    { 2, 10, "A, B InhibitCtl", 0x1710, 0, 0, "C",   {18},          {2, 0, 1}},
    { 2, 11, "A + B",           0x1802, 2, 0, "",    {19, 4, 5},    {0, 0, 3}},
    { 2, 12, "A - B",           0x1902, 2, 0, "",    {20, 4, 5},    {0, 0, 3}},
    { 2, 13, "A X B",           0x1A02, 2, 0, "",    {21, 4, 5},    {0, 0, 3}},
    { 2, 14, "A / B",           0x1B02, 2, 0, "",    {22, 4, 5},    {0, 0, 3}},
    { 3,  0, "None",            0x0000, 0, 0, "",    {0},           {0, 0, 0}},
    { 4,  1, "A to B",          0x5C24, 0, 1, "BT",  {23},          {0, 1, 1}},
    { 4,  2, " 1/AB ",          0x0000, 0, 0, "",    {0},           {0, 1, 1}},
    { 5,  0, "A to A",          0x1D00, 0, 0, "",    {24, 48},      {3, 0, 2}},
    { 5,  1, "A to B",          0x1E20, 0, 0, "B",   {25, 48},      {3, 0, 2}},
    { 5,  2, " 1/AA ",          0x0000, 0, 0, "",    {0, 0},        {3, 0, 2}},
    { 5,  3, " 1/AB ",          0x0000, 0, 0, "",    {0, 0},        {3, 0, 2}},
    { 6,  1, "A to B (0-360)",  0x5F24, 0, 1, "BT",  {26},          {0, 1, 1}},
    { 6,  2, "A to B (+-180)",  0x6024, 0, 1, "BT",  {27},          {0, 1, 1}},
    { 7,  1, "(A to B)/A",      0x6124, 0, 1, "BT",  {28},          {0, 1, 1}},
    { 8,  1, "A Only",          0x2294, 0, 1, "CR",  {29},          {0, 1, 1}},
    { 8,  2, " Batch",          0x630F, 3, 3, "T",   {29, 31, 4},   {0, 3, 3}},
    { 8,  3, "A, A Total",      0x2494, 0, 1, "CR",  {29, 4},       {3, 1, 2}},
    { 8,  8, "",                0x2519, 1, 2, "C",   {30, 0},       {0, 0, 0}},
    { 8, 15, "1/(A Rate)",      0x2694, 0, 1, "CR",  {33},          {0, 1, 1}},
    { 9,  1, "A Only",          0x2794, 0, 1, "CR",  {34},          {0, 1, 1}},
    { 9,  2, " Batch",          0x680F, 3, 3, "T",   {34, 36, 4},   {0, 3, 3}},
    { 9,  3, "A, A Total",      0x2994, 0, 1, "CR",  {34, 4},       {3, 1, 2}},
    { 9,  8, "",                0x2A19, 1, 2, "C",   {35, 0},       {0, 0, 0}},
    { 9, 15, "1/(A Rate)",      0x2B94, 0, 1, "CR",  {38},          {0, 1, 1}},
    {10,  1, "A Only",          0x2C94, 0, 1, "CR",  {39},          {0, 1, 1}},
    {10,  2, " Batch",          0x6D0F, 3, 3, "T",   {39, 41, 4},   {0, 3, 3}},
    {10,  3, "A, A Total",      0x2E94, 0, 1, "CR",  {39, 4},       {3, 1, 2}},
    {10,  8, "",                0x2F19, 1, 2, "C",   {40, 0},       {0, 0, 0}},
    {10, 15, "1/(A Rate)",      0x3094, 0, 1, "CR",  {43},          {0, 1, 1}},
    {12,  0, "Total",           0x3100, 0, 0, "",    {44},          {0, 0, 1}},
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

TEST(ModeTables, HoldNothingElse) {
    std::size_t pairs = 0;
    for (int mode = -1; mode < 17; ++mode) {
        for (int function = -1; function < 17; ++function) {
            SourceCode source = EntryOf(SourceTable, mode, function);
            bool empty = FunctionName(mode, function).empty() && ModeWordOf(mode, function, 83) == 0;
            pairs += empty ? 0 : 1;
            EXPECT_TRUE(!empty || source.Rule + source.FilteredItem + source.Items == 0)
                << mode << " " << function;
        }
    }
    EXPECT_EQ(pairs, std::size(kPairs));
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

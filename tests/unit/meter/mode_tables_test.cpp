#include "meter/mode_tables.h"

#include <gtest/gtest.h>

#include "meter/derived_values.h"

namespace counter {
namespace {

// A number for a long text that was reviewed: another number means another text, to be reviewed again.
unsigned DigestOf(const std::string& text) {
    unsigned digest = 2166136261U;
    for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * 16777619U;
    return digest;
}

// What each pair is called, has for items and may be a source of, with its flags, as it was reviewed against
// the meter's own list; the words of version 76 too, which has no curve of phase.
TEST(ModeTables, AllPairsAreTheReviewedOnes) {
    std::string all;
    for (int mode = -1; mode < 17; ++mode) {
        for (int function = -1; function < 17; ++function) {
            DerivedValues values{0, mode, function};
            const int word = values.ModeWord = ModeWordOf(mode, function, 83);
            ItemLevelUpdate(values);
            const SourceCode source = EntryOf(SourceTable, mode, function);
            all += std::string(FunctionName(mode, function));
            for (const int number :
                 {word, ModeWordOf(mode, function, 76), LayoutOfWord(word), FilterItemOfWord(word),
                  ItemRowOfWord(word), values.ItemCount, word & kWordCurve, word & kWordInnerSlopeB,
                  word & kWordTwoItems, word & kWordSquareRoot, word & kWordTimeOut, source.Rule,
                  source.FilteredItem, source.Items})
                all += "/" + std::to_string(number);
            all += "\n";
        }
    }
    EXPECT_EQ(DigestOf(all), 1503359091U) << all;
    std::string items;
    for (const std::string_view name : ModeNames) items += std::string(name) + ";";
    for (const std::string_view name : ItemNames) items += std::string(name) + ";";
    for (const auto& row : ItemRows)
        for (const int item : row) items += std::to_string(item) + ";";
    EXPECT_EQ(DigestOf(items), 813814407U) << items;
}

}  // namespace
}  // namespace counter

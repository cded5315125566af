// A line of values cut at its sign places, for every number of items and for widths that no meter has.
#include "commands/active_items.h"

#include <gtest/gtest.h>

namespace counter::test {
namespace {

TEST(SplitActiveItems, CutsAtTheSignPlaces) {
    const std::string sevens(250, '7');
    const struct {
        const char* Name;
        std::string Line;
        bool WithPeakValley;
        std::string Values;
    } cases[] = {
        // clang-format off
        {"nothing came",            "",                                              false, "[][][][][]"},
        {"one",                     " 12345.67",                                     false, "[ 12345.67][][][][]"},
        {"two",                     " 12345.67-00001.50",                            false, "[ 12345.67][-00001.50][][][]"},
        {"three",                   "-12345.67 00001.50-00002.25",                   false, "[-12345.67][ 00001.50][-00002.25][][]"},
        {"three narrow, count 1",   " 1-2 3",                                        false, "[ 1][-2 3][][][]"},
        {"ten wide",                " 12345678.-1234567.8",                          false, "[ 12345678.][-1234567.8][][][]"},
        {"minus behind a blank",    " -1",                                           false, "[ ][-1][][][]"},
        {"no separator",            " 123456789012345678901",                        false, "[ 123456789012345678901][][][][]"},
        {"a hundred is the most",   sevens,                                          false, "[" + sevens.substr(150) + "][" + sevens.substr(150) + "][" + sevens.substr(200) + "][][]"},
        {"item 1, peak, valley",    " 12345.67 99999.99-00000.01",                   true,  "[ 12345.67][][][ 99999.99][-00000.01]"},
        {"two items",               " 12345.67-00001.50 99999.99-00000.01",          true,  "[ 12345.67][-00001.50][][ 99999.99][-00000.01]"},
        {"three items",             " 12345.67-00001.50 00002.25 99999.99-00000.01", true,  "[ 12345.67][-00001.50][ 00002.25][ 99999.99][-00000.01]"},
        {"seven wide, count 3",     " 12345. 12346. 12347. 12348.",                  true,  "[ 12345.][][][ 12346.][ 12347.]"},
        {"peak and valley missing", " 12345.67",                                     true,  "[ 12345.67][][][][]"},
        {"seven values",            " 1234567-2234567 3234567-4234567 5234567-6234567 7234567", true,  "[ 1234567][-2234567][ 3234567][-4234567][ 5234567]"},
        {"the same without",        " 1234567-2234567 3234567-4234567 5234567-6234567 7234567", false, "[ 1234567][-2234567][ 3234567][-4234567][ 5234567]"},
        // clang-format on
    };
    for (const auto& c : cases) {
        const ActiveItems values = SplitActiveItems(c.Line, c.WithPeakValley).Values;
        std::string text;
        for (std::size_t number = 1; number < values.size(); ++number) text += "[" + values[number] + "]";
        EXPECT_EQ(text, c.Values) << c.Name;
    }
    EXPECT_EQ(SplitActiveItems(" 12345. 12346. 12347. 12348.", true).Rest, " 12348.");
}

}  // namespace
}  // namespace counter::test

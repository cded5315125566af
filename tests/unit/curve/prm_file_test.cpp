// Items of .PRM files, whoever wrote them.
#include "curve/prm_file.h"

#include <gtest/gtest.h>

namespace counter::test {
namespace {

TEST(Prm, ItemsEndAtCommasAndLineEnds) {
    const std::string most(512, 'A'), giant(10'000'000, 'A');
    const struct {
        const char* Name;
        std::string Content, Items;
    } cases[] = {
        // clang-format off
        {"CR LF",                "12AB\r\n34CD\r\n",    "12AB|34CD"},
        {"LF",                   "12AB\n34CD\n",        "12AB|34CD"},
        {"CR",                   "12AB\r34CD\r",        "12AB|34CD"},
        {"comma, no end",        "12AB,34CD",           "12AB|34CD"},
        {"quotes",               "\"12AB\",\"34CD\"\n", "12AB|34CD"},
        {"behind a quote",       "\"12AB\" x,34CD",     "12AB|34CD"},
        {"comma in quotes",      "\"12,AB\"\n34",       "12,AB|34"},
        {"quote without end",    "\"12AB\n34CD\n",      "12AB|34CD"},
        {"blanks around",        "  12AB \n\t34CD  ",   "12AB|34CD"},
        {"lower case stays",     "12ab\n34cd",          "12ab|34cd"},
        {"a third is ignored",   "12AB\n34CD\n56EF\n",  "12AB|34CD"},
        {"an empty line is one", "12AB\n\n34CD",        "12AB|"},
        {"one item",             "12AB\r\n",            "none"},
        {"one without end",      "12AB",                "none"},
        {"one, then blanks",     "12AB\r\n \t",         "none"},
        {"one, then DOS's end",  "12AB\r\n\x1A",        "none"},
        {"two and DOS's end",    "12AB,34CD\x1A",        "12AB|34CD"},
        {"empty file",           "",                    "none"},
        {"the longest",          most + "\n" + most,    most + "|" + most},
        {"too long",             most + "A\n00",        "none"},
        {"too long, second",     "00\n" + most + "A",   "none"},
        {"giant",                giant,                 "none"},
        // clang-format on
    };
    for (const auto& c : cases) {
        const auto items = ParsePrm(c.Content);
        EXPECT_EQ(items ? items->First + "|" + items->Second : "none", c.Items) << c.Name;
    }
}

}  // namespace
}  // namespace counter::test

// Tables as spreadsheets write them.
#include "fleet/csv.h"

#include <gtest/gtest.h>

namespace counter::test {
namespace {

using Rows = std::vector<std::vector<std::string>>;

TEST(Csv, ReadsWhatSpreadsheetsWrite) {
    const struct {
        const char* Name;
        std::string Text;
        Rows Wanted;
    } cases[] = {
        // clang-format off
        {"commas, LF",              "a,b\n1,2\n",                     {{"a", "b"}, {"1", "2"}}},
        {"mark, semicolons, CR LF", "\xEF\xBB\xBF" "a;b\r\n1,5;2",    {{"a", "b"}, {"1,5", "2"}}},
        {"quoted separators of the heading do not count", "\"a;;b\",c\n1,2", {{"a;;b", "c"}, {"1", "2"}}},
        {"quotes",                  "a,b\n\"x \"\"y\"\", z\",\"\"\n", {{"a", "b"}, {"x \"y\", z", ""}}},
        {"line ends in a cell",     "a,b\n\"1\r\n2\",3\n",            {{"a", "b"}, {"1\r\n2", "3"}}},
        {"empty cells at the end",  "a,b,\n,,",                       {{"a", "b", ""}, {"", "", ""}}},
        {"an empty line",           "a\n\nb",                         {{"a"}, {""}, {"b"}}},
        {"UTF-8",                   "Größe,日本\n€,𝄞",                 {{"Größe", "日本"}, {"€", "𝄞"}}},
        {"nothing",                 "",                               {}},
        // clang-format on
    };
    for (const auto& c : cases) {
        const CsvTable table = ReadCsv(c.Text);
        EXPECT_EQ(table.Rows, c.Wanted) << c.Name;
        EXPECT_EQ(table.Fault, "") << c.Name;
    }
}

TEST(Csv, TellsWhereTheTextIsNoTable) {
    const std::string utf8 = "is not UTF-8; spreadsheets save it as \"CSV UTF-8\"";
    const struct {
        std::string Text;
        int Row;
        std::string Fault;
    } cases[] = {
        // clang-format off
        {"a,b\n1,\"2",           2, "a quote is not closed"},
        {"a,b\n1,2\n\"3\"4,5\n", 3, "text behind the quote that closes a cell"},
        {"a,b\n1\"2,3\n",        2, "a quote within a cell: the whole cell goes into quotes, the quote doubled"},
        {"a,b\nGr\xF6\xDF" "e,", 2, utf8},
        {"a\xC0\xAF",            1, utf8},
        {"a\n\xED\xA0\x80",      2, utf8},
        {"a\n\xF4\x90\x80\x80",  2, utf8},
        {"a\xE2\x82",            1, utf8},
        {std::string("a\0b", 3), 1, utf8},
        // clang-format on
    };
    for (const auto& c : cases) {
        const CsvTable table = ReadCsv(c.Text);
        EXPECT_EQ(table.Fault, c.Fault) << c.Text;
        EXPECT_EQ(table.FaultRow, c.Row) << c.Text;
    }
}

}  // namespace
}  // namespace counter::test

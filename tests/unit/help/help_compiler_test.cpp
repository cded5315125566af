// Help sources made into pairs of files, and what is refused.
#include <gtest/gtest.h>

#include "tools/help/help_pairs.h"

namespace help_tool {
namespace {

std::map<int, Pair> Make(const std::string& source, std::vector<Fault>& faults) {
    std::vector<Entry> entries;
    ReadHelpSource("a.txt", source, entries, faults);
    return MakePairs(entries, faults);
}

TEST(HelpCompiler, MakesIndexAndTexts) {
    std::vector<Fault> faults;
    auto pairs = Make(
        "# who edits this\n"
        "[502 599] One\n"
        "A *b c*\n"
        "  d \\*.\n"
        "\n\n"
        "- e\n"
        "  f\n"
        "- *g*\n"
        "\n"
        "[503 fixed] Two\n"
        " $ 36  * 42\n"
        "[504 plain +503] Three\n"
        "h \\*\n",
        faults);
    ASSERT_TRUE(faults.empty()) << faults[0].Text();
    EXPECT_EQ(PairName(5), "Help 5");
    EXPECT_EQ(PairName(12), "Help12");
    EXPECT_EQ(pairs[5].Texts,
              "$One$\r\n\r\nA $b c$ d *.\r\n\r\n- e f\r\n- $g$"
              "Two\r\n\r\n $ 36  * 42"
              "Three\r\n\r\nh *\r\n\r\nTwo\r\n\r\n $ 36  * 42");

    const std::string& index = pairs[5].Index;
    ASSERT_EQ(index.size(), 594U);
    EXPECT_EQ(index.substr(0, 6), std::string("\x01\0\0\0\0\0", 6)) << "nothing has record 1";
    EXPECT_EQ(index.substr(6, 6), std::string("\x01\0\0\0\x25\0", 6));
    EXPECT_EQ(index.substr(12, 6), std::string("\x26\0\0\0\x12\0", 6));
    EXPECT_EQ(index.substr(588, 6), std::string("\x01\0\0\0\x25\0", 6)) << "two numbers, one text";
}

TEST(HelpCompiler, LongTextsTakeBothBytes) {
    std::vector<Fault> faults;
    auto pairs = Make("[501] A\n" + std::string(300, 'x') + "\n[502] B\ny\n", faults);
    ASSERT_TRUE(faults.empty());
    EXPECT_EQ(pairs[5].Index.substr(0, 6), std::string("\x01\0\0\0\x33\x01", 6));
    EXPECT_EQ(pairs[5].Index.substr(6, 6), std::string("\x34\x01\0\0\x08\0", 6));
}

TEST(HelpCompiler, RefusesWithFileAndLine) {
    const std::string longest(32760, 'x');  // with its title, 32767 characters
    struct {
        const char* Name;
        std::string Source, Fault;
    } cases[] = {
        // clang-format off
        {"longest",           "[501] A\n" + longest,                   ""},
        {"too long",          "[501] A\nb\n[502] A\n" + longest + "x", "a.txt:3: a text of more than 32767 characters"},
        {"twice",             "[501] A\nb\n[502 501] C\nd",            "a.txt:3: 501 stands already in a.txt:1"},
        {"open emphasis",     "[501] A\n\nb\nc *d\n\ne* f",            "a.txt:3: unpaired emphasis"},
        {"mark",              "[501] A\nb\n\n5 $",                     "a.txt:4: \"$\" is the mark of emphasis"},
        {"tab",               "[501] A\n\tb",                          "a.txt:2: a character that is not printable ASCII"},
        {"umlaut",            "[501] A\nb\n\xC3\xA4",                  "a.txt:3: a character that is not printable ASCII"},
        {"carriage return",   "[501] A\r\nb",                          "a.txt:1: a character that is not printable ASCII"},
        {"no text",           "[501] A\n\n[502] B\nc",                 "a.txt:1: an entry without text"},
        {"no heading",        "\nb\n[501] A\nc",                       "a.txt:2: text in front of the first heading"},
        {"no number",         "[fixed] A\nb",                          "a.txt:1: a heading without a number"},
        {"no record 0",       "[501 600] A\nb",                        "a.txt:1: \"600\" is no help number"},
        {"plain emphasis",    "[501 plain] A\n\nb *c*",                "a.txt:3: emphasis in a plain text"},
        {"nothing follows",   "[501 +502] A\nb",                      "a.txt:1: no text 502 can follow"},
        {"a row of three",    "[501 +502] A\nb\n[502 +503] A\nb\n[503] A\nb", "a.txt:1: no text 502 can follow"},
        {"word",              "[501 502x] A\nb",                       "a.txt:1: \"502x\" is no help number"},
        {"bracket left open", "[501\nb",                               "a.txt:1: a heading needs a title without \"*\" and \"$\""},
        // clang-format on
    };
    for (const auto& test : cases) {
        std::vector<Fault> faults;
        Make(test.Source, faults);
        EXPECT_EQ(faults.empty() ? "" : faults[0].Text(), test.Fault) << test.Name;
        EXPECT_LE(faults.size(), 2U) << test.Name;
    }
}

}  // namespace
}  // namespace help_tool

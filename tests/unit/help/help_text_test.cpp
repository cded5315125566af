// Reading a help text from its pair of files, and cutting it at its marks.
#include "help/help_text.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"

namespace counter {
namespace {

using test::MemoryFiles;

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (int value : values) bytes += static_cast<char>(value);
    return bytes;
}

TEST(HelpText, ReadsTheRecordOfItsNumber) {
    MemoryFiles files;
    files.Contents["data/Help31.R10"] = Bytes({1, 0, 0, 0, 3, 0, 4, 0, 0, 0, 5, 0});
    files.Contents["data/Help31.S10"] = "abcd$e$f";
    files.Contents["data/Help 5.R10"] = Bytes({1, 1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1});
    files.Contents["data/Help 5.S10"] = std::string(256, 'x') + "y";
    EXPECT_EQ(ReadHelpText(files, "data", 3101), "abc");
    EXPECT_EQ(ReadHelpText(files, "data", 3102), "d$e$f");
    EXPECT_EQ(LoadHelpText(files, "data", 3102), "d e f");
    EXPECT_EQ(ReadHelpText(files, "data", 501), "y") << "position 257, a blank in the name";
    EXPECT_EQ(ReadHelpText(files, "data", 502), std::string(256, 'x')) << "length 256";
}

TEST(HelpText, BadFilesGiveNothing) {
    constexpr int kNone = -1;
    struct {
        const char* Name;
        int HelpId;
        std::string Index;
        int TextSize;  // of the text file, kNone: there is none
        int Length;    // of what is read, kNone: nothing
    } cases[] = {
        // clang-format off
        {"whole",               1101, Bytes({1, 0, 0, 0, 4, 0}),             4,     4},
        {"empty record",        1101, Bytes({1, 0, 0, 0, 0, 0}),             4,     0},
        {"no text file",        1101, Bytes({1, 0, 0, 0, 0, 0}),             kNone, kNone},
        {"empty index",         1101, "",                                    4,     kNone},
        {"index cut",           1101, Bytes({1, 0, 0, 0, 4}),                4,     kNone},
        {"beyond the index",    1102, Bytes({1, 0, 0, 0, 4, 0, 1, 0}),       4,     kNone},
        {"text cut, later",     1101, Bytes({4, 0, 0, 0, 2, 0}),             4,     kNone},
        {"position 0",          1101, Bytes({0, 0, 0, 0, 1, 0}),             4,     kNone},
        {"position beyond",     1101, Bytes({6, 0, 0, 0, 0, 0}),             4,     kNone},
        {"position 2 GB",       1101, Bytes({255, 255, 255, 127, 255, 127}), 4,     kNone},
        {"negative position",   1101, Bytes({255, 255, 255, 255, 1, 0}),     4,     kNone},
        {"negative length",     1101, Bytes({1, 0, 0, 0, 255, 255}),         4,     kNone},
        {"record 0",            1100, Bytes({1, 0, 0, 0, 4, 0}),             4,     kNone},
        {"negative number",    -1101, Bytes({1, 0, 0, 0, 4, 0}),             4,     kNone},
        {"three digits of n",  11101, Bytes({1, 0, 0, 0, 4, 0}),             4,     kNone},
        // clang-format on
    };
    for (const auto& test : cases) {
        MemoryFiles files;
        files.Contents["data/Help11.R10"] = test.Index;
        files.Contents["data/Help111.R10"] = test.Index;
        files.Contents["data/Help111.S10"] = "abcd";
        if (test.TextSize != kNone) {
            files.Contents["data/Help11.S10"] = std::string(static_cast<std::size_t>(test.TextSize), 'a');
        }
        auto text = ReadHelpText(files, "data", test.HelpId);
        EXPECT_EQ(text ? static_cast<int>(text->size()) : kNone, test.Length) << test.Name;
    }
}

TEST(HelpSegments, TurnsAtEachMarkAndEndsPlain) {
    using Segments = std::vector<HelpSegment>;
    struct {
        const char* Text;
        Segments Parts;
    } cases[] = {
        {"", {}},
        {"a b", {{"a b", false}}},
        {"a$b$c", {{"a", false}, {"b", true}, {"c", false}}},
        {"$a$$b$", {{"a", true}, {"b", true}}},
        {"a$b", {{"a", false}, {"b", false}}},
        {"a$b$c$d", {{"a", false}, {"b", true}, {"c", false}, {"d", false}}},
        {"$", {}},
    };
    for (const auto& test : cases) EXPECT_EQ(HelpSegments(test.Text), test.Parts) << test.Text;
}

}  // namespace
}  // namespace counter

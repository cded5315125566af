// The batch reference: how the box builds its text, and the texts that come with the program.
#include "help/help_text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "support/memory_files.h"

namespace counter {
namespace {

using test::MemoryFiles;

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        if (end == std::string::npos) break;
        lines.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

TEST(BatchHelp, EachEntryIsALineWithAMargin) {
    MemoryFiles files;
    files.Contents["far/rate_batch.txt"] = "far";
    files.Contents["near/rate_batch.txt"] = "  A\n\nB\n";
    files.Contents["far/vf_batch.txt"] = "V\ncut o";
    const std::vector<std::string> folders = {"near", "far"};
    EXPECT_EQ(BatchHelpText(files, folders, BatchHelpKind::Rate), "      A\r\n    \r\n    B\r\n");
    EXPECT_EQ(BatchHelpText(files, folders, BatchHelpKind::VF), "    V\r\n    cut o\r\n") << "cut off";
    EXPECT_EQ(BatchHelpText(files, {"near"}, BatchHelpKind::VF), std::nullopt);
    EXPECT_EQ(BatchHelpText(files, {}, BatchHelpKind::Rate), std::nullopt);
}

TEST(BatchHelp, ShowsNoMoreEntriesThanItsTableHas) {
    MemoryFiles files;
    files.Contents["a/rate_batch.txt"] = files.Contents["a/vf_batch.txt"] = std::string(5000, '\n');
    EXPECT_EQ(BatchHelpText(files, {"a"}, BatchHelpKind::Rate)->size(), 316U * 6);
    EXPECT_EQ(BatchHelpText(files, {"a"}, BatchHelpKind::VF)->size(), 302U * 6);
}

struct Delivered {
    const char *Name, *File;
    BatchHelpKind Kind;
    std::size_t Entries;
    int Chapters;
};

constexpr Delivered kDelivered[] = {{"RATE BATCH", "rate_batch.txt", BatchHelpKind::Rate, 316, 13},
                                    {"V-F BATCH", "vf_batch.txt", BatchHelpKind::VF, 302, 14}};

TEST(BatchHelp, DeliveredTextsAreWhole) {
    constexpr std::size_t kWidest = 82;  // of the box, margin included
    for (const Delivered& item : kDelivered) {
        SCOPED_TRACE(item.Name);
        MemoryFiles files;
        std::ifstream file(std::string(HELP_FOLDER) + "/" + item.File, std::ios::binary);
        files.Contents[std::string("a/") + item.File] = {std::istreambuf_iterator<char>(file), {}};
        const auto lines = LinesOf(*BatchHelpText(files, {"a"}, item.Kind));
        ASSERT_EQ(lines.size(), item.Entries);
        EXPECT_TRUE(lines[0].ends_with(std::string("  ") + item.Name)) << lines[0];
        int chapter = 0;
        for (const std::string& line : lines) {
            EXPECT_LE(line.size(), kWidest) << line;
            for (char c : line) EXPECT_TRUE(c >= ' ' && c <= '~') << line;
            const std::string next = "    " + std::to_string(chapter + 1) + ".0 ";
            if (line.rfind(next, 0) == 0) ++chapter;
        }
        EXPECT_EQ(chapter, item.Chapters) << "numbered in order";
        EXPECT_NE(lines.back(), "    ") << "nothing is padded";
    }
}

}  // namespace
}  // namespace counter

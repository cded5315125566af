// Setup files: one line of digits, whatever a file may hold instead.
#include "shell/setup_files.h"

#include <gtest/gtest.h>

#include "shell/recent_files.h"
#include "support/memory_files.h"

namespace counter::test {
namespace {

TEST(SetupFiles, TextBecomesAnImage) {
    const std::string zeros(260, '0');
    const std::string digits300(300, 'A');
    const struct {
        const char* Name;
        std::string Text, Expected;
    } cases[] = {
        {"100 digits are filled up", std::string(100, 'F') + "\r\n",
         std::string(100, 'F') + std::string(160, '0')},
        {"300 digits stay", digits300 + "\r\n", digits300},
        {"without CR LF", std::string(260, '7'), std::string(260, '7')},
        {"with LF alone", std::string(260, '7') + "\n", std::string(260, '7')},
        {"only the first line counts", "12\r\n34\r\n", "12" + std::string(258, '0')},
        {"empty", "", zeros},
        {"not hexadecimal stays as it stands", "hello", "hello" + std::string(255, '0')},
    };
    for (const auto& c : cases) EXPECT_EQ(ImageOfText(c.Text).SetupData, c.Expected) << c.Name;
}

TEST(RecentFiles, TheLastEightEachOnce) {
    MemoryFiles store;
    const ProgramFolder folder{store, "home"};
    EXPECT_TRUE(RecentFiles(folder).empty());
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "c", "i", "i", "two\nlines"})
        KeepRecentFile(folder, std::string("/s/") + name);
    std::string names;
    for (const std::string& path : RecentFiles(folder)) names += path.substr(3);
    EXPECT_EQ(names, "ichgfedb");
    store.Refused.insert("home/recent-files.txt");
    KeepRecentFile(folder, "/s/z");
}

}  // namespace
}  // namespace counter::test

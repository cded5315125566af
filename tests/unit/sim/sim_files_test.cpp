#include "sim/sim_files.h"

#include <gtest/gtest.h>

#include "sim/options.h"
#include "support/temp_folder.h"
#include "text_files.h"

namespace sim {
namespace {

TEST(SimFiles, ImageFilesComeBackAsTheyWereWritten) {
    const TempFolder folder;
    const std::string path = folder.At("a.CT2");
    EXPECT_EQ(WriteImageFile(path, kDefaultImage), "");
    EXPECT_EQ(ReadText(path), std::string(kDefaultImage) + "\r\n");
    EXPECT_FALSE(std::filesystem::exists(path + ".part"));
    std::string image;
    EXPECT_EQ(ReadImageFile(path, image), "");
    EXPECT_EQ(image, kDefaultImage);
    WriteText(path, std::string(260, '7'));
    EXPECT_EQ(ReadImageFile(path, image), "") << "a line end is not needed";
    EXPECT_EQ(image, std::string(260, '7'));
}

TEST(SimFiles, AFailedWriteLeavesNothingBehind) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.At("folder"));
    EXPECT_EQ(WriteImageFile(folder.At("folder"), kDefaultImage), folder.At("folder") + ": Is a directory");
    EXPECT_FALSE(std::filesystem::exists(folder.At("folder.part")));
    EXPECT_NE(WriteImageFile(folder.At("no/where"), kDefaultImage), "");
}

TEST(SimFiles, ALinkIsReplacedEvenIfItNamesNothing) {
    const TempFolder folder;
    const std::string link = folder.At("com1");
    EXPECT_EQ(PointLink(link, "/dev/pts/1000"), "");
    EXPECT_EQ(PointLink(link, "/dev/pts/1001"), "");
    RemoveLink(link, "/dev/pts/1000");
    EXPECT_EQ(std::filesystem::read_symlink(link), "/dev/pts/1001")
        << "another program's by now, so it stays";
}

}  // namespace
}  // namespace sim

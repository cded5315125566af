#include "system/disk_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <functional>
#include <memory>

#include "support/temp_folder.h"

namespace counter {

using NameList = std::vector<std::string>;

class DiskFilesTest : public testing::Test {
  protected:
    std::string Content(const std::string& name) const {
        std::string content;
        const Status status = files_.Read(folder_.At(name), content);
        return status.Ok() ? content : status.Text();
    }
    NameList Names() const {
        NameList names;
        EXPECT_TRUE(files_.List(folder_.Path, names).Ok());
        return names;
    }

    // While no file may grow beyond ten bytes.
    static Status OnFullDisk(const std::function<Status()>& act) {
        rlimit former = {};
        getrlimit(RLIMIT_FSIZE, &former);
        const auto formerAction = signal(SIGXFSZ, SIG_IGN);
        const rlimit small = {10, former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        const Status status = act();
        setrlimit(RLIMIT_FSIZE, &former);
        signal(SIGXFSZ, formerAction);
        return status;
    }

    const TempFolder folder_;
    DiskFiles files_;
};

TEST_F(DiskFilesTest, EveryByteComesBackAndNothingElseIsLeft) {
    std::string all;
    for (int i = 0; i < 100'000; ++i) all += static_cast<char>(i);
    ASSERT_TRUE(files_.Write(folder_.At("a"), "longer than what follows").Ok());
    ASSERT_TRUE(files_.Write(folder_.At("a"), all).Ok());
    EXPECT_TRUE(Content("a") == all);
    EXPECT_EQ(Names(), NameList{"a"});
}

TEST_F(DiskFilesTest, RefusalsNameThePathAndTheBareReason) {
    ASSERT_TRUE(files_.Write(folder_.At("file"), "x").Ok());
    for (int i = 0; i < 2; ++i) ASSERT_TRUE(files_.MakeFolder(folder_.At("deep/folder")).Ok());
    std::string content;
    const auto read = [&](const std::string& path) { return files_.Read(path, content); };
    const auto write = [&](const std::string& path) { return files_.Write(path, "y"); };
    const auto remove = [&](const std::string& path) { return files_.Remove(path); };
    const auto link = [&](const std::string& path) { return files_.MakeLink(path, "target"); };
    // clang-format off
    const struct {
        const char* Name; std::function<Status(const std::string&)> Act; const char* Path;
        StatusKind Kind; const char* Reason;
    } cases[] = {
        {"read missing",       read,   "none",      StatusKind::NotFound, "No such file or directory"},
        {"read a folder",      read,   "deep",      StatusKind::Illegal,  "Is a directory"},
        {"write to no folder", write,  "none/x",    StatusKind::NotFound, "No such file or directory"},
        {"write a folder",     write,  "deep",      StatusKind::Illegal,  "Is a directory"},
        {"remove a folder",    remove, "deep",      StatusKind::Illegal,  "Is a directory"},
        {"link over a file",   link,   "file",      StatusKind::Illegal,  "File exists"},
    };
    // clang-format on
    for (const auto& c : cases) {
        const Status status = c.Act(folder_.At(c.Path));
        EXPECT_EQ(status.Kind, c.Kind) << c.Name;
        EXPECT_EQ(status.Text(), folder_.At(c.Path) + ": " + c.Reason) << c.Name;
    }
    EXPECT_EQ(Names(), (NameList{"deep", "file"}));
}

TEST_F(DiskFilesTest, AFileWithoutAnEndIsRefused) {
    std::string content;
    EXPECT_EQ(files_.Read("/dev/zero", content).Text(), "/dev/zero: File too large");
}

TEST_F(DiskFilesTest, WriteThatFailsHalfwayLeavesTheOldFileAlone) {
    ASSERT_TRUE(files_.Write(folder_.At("a"), "old").Ok());
    const Status status = OnFullDisk([&] { return files_.Write(folder_.At("a"), "more than ten bytes"); });
    EXPECT_EQ(status.Text(), folder_.At("a") + ": File too large");
    EXPECT_EQ(Content("a"), "old");
    EXPECT_EQ(Names(), NameList{"a"});
}

TEST_F(DiskFilesTest, ATemporaryIsTakenOverOnceNobodyWritesItAndTheModeStays) {
    const std::string left = ".counter-unfinished-1";
    ASSERT_TRUE(files_.Append(folder_.At("a"), "old").Ok());
    chmod(folder_.At("a").c_str(), 0640);
    ASSERT_TRUE(files_.Append(folder_.At(left), "half of ano").Ok());
    const int other = open(folder_.At(left).c_str(), O_RDONLY);
    flock(other, LOCK_EX);
    EXPECT_TRUE(files_.Write(folder_.At("a"), "new").Ok());
    EXPECT_EQ(Names(), (NameList{left, "a"})) << "it is being written";
    close(other);
    EXPECT_TRUE(files_.Write(folder_.At("a"), "newer").Ok());
    EXPECT_EQ(Names(), NameList{"a"});
    EXPECT_EQ(Content("a"), "newer");
    struct stat there = {};
    stat(folder_.At("a").c_str(), &there);
    EXPECT_EQ(there.st_mode & 0777, 0640U);
}

TEST_F(DiskFilesTest, LinksStayWhereFilesAreWrittenAndGoWhereLinksAreMade) {
    ASSERT_TRUE(files_.MakeLink(folder_.At("first"), "second").Ok());
    ASSERT_TRUE(files_.MakeLink(folder_.At("second"), folder_.At("file")).Ok());
    EXPECT_FALSE(files_.Exists(folder_.At("first")));
    for (const char* text : {"through dangling links", "over the old"}) {
        ASSERT_TRUE(files_.Write(folder_.At("first"), text).Ok());
        EXPECT_EQ(Content("file"), text);
    }
    ASSERT_TRUE(files_.MakeLink(folder_.At("second.new"), "left by a killed run").Ok());
    ASSERT_TRUE(files_.MakeLink(folder_.At("second"), "elsewhere").Ok());
    EXPECT_EQ(files_.LinkTarget(folder_.At("first")), "second");
    EXPECT_EQ(files_.LinkTarget(folder_.At("second")), "elsewhere");
    ASSERT_TRUE(files_.Remove(folder_.At("first")).Ok());
    EXPECT_EQ(Names(), (NameList{"file", "second"}));
}

TEST_F(DiskFilesTest, AdditionsGoToTheEndAndHalfALineIsTakenBack) {
    ASSERT_TRUE(files_.Append(folder_.At("log"), "one\n").Ok());
    ASSERT_TRUE(files_.Append(folder_.At("log"), "two\n").Ok());
    EXPECT_EQ(Content("log"), "one\ntwo\n");
    const Status status = OnFullDisk([&] { return files_.Append(folder_.At("log"), "three\n"); });
    EXPECT_EQ(status.Text(), folder_.At("log") + ": File too large");
    EXPECT_EQ(Content("log"), "one\ntwo\n");
    EXPECT_EQ(files_.Append(folder_.At("none/log"), "x").Kind, StatusKind::NotFound);
}

TEST_F(DiskFilesTest, PipeIsWrittenWhereItStands) {
    mkfifo(folder_.At("pipe").c_str(), 0600);
    const int reader = open(folder_.At("pipe").c_str(), O_RDWR | O_NONBLOCK);
    EXPECT_TRUE(files_.Write(folder_.At("pipe"), "x").Ok());
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 1);
    close(reader);
}

// Who may use a file does not change with it, and names that go on naming the old one are told.
TEST_F(DiskFilesTest, AFileWrittenOverKeepsItsRightsAndTellsOfItsOtherNames) {
    const std::string path = folder_.At("file");
    ASSERT_TRUE(files_.Write(path, "old").Ok());
    const bool root = geteuid() == 0;
    ASSERT_TRUE(!root || chown(path.c_str(), 1, 2) == 0);
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    const bool attributes = setxattr(path.c_str(), "user.line", "press 4", 7, 0) == 0;
    EXPECT_EQ(files_.Write(path, "new").Note, "");
    struct stat now = {};
    ASSERT_EQ(stat(path.c_str(), &now), 0);
    EXPECT_EQ(now.st_mode & 07777, 0640U);
    EXPECT_EQ(root ? now.st_uid * 10 + now.st_gid : 12, 12U);
    char value[8] = {};
    EXPECT_TRUE(!attributes || getxattr(path.c_str(), "user.line", value, sizeof value) == 7);

    ASSERT_EQ(link(path.c_str(), folder_.At("other").c_str()), 0);
    ASSERT_EQ(symlink("other", folder_.At("link").c_str()), 0);
    EXPECT_TRUE(files_.SameFile(path, folder_.At("other")));
    EXPECT_TRUE(files_.SameFile(path, folder_.At("link")));
    EXPECT_FALSE(files_.SameFile(path, folder_.At("none")));
    EXPECT_FALSE(files_.SameFile("/dev/null", "/dev/null")) << "nothing could be lost";
    EXPECT_EQ(files_.Write(path, "newer").Note,
              path + " had 1 more name (hard links), which still hold what was there before");
    EXPECT_EQ(Content("other"), "new");
}

TEST_F(DiskFilesTest, ALockIsOneProgramsAndOutlivesTheFile) {
    std::unique_ptr<FileLock> mine, theirs;
    ASSERT_TRUE(files_.Lock(folder_.At("file"), mine).Ok());
    ASSERT_TRUE(files_.Write(folder_.At("file"), "another file by now").Ok());
    EXPECT_EQ(DiskFiles().Lock(folder_.At("file"), theirs).Kind, StatusKind::Busy);
    mine.reset();
    EXPECT_TRUE(DiskFiles().Lock(folder_.At("file"), theirs).Ok());
    EXPECT_NE(theirs, nullptr);
}

}  // namespace counter

#include "system/port_refusal.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/temp_folder.h"
#include "system/disk_files.h"

namespace counter {

TEST(PortRefusal, AdvisesWhatGetsThisUserIn) {
    // clang-format off
    const struct { const char* Name; GroupAccess Access; std::string Text; } cases[] = {
        {"no group helps", {"", false}, ""},
        {"not a member", {"dialout", false},
         " (it belongs to group dialout: sudo usermod -aG dialout $USER, then log out and in again)"},
        {"a member from the next login on", {"dialout", true},
         " (you have been put into group dialout, which may open it, since you logged in: log out and in again)"},
    };
    // clang-format on
    for (const auto& c : cases) EXPECT_EQ(RefusalAdvice(c.Access), c.Text) << c.Name;
}

TEST(PortRefusal, NamesTheLockFileAndWhoseItIs) {
    const TempFolder folder;
    const struct {
        const char *Device, *File, *Text, *Says;
    } cases[] = {
        {"/dev/ttyS9", "LCK..ttyS9", "         1\n", " of process 1)"},
        {"/dev/pts/9", "LCK..pts_9", "99999999\nminicom\nbench\n",
         " of process 99999999, which has ended: remove it)"},
        {"/dev/ttyS8", "LCK..ttyS8", "", ", which names no program: remove it where none uses the port)"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(LockAdvice(c.Device, {folder.At("none"), folder.Path}), "");
        ASSERT_TRUE(DiskFiles().Write(folder.At(c.File), c.Text).Ok());
        EXPECT_EQ(LockAdvice(c.Device, {folder.At("none"), folder.Path}),
                  " (lock file " + folder.At(c.File) + c.Says);
    }
}

TEST(PortRefusal, LooksAtTheDevicesGroupAndTheSystemsListOfItsMembers) {
    constexpr uid_t kDaemon = 1;  // an account of every system, with a group of its own and that number
    const uid_t user = geteuid();
    const TempFolder folder;
    const std::string device = folder.At("device");
    ASSERT_TRUE(DiskFiles().Write(device, "").Ok());
    ASSERT_EQ(chmod(folder.Path.c_str(), 0711), 0);
    const auto seen = [&](uid_t who, mode_t mode) {
        EXPECT_EQ(chmod(device.c_str(), mode), 0);
        EXPECT_TRUE(user != 0 || seteuid(who) == 0);
        const GroupAccess access = GroupAccessTo(device);
        EXPECT_EQ(seteuid(user), 0);
        return access;
    };
    if (user == 0) {
        EXPECT_EQ(seen(kDaemon, 0660).Group, "");  // nobody is advised into the superuser's group
        ASSERT_EQ(chown(device.c_str(), 0, kDaemon), 0);
        constexpr uid_t kNobody = 65534;
        EXPECT_FALSE(seen(kNobody, 0660).ListsUser);
    }
    struct stat info = {};
    ASSERT_EQ(stat(device.c_str(), &info), 0);
    const GroupAccess member = seen(kDaemon, 0660);
    EXPECT_EQ(member.Group, getgrgid(info.st_gid)->gr_name);
    EXPECT_TRUE(member.ListsUser);
    EXPECT_EQ(seen(kDaemon, 0640).Group, "");
}

}  // namespace counter

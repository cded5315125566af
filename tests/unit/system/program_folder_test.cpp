#include "system/program_folder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "support/temp_folder.h"
#include "system/core_runtime.h"
#include "system/disk_files.h"

namespace counter {

TEST(ProgramFolder, UsersDataFolderUnlessSettingsLieBesideTheExecutable) {
    const TempFolder folder;
    EXPECT_EQ(ChooseProgramFolder(folder.Path, "/home/user/share"), "/home/user/share/counter-setup");
    ASSERT_TRUE(DiskFiles().Write(folder.At("Settings.SSS"), "").Ok());
    EXPECT_EQ(ChooseProgramFolder(folder.Path, "/home/user/share"), folder.Path);
    setenv("XDG_DATA_HOME", folder.Path.c_str(), 1);
    const CoreRuntime runtime;
    EXPECT_EQ(DefaultProgramFolder(), folder.At("counter-setup"));
    unsetenv("XDG_DATA_HOME");
}

TEST(ProgramFolder, DataIsLookedForAsInstallationsAndBuildsAreLaidOut) {
    const CoreRuntime runtime;
    const std::string bin = QCoreApplication::applicationDirPath().toStdString();
    const std::vector<std::string> folders = {"/home/user/folder", bin + "/../share/counter-setup/help",
                                              bin + "/../share/help"};
    EXPECT_EQ(DataFolders("/home/user/folder", "help"), folders);
}

}  // namespace counter

// A program killed at any moment of SaveLinkSettings leaves Settings.SSS old or new, whole.
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <random>

#include "meter/default_setup.h"
#include "platform/qt/core/qt_files.h"
#include "support/bench_meter.h"
#include "transfer/put_setup.h"

namespace counter::test {
namespace {

constexpr const char* kOld = "3501000100100831010000\r\n2711000000000000F6CB00000000\r\n";
constexpr const char* kNew = "3601000V24700831010000\r\n2711000000000000F6CB00000000\r\n";

// Saves now the one line, now the other, until it is killed.
[[noreturn]] void SaveForEver(const std::string& folder) {
    QtFiles files;
    VirtualPump pump;
    MeterLine line(pump, {});
    RecordedDialogs dialogs;
    Session session(pump, line, dialogs, {files, folder});
    BuildDefaultSetup(session.Image);
    SetupImage other = session.Image;
    DigitsPut(other, 191, "60");
    DigitsPut(other, 189, "3F");
    DigitsPut(other, 111, "F7");
    ReadSettings(session.Settled);
    for (;;) {
        SaveLinkSettings(other, session.Settled);
        SaveLinkSettings(session.Image, session.Settled);
    }
}

TEST(SaveLinkSettings, KilledAtAnyMomentLeavesAWholeFile) {
    const std::string folder = ::testing::TempDir() + "settings_kill_" + std::to_string(getpid());
    std::filesystem::create_directories(folder);
    const std::string path = folder + "/Settings.SSS";
    QtFiles files;
    ASSERT_TRUE(files.Write(path, kOld).Ok());
    std::mt19937 random(1);
    int changed = 0;
    for (int round = 0; round < 500; ++round) {
        const pid_t child = fork();
        if (child == 0) SaveForEver(folder);
        poll(nullptr, 0, static_cast<int>(random() % 12));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        std::string text;
        ASSERT_TRUE(files.Read(path, text).Ok()) << "round " << round;
        ASSERT_TRUE(text == kOld || text == kNew) << "round " << round << ": " << text;
        changed += text == kNew ? 1 : 0;
    }
    EXPECT_GT(changed, 0) << "the child came to saving at all";
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace counter::test

// A recorder that is killed at any moment, again and again on one store: the store is whole, and what was
// taken before the last second is in it.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <random>

#include "recording/recorder.h"
#include "support/temp_folder.h"
#include "support/virtual_pump.h"
#include "system/core_runtime.h"
#include "system/sql/store_queries.h"

namespace counter::test {
namespace {

constexpr int kEveryMs = 50;  // a reading, on the recorder's clock
constexpr std::int64_t kSecond = 1000 / kEveryMs;

int Kills() {
    const char* wanted = std::getenv("COUNTER_KILLS");
    return wanted == nullptr ? 200 : std::atoi(wanted);
}

// Tells each reading that it has taken, until it is killed.
[[noreturn]] void RecordOn(const std::string& path, int told) {
    VirtualPump clock;
    Recorder recorder(clock);
    if (!recorder.Begin(path, {}).Ok()) _exit(1);
    for (std::int64_t number = 1;; ++number) {
        recorder.Take("+" + std::to_string(number) + ".-1.");
        if (write(told, &number, sizeof number) != sizeof number) _exit(1);
        clock.Pass(kEveryMs);
    }
}

// The number that was told last.
std::int64_t KillAfter(const std::string& path, int microseconds) {
    int told[2];
    if (pipe(told) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) RecordOn(path, told[1]);
    close(told[1]);
    std::int64_t last = 0, number = 0;
    bool begun = read(told[0], &number, sizeof number) == sizeof number;
    if (begun) usleep(static_cast<useconds_t>(microseconds));
    kill(child, SIGKILL);
    for (; begun; begun = read(told[0], &number, sizeof number) == sizeof number) last = number;
    close(told[0]);
    waitpid(child, nullptr, 0);
    return last;
}

TEST(RecorderKilled, LosesAtMostTheLastSecond) {
    const CoreRuntime runtime;
    const TempFolder folder;
    const std::string path = folder.At("r.db");
    std::mt19937 dice(4711);
    std::int64_t most = 0;
    for (int run = 1; run <= Kills(); ++run) {
        const std::int64_t taken = KillAfter(path, std::uniform_int_distribution(0, 40'000)(dice));
        ASSERT_GT(taken, 0) << run;
        std::unique_ptr<ReadingStore> store;
        std::vector<StoredReading> readings;
        const Status opened = ReadingStore::Open(path, ReadingStore::Use::Make, store);
        ASSERT_TRUE(opened.Ok()) << opened.Text();
        ASSERT_TRUE(store->Readings(run, 1, 1 << 30, readings).Ok());
        const auto written = static_cast<std::int64_t>(readings.size());
        ASSERT_GE(written, taken - kSecond) << run;
        most = std::max(most, taken - written);
        for (std::int64_t i = 0; i < written; ++i) {
            ASSERT_EQ(readings[static_cast<std::size_t>(i)].Items.size(), 2U);
            ASSERT_EQ(readings[static_cast<std::size_t>(i)].Items[0].Sent, "+" + std::to_string(i + 1) + ".");
        }
    }
    StoreQueries queries(path);
    QSqlQuery* rows = nullptr;
    ASSERT_TRUE(queries.Open("").Ok() && queries.Run("PRAGMA integrity_check", {}, rows).Ok() &&
                rows->next());
    EXPECT_EQ(rows->value(0).toString().toStdString(), "ok");
    std::printf("%d kills: at most %lld readings of 20 a second lost\n", Kills(),
                static_cast<long long>(most));
}

}  // namespace
}  // namespace counter::test

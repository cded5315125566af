// Backups: named by time and address, the newest 100 kept, nobody else's files touched.
#include "shell/backups.h"

#include <gtest/gtest.h>

#include "support/bench_meter.h"

namespace counter::test {
namespace {

TEST(Backups, AreNamedByTimeAndAddress) {
    BenchMeter ascii({}, {"MeterAddressValue=31"});
    ascii.SwitchOn();
    EXPECT_EQ(BackupName(ascii.Program), "2026-03-04_05-06-07-089_address-31.CT2");
    BenchMeter modbus({}, {"SerialProtocol=1", "ModbusAddress=247"});
    modbus.SwitchOn();
    EXPECT_EQ(BackupName(modbus.Program), "2026-03-04_05-06-07-089_address-247.CT2");
}

TEST(Backups, TheNewest100AreKeptAndTheUsersFilesToo) {
    BenchMeter bench;
    bench.SwitchOn();
    const std::string folder = "home/backups/";
    const std::string mine[] = {"1999 line 3.CT2", "best.CT2", "2025-01-01_00-00-00-000_address-01 best.CT2"};
    for (const std::string& name : mine) bench.Store.Contents[folder + name] = "mine";
    for (int i = 0; i < 105; ++i) {
        const std::string second = std::to_string(100 + i).substr(1);
        bench.Store.Contents[folder + "2025-01-0" + (i < 100 ? "1" : "2") + "_00-00-" + second +
                             "-000_address-01.CT2"] = "old";
    }
    EXPECT_TRUE(KeepBackup(bench.Program).Ok());
    for (const std::string& name : mine) EXPECT_EQ(bench.Store.Contents.count(folder + name), 1U) << name;
    EXPECT_EQ(bench.Store.Contents.count(folder + "2025-01-01_00-00-05-000_address-01.CT2"), 0U);
    EXPECT_EQ(bench.Store.Contents.count(folder + "2025-01-01_00-00-06-000_address-01.CT2"), 1U);
    EXPECT_EQ(bench.Store.Contents.size(), 1 + 3 + 100U)
        << "settings, three of the user's, a hundred backups";
}

// A clock that was set back: what was written last is there, and so is what was written before it.
TEST(Backups, TheNewestStaysWhateverTheOthersAreDated) {
    BenchMeter bench;
    bench.SwitchOn();
    const std::string folder = "home/backups/";
    for (int i = 0; i < 350; ++i) {
        const std::string number = std::to_string(1000 + i).substr(1);
        bench.Store.Contents[folder + "2031-01-01_00-00-00-" + number + "_address-01.CT2"] = "later";
    }
    const std::string before = folder + "2026-03-04_05-06-07-088_address-01.CT2";
    const std::string written = folder + "2026-03-04_05-06-07-089_address-01.CT2";
    bench.Store.Contents[before] = "before";
    for (const std::size_t left : {352 - 200, 100}) {
        EXPECT_TRUE(KeepBackup(bench.Program).Ok());
        EXPECT_EQ(bench.Store.Contents.count(before) + bench.Store.Contents.count(written), 2U);
        EXPECT_EQ(bench.Store.Contents.size(), 1 + left) << "with the settings";
    }
}

}  // namespace
}  // namespace counter::test

// Two programs that change Settings.SSS: neither loses what it changed.
#include "link/change_settings.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"
#include "support/virtual_pump.h"

namespace counter::test {
namespace {

constexpr const char* kPath = "home/Settings.SSS";

// Files under a lock that another program may have.
class SharedFiles : public MemoryFiles {
  public:
    Status Lock(const std::string& path, std::unique_ptr<FileLock>& lock) override {
        lock.reset();
        if (Held) return {StatusKind::Busy, path, "held"};
        lock = std::make_unique<Holding>(*this);
        return {};
    }
    Status Write(const std::string& path, std::string_view content) override {
        EXPECT_TRUE(Held) << "written without the lock";
        return MemoryFiles::Write(path, content);
    }
    bool Held = false;

  private:
    struct Holding : FileLock {
        explicit Holding(SharedFiles& files) : Files(files) { Files.Held = true; }
        ~Holding() override { Files.Held = false; }
        SharedFiles& Files;
    };
};

struct SettingsBench {
    VirtualPump Pump;
    SharedFiles Store;
    ProgramFolder Folder{Store, "home"};
    std::vector<std::string> Told;
    SettingsWait Wait{[this]() -> counter::Pump& { return Pump; },
                      [this](const std::string& line) { Told.push_back(line); }};

    SettingsBench() { Store.Contents[kPath] = "3501000100100831010000\r\n2711000000000000F6CB00000000\r\n"; }
    // The other program, which read the file before, writes at the end of its turn.
    void OtherChangesProtocol(double takesMs) {
        Store.Held = true;
        std::string text = Store.Contents[kPath];
        text[4] = '2';
        Pump.After(takesMs, [this, text] {
            Store.Contents[kPath] = text;
            Store.Held = false;
        });
    }
    Status SetBaud6() {
        return ChangeSettings(Folder, Wait, [](SettingsLines& lines) -> Status {
            SettingsPut(lines.SettingsLine1, 2, "6");
            return {};
        });
    }
};

TEST(ChangeSettings, WaitsForTheOtherAndKeepsBothChanges) {
    const struct {
        const char* Name;
        double OtherTakesMs;
        const char* Line1;
        std::size_t Told;
    } cases[] = {
        {"in a moment", 5, "3601200100100831010000", 0},
        {"slow disk", 3000, "3601200100100831010000", 1},
        {"stopped program", 60000, "3501000100100831010000", 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        SettingsBench bench;
        bench.OtherChangesProtocol(c.OtherTakesMs);
        const bool given_up = c.OtherTakesMs > kSettingsLockMs;
        EXPECT_EQ(bench.SetBaud6().Kind, given_up ? StatusKind::Busy : StatusKind::Ok);
        EXPECT_EQ(bench.Store.Contents[kPath].substr(0, 22), c.Line1);
        EXPECT_EQ(bench.Told.size(), c.Told);
        EXPECT_EQ(bench.Store.Held, given_up);
    }
}

TEST(SaveSettings, OnlyOwnCharactersGoOverWhatTheFileHoldsNow) {
    SettingsBench bench;
    const SettingsLines read = SplitSettings(bench.Store.Contents[kPath]);
    SettingsLines wanted = read;
    SettingsPut(wanted.SettingsLine1, 9, "017");
    SettingsPut(wanted.SettingsLine2, 29, "1");
    bench.Store.Contents[kPath] = "36010001001008310\r\n2711AABBCCDDEEFFF6CB00000000\r\n";  // meanwhile
    EXPECT_TRUE(SaveSettings(bench.Folder, bench.Wait, read, wanted).Ok());
    EXPECT_EQ(bench.Store.Contents[kPath], "3601000101700831010000\r\n2711AABBCCDDEEFFF6CB000000001\r\n");
    EXPECT_EQ(FormatSettings(wanted), bench.Store.Contents[kPath]);
    const std::string whole = bench.Store.Contents[kPath];
    for (const bool gone : {true, false}) {
        gone ? bench.Store.Contents.clear() : bench.Store.Contents[kPath].clear();
        wanted = SplitSettings(whole);
        EXPECT_TRUE(SaveSettings(bench.Folder, bench.Wait, read, wanted).Ok());
        EXPECT_EQ(bench.Store.Contents[kPath], whole);
    }
}

}  // namespace
}  // namespace counter::test

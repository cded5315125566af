// A program killed at any moment of any action that writes a file leaves the old or the new one, whole, and
// nothing that piles up beside it. COUNTER_KILLS=2000 kills each action that often and tells what was found.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <random>
#include <regex>
#include <set>

#include "cli/run_line.h"
#include "meter/default_setup.h"
#include "shell/home_view.h"
#include "shell/link_setup.h"
#include "sim/sim_files.h"
#include "support/bench_meter.h"
#include "support/meter_kinds.h"
#include "support/temp_folder.h"
#include "system/disk_files.h"
#include "transfer/put_setup.h"

namespace counter::test {
namespace {

namespace fs = std::filesystem;

// The tool with a meter at its port and files on the disk.
struct KillBench : CliBenchOf<DiskFiles> {
    KillBench() {
        Home = Folder.Path;
        Make = [this] { return std::make_unique<BorrowedMachine>(Clock, *Plugged); };
        BuildDefaultSetup(Program.Image);
        Other = Program.Image;
        DigitsPut(Other, 191, "60");
        DigitsPut(Other, 189, "3F");
        Lay({});
        Store.Write(At("d.CT2"), Program.Image.SetupData + "\r\n");
        Start(Program);
        BuildDefaultSetup(Program.Image);
    }
    std::string At(const std::string& name) const { return Folder.At(name); }
    // Each of these is false where the action did not end well.
    bool Lay(const Words& settings) { return Store.Write(At("Settings.SSS"), SettingsOf(settings)).Ok(); }
    bool Cli(const Words& words, const std::string& script = "") {
        const int status = Run(words, script);
        if (status != kDone) std::cerr << words[0] << ": " << Err;
        return status == kDone;
    }
    // The same with a meter whose setup is the old or the new one.
    bool Ask(const Words& words, bool newer, MeterLine& line) {
        Plugged = &line;
        line.Meter().Words().SetNumber(55, 6, newer ? 10000 : 5000);
        return Cli(words);
    }
    static bool EndsProcess(const std::function<void()>& act) {
        try {
            act();
        } catch (const ProcessEnded&) {
            return true;
        }
        return false;
    }

    TempFolder Folder;
    VirtualPump Clock;
    RecordedDialogs Boxes;
    TriedDevice Tried;
    MeterLine Ascii{Clock, {}};
    MeterLine Rtu{Clock, MeterOf(kRtu)};
    MeterLine* Plugged = &Ascii;
    Session Program{Clock, Ascii, Boxes, {Store, Folder.Path}};
    SetupImage Other;
};

bool SaveAs(KillBench& bench, bool newer) {
    HomeView view(bench.Program);
    view.Load();
    bench.Boxes.Path = bench.At("x.CT2");
    DigitsPut(bench.Program.Image, 55, newer ? "002710" : "001388");
    return view.Controls.Click(*view.Controls.Find("mnuSaveAs")) == Refusal::None;
}

bool LeaveHome(KillBench& bench, bool newer) {
    HomeView view(bench.Program);
    return newer ? KillBench::EndsProcess([&] { view.Exit(); }) : bench.Lay({"BaudIndex=6"});
}

bool SaveLink(KillBench& bench, bool newer) {
    const FixedCatalog ports;
    LinkSetup view({bench.Clock, bench.Ascii, bench.Tried, ports, {bench.Store, bench.Folder.Path}});
    view.Load();
    view.Controls.Type(view.txtDevice, "/dev/null");
    view.Controls.Select(view.cboBaud, newer ? 6 : 5);
    view.Controls.Click(view.cmdSave);
    return view.lblResult.TextColor == ColorGreen;
}

// As large as a chart's bitmap, so that most kills meet a write that is not done.
bool WriteLarge(KillBench& bench, bool newer) {
    return bench.Store.Write(bench.At("x.bmp"), std::string(800'000, newer ? 'n' : 'o')).Ok();
}

struct Row {
    const char* Name;
    const char* File;
    std::function<bool(KillBench&, bool newer)> Act;
    bool Grows = false;  // line by line, and begun again
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.Name;
}

const char* const kSettings = "Settings.SSS";
const char* const kBackup = "backups/2026-03-04_05-06-07-089_address-01.CT2";

// clang-format off
const std::vector<Row> kRows = {
    {"Put follows the meter", kSettings, [](KillBench& b, bool n) { return SaveLinkSettings(n ? b.Other : b.Program.Image, b.Program.BringUp).Ok(); }},
    {"Exit",                  kSettings, LeaveHome},
    {"counter-link's Save",   kSettings, SaveLink},
    {"counter-link's port",   "ports/com1", [](KillBench& b, bool n) { return b.Cli({"ports", "map", "1", n ? "/dev/null" : "/dev/zero"}); }},
    {"settings init",         kSettings, [](KillBench& b, bool n) { return b.Cli({"settings", "init", "--force", n ? "BaudIndex=6" : "BaudIndex=5"}); }},
    {"settings set",          kSettings, [](KillBench& b, bool n) { return b.Cli({"settings", "set", n ? "BaudIndex=6" : "BaudIndex=5"}); }},
    {"button 9600",           kSettings, [](KillBench& b, bool n) { return n ? b.Cli({"edit", b.At("d.CT2"), "--out", b.At("x.CT2")}, "click cmd9600") : b.Lay({"BaudIndex=3"}); }},
    {"default",               "x.CT2",   [](KillBench& b, bool n) { return n ? b.Cli({"default", b.At("x.CT2")}) : b.Store.Write(b.At("x.CT2"), b.Other.SetupData).Ok(); }},
    {"edit over itself",      "d.CT2",   [](KillBench& b, bool n) { return b.Cli({"edit", b.At("d.CT2")}, n ? "enter txtSetpt[1] +012345" : "enter txtSetpt[1] +054321"); }},
    {"edit --out",            "x.CT2",   [](KillBench& b, bool n) { return b.Cli({"edit", b.At("d.CT2"), "--out", b.At("x.CT2")}, n ? "enter txtSetpt[1] +012345" : ""); }},
    {"set",                   "d.CT2",   [](KillBench& b, bool n) { return b.Cli({"set", b.At("d.CT2"), n ? "Setpoint 1=10" : "Setpoint 1=20"}); }},
    {"set --out",             "x.CT2",   [](KillBench& b, bool n) { return b.Cli({"set", b.At("d.CT2"), n ? "Setpoint 1=10" : "Setpoint 1=20", "--out", b.At("x.CT2")}); }},
    {"Save Setup As",         "x.CT2",   SaveAs},
    {"get",                   "x.CT2",   [](KillBench& b, bool n) { return b.Ask({"get", b.At("x.CT2")}, n, b.Ascii); }},
    {"get's own backup",      kBackup,   [](KillBench& b, bool n) { return b.Ask({"get", b.At("x.CT2")}, n, b.Ascii); }},
    {"get's service file",    "DataFil2", [](KillBench& b, bool n) { return b.Lay({"SerialProtocol=1"}) && b.Ask({"get", b.At("x.CT2")}, n, b.Rtu); }},
    {"put --backup",          "o.CT2",   [](KillBench& b, bool n) { return b.Ask({"put", b.At("d.CT2"), "--backup", b.At("o.CT2")}, n, b.Ascii); }},
    {"stream --csv",          "x.csv",   [](KillBench& b, bool n) { return b.Cli({"stream", "--count", n ? "40" : "30", "--csv", b.At("x.csv")}); }, true},
    {"a large file",          "x.bmp",   WriteLarge},
    {"meter's memory",        "m.txt",   [](KillBench&b, bool n) { return sim::WriteImageFile(b.At("m.txt"), n ? b.Other.SetupData : b.Program.Image.SetupData).empty(); }},
    {"meter's line",          "line",    [](KillBench& b, bool n) { return sim::PointLink(b.At("line"), n ? "/dev/null" : "/dev/zero").empty(); }},
};
// clang-format on

constexpr int kMostUs = 1'000'000;  // until a kill

class KillRun {
  public:
    explicit KillRun(const Row& row) : row_(row) {}
    void Run(int kills);

  private:
    std::string Content() const;
    std::set<std::string> Names() const;
    void MeasureBoth();
    void KillOnce();
    void Judge(int round);
    bool IsWhole(const std::string& content) const;

    const Row& row_;
    KillBench bench_;
    std::string old_, new_;
    std::set<std::string> names_;
    std::mt19937 random_{1};
    int longestUs_ = 0;  // until the kill
    int newer_ = 0, strays_ = 0;
};

void KillRun::Run(int kills) {
    MeasureBoth();
    ASSERT_NE(old_, new_);
    // A busy machine may let no child come as far as the end of a write; then there are more of them, and
    // each is given longer.
    int round = 0;
    for (; round < kills || (newer_ == 0 && round < 100 * kills); ++round) {
        KillOnce();
        Judge(round);
        if (testing::Test::HasFailure()) return;
        if (newer_ == 0) longestUs_ = std::min(longestUs_ + longestUs_ / 10, kMostUs);
    }
    EXPECT_GT(newer_, 0) << "came to writing at all";
    EXPECT_TRUE(row_.Act(bench_, true) && row_.Act(bench_, false)) << "goes on after kills";
    EXPECT_TRUE(row_.Grows || Content() == old_);
    EXPECT_EQ(Names(), names_) << "tidies up";
    std::cout << row_.Name << ": " << round << " kills, " << newer_ << " with another file, " << strays_
              << " with a temporary\n";
}

// What the link names, or what the file holds.
std::string KillRun::Content() const {
    const std::string link = bench_.Store.LinkTarget(bench_.At(row_.File));
    std::string content;
    if (!link.empty()) return link;
    EXPECT_TRUE(bench_.Store.Read(bench_.At(row_.File), content).Ok());
    return content;
}

std::set<std::string> KillRun::Names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(bench_.Folder.Path)) names.insert(entry.path());
    return names;
}

void KillRun::MeasureBoth() {
    EXPECT_TRUE(row_.Act(bench_, false));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(row_.Act(bench_, true));
    new_ = Content();
    EXPECT_TRUE(row_.Act(bench_, false));
    old_ = Content();
    const auto took = std::chrono::steady_clock::now() - start;
    longestUs_ = 1000 + static_cast<int>(std::chrono::duration_cast<std::chrono::microseconds>(took).count());
    names_ = Names();
}

void KillRun::KillOnce() {
    const pid_t child = fork();
    if (child == 0) {
        for (bool newer = true; row_.Act(bench_, newer);) newer = !newer;
        _exit(1);
    }
    usleep(random_() % static_cast<unsigned>(longestUs_));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << "failed before it was killed";
}

void KillRun::Judge(int round) {
    const std::string content = Content();
    EXPECT_TRUE(IsWhole(content)) << "round " << round << ": " << content;
    newer_ += content != old_ ? 1 : 0;
    std::set<std::string> strays = Names();
    for (const std::string& name : names_) EXPECT_EQ(strays.erase(name), 1U) << name;
    strays_ += strays.empty() ? 0 : 1;
    EXPECT_LE(strays.size(), 2U) << "temporaries pile up, " << *strays.begin();
    for (const std::string& stray : strays) EXPECT_NE(fs::path(stray).extension(), ".CT2");
}

bool KillRun::IsWhole(const std::string& content) const {
    static const std::regex csv("time,item1\n(2026-03-04T05:06:07\\.089-03:30,[0-9]{6}\n)*");
    return row_.Grows ? std::regex_match(content, csv) : content == old_ || content == new_;
}

class FileKill : public testing::TestWithParam<Row> {};

TEST_P(FileKill, LeavesTheOldOrTheNewFile) {
    const char* const wanted = std::getenv("COUNTER_KILLS");
    KillRun(GetParam()).Run(wanted == nullptr ? 20 : std::atoi(wanted));
}

std::string LettersOf(const testing::TestParamInfo<Row>& info) {
    std::string name = info.param.Name;
    std::erase_if(name, [](unsigned char c) { return std::isalnum(c) == 0; });
    return name;
}

INSTANTIATE_TEST_SUITE_P(Of, FileKill, testing::ValuesIn(kRows), LettersOf);

}  // namespace
}  // namespace counter::test

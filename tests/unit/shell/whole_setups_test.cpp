// Whatever a user does while a setup is on its way: memory, files and meter are each one whole setup, and the
// line at the bottom says which.
#include <gtest/gtest.h>

#include "shell/home_view.h"
#include "support/bench_meter.h"
#include "support/dice.h"
#include "support/meter_kinds.h"
#include "support/node_net.h"

namespace counter::test {
namespace {

constexpr const char* kGot = "Getting data from the Counter.  Data received OK.";
constexpr const char* kPut = "Putting data to the Counter.  Data appears to have Transferred O.K.";

struct SerialBench : BenchMeter {
    explicit SerialBench(const LinkKind& kind)
        : BenchMeter(MeterOf(kind), {kind.Setting, "BaudIndex=5"}), Meter(Line.Meter()) {
        EXPECT_TRUE(SwitchOn().Ok());
    }
    sim::Meter& Meter;
};

struct BehindNodeBench : NodeBench {
    explicit BehindNodeBench(const LinkKind& kind)
        : NodeBench({kind.Setting, "BaudIndex=5"}, {}, MeterOf(kind)), Meter(NodeBench::Meter()) {
        EXPECT_TRUE(LogIn());
    }
    sim::Meter& Meter;
};

// The meter holds "M"; the files hold setups that differ from it in a field of every frame of every road.
template <class World>
struct DeskOf : World {
    using World::Boxes, World::Meter, World::Program, World::Pump, World::Store;

    explicit DeskOf(const LinkKind& kind = kLinkKinds[0]) : World(kind) {
        Setups["M"] = Meter.ImageText();
        for (const std::string name : {"A", "B", "C"}) {
            SetupImage image{Setups["M"]};
            for (const int pos : {57, 145, 165, 229, 253}) DigitsPut(image, pos, "0" + name);
            Setups[name] = image.SetupData;
            Store.Contents[name + ".CT2"] = image.SetupData + "\r\n";
        }
        Home.Load();
        Home.Activate();
        Home.TellOutside = [this](const std::string& text) { Outside += text; };
    }
    // A menu entry, "mnuOpen A" with the file that is chosen.
    void Do(const std::string& act) {
        const std::size_t blank = act.find(' ');
        Boxes.Path = blank == std::string::npos ? "" : act.substr(blank + 1) + ".CT2";
        if (act == "outside") return Home.ExitFromOutside();
        Home.Controls.Click(*Home.Controls.Find(act.substr(0, blank)));
    }
    // The exit status, -1 where the program goes on.
    int End(const std::function<void()>& action) {
        try {
            action();
        } catch (const ProcessEnded& ended) {
            return ended.Status;
        }
        return -1;
    }
    std::string NameOf(const std::string& digits) {
        for (const auto& [name, setup] : Setups) {
            if (setup == digits) return name;
        }
        return "a mixture";
    }
    std::string InMemory() { return NameOf(Program.Image.SetupData); }
    std::string InMeter() { return NameOf(Meter.ImageText()); }
    const std::string& StatusLine() { return Home.lblPGText.Caption; }

    std::map<std::string, std::string> Setups;
    std::string Outside;  // what was told where the window is gone
    HomeView Home{Program};
};

using DeskBench = DeskOf<SerialBench>;

TEST(WholeSetups, WhatIsDoneInAWaitOfATransfer) {
    const struct {
        const char *First, *Meanwhile;
        double AfterMs;
        const char *Memory, *Meter, *Status;
        SetupSource Origin;
        const char *Before, *LastGet;
    } cases[] = {
        {"mnuGet", "mnuOpen B", 1200, "M", "M",
         "Getting data from the Counter.  Data received OK.  (memory has the meter's setup, not what was "
         "chosen meanwhile)",
         SetupSource::Meter, "B", "M"},
        {"mnuGet", "mnuSaveAs C", 1200, "M", "M", kGot, SetupSource::Meter, "A", "M"},
        {"mnuGet", "mnuGet", 1200, "M", "M", kGot, SetupSource::Meter, "M", "M"},
        {"mnuGet", "mnuPut", 1200, "A", "A",
         "The meter was written while it was read: what came was not taken. Get Setup once more.",
         SetupSource::File, "", ""},
        {"mnuPut", "mnuOpen B", 1500, "B", "A", kPut, SetupSource::File, "A", ""},
        {"mnuPut", "mnuGet", 1500, "A", "A", kPut, SetupSource::File, "", ""},
        {"mnuPut", "mnuPut", 1500, "A", "A", kPut, SetupSource::File, "", ""},
        {"mnuPut", "mnuVerify", 1500, "A", "A", kPut, SetupSource::File, "", ""},
        {"mnuVerify", "mnuOpen B", 1200, "B", "M",
         "7 fields differ in the meter from the setup in memory.  (as it was when Verify began; another is "
         "in "
         "memory now)",
         SetupSource::File, "A", ""},
        {"mnuVerify", "mnuGet", 1200, "M", "M",
         "7 fields differ in the meter from the setup in memory.  (as it was when Verify began; another is "
         "in "
         "memory now)",
         SetupSource::Meter, "A", "M"},
        {"mnuVerify", "mnuPut", 1200, "A", "A",
         "The meter was written while it was read: what came was not taken. Try once more.",
         SetupSource::File, "", ""},
    };
    for (const LinkKind& kind : kLinkKinds) {
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(kind.Name) + ": " + c.First + ", meanwhile " + c.Meanwhile);
            DeskBench bench(kind);
            bench.Do("mnuOpen A");
            bench.Pump.After(c.AfterMs, [&] { bench.Do(c.Meanwhile); });
            bench.Do(c.First);
            EXPECT_EQ(bench.InMemory(), c.Memory);
            EXPECT_EQ(bench.InMeter(), c.Meter);
            EXPECT_EQ(bench.StatusLine(), c.Status);
            EXPECT_EQ(bench.Store.Contents["C.CT2"].size(), 262U);
            Session& session = bench.Program;
            EXPECT_EQ(session.Origin.From, c.Origin);
            EXPECT_EQ(bench.NameOf(session.Origin.Image.SetupData), c.Memory);
            EXPECT_EQ(session.SetupBefore ? bench.NameOf(session.SetupBefore->Image.SetupData) : "",
                      c.Before);
            const auto& last = session.MeterAtLastGet;
            EXPECT_EQ(last ? bench.NameOf(last->Image.SetupData) : "", c.LastGet);
            const std::string line = last ? last->Line : "";
            EXPECT_EQ(line.find(" at 9600 baud") != std::string::npos, last.has_value()) << line;
        }
    }
}

// The end of the program, or another Put, is wanted as soon as so many frames have gone out.
TEST(WholeSetups, APutThatIsInterruptedAtEachOfItsFrames) {
    int acts = 0;
    const std::vector<std::string> ascii = {"WR1A", "W435", "WG2A", "WB74", "C0"};
    const std::vector<std::string> rtu = {"100001", "100011", "100021", "10003A", "10004D", "100041"};
    for (const LinkKind& kind : {kLinkKinds[0], kRtu}) {
        const std::vector<std::string>& frames = kind.Protocol == kRtu.Protocol ? rtu : ascii;
        // Of a reset nothing more is in the meter than before it, so that it goes out as well.
        const std::size_t whole = frames == ascii ? 4 : 6;
        for (std::size_t out = 0; out <= frames.size(); ++out) {
            for (const char* act : {"mnuExit", "outside", "mnuPut"}) {
                SCOPED_TRACE(std::string(kind.Name) + ", " + std::to_string(out) + " frames, " + act);
                DeskBench bench(kind);
                bench.Do("mnuOpen A");
                bool acted = false;
                auto watch = bench.Pump.Every(5, [&] {
                    if (acted || bench.Program.Writes.Running == 0 ||
                        bench.Program.LinkState.FramesWritten.size() != out)
                        return;
                    acted = true;
                    bench.Pump.After(0, [&] { bench.Do(act); });
                });
                const bool ends = std::string(act) != "mnuPut";
                const int status = bench.End([&] { bench.Do("mnuPut"); });
                if (!acted) continue;  // Modbus: the last answer is the end
                ++acts;
                EXPECT_EQ(status, ends ? 0 : -1);
                EXPECT_EQ(bench.InMeter(), !ends || out >= whole ? "A" : out == 0 ? "M" : "a mixture");
                if (!ends) {
                    EXPECT_EQ(bench.StatusLine(), kPut);
                    continue;
                }
                std::string text = "Written:", missing;
                for (std::size_t i = 0; i < frames.size(); ++i) (i < out ? text : missing) += " " + frames[i];
                text += ". Not written:" + missing + ". The meter has parts of two setups: put one again.";
                if (out == 0) text = "Nothing was written: the meter keeps the setup that it had.";
                if (out >= whole) text = "All was written: the meter has the whole setup.";
                EXPECT_EQ(bench.Outside, text);
                const bool box = std::string(act) == "mnuExit";
                EXPECT_EQ(bench.Boxes.Shown.empty() ? "" : bench.Boxes.Shown.back().Text, box ? text : "");
            }
        }
    }
    EXPECT_EQ(acts, 3 * (6 + 7));
}

// At any time of its waits.
TEST(WholeSetups, AGetThatIsCancelledLeavesAllAsItWas) {
    constexpr double kStepMs = 90;
    constexpr double kLongestMs =
        3300;  // a wait for the first character and the frame that sets the meter free
    for (const LinkKind& kind : kLinkKinds) {
        int cancelled = 0;
        for (double ms = kStepMs / 2;; ms += kStepMs) {
            SCOPED_TRACE(std::string(kind.Name) + " after " + std::to_string(ms));
            DeskBench bench(kind);
            bench.Do("mnuOpen A");
            const Session& session = bench.Program;
            const auto files = bench.Store.Contents;
            const MeterIdentity identity = session.Identity;
            double cancelledMs = 0;
            bench.Pump.After(ms, [&] {
                cancelledMs = bench.Pump.NowMs();
                bench.Home.Controls.Click(bench.Home.cmdCancel);
            });
            bench.Do("mnuGet");
            if (cancelledMs == 0) break;  // it was done before
            ++cancelled;
            EXPECT_EQ(bench.InMemory(), "A");
            EXPECT_EQ(session.Origin.From, SetupSource::File);
            EXPECT_EQ(bench.Store.Contents, files) << "settings and backups";
            EXPECT_EQ(session.Identity.FirmwareVersion, identity.FirmwareVersion);
            EXPECT_EQ(session.Identity.SetupFromMeter, identity.SetupFromMeter);
            EXPECT_EQ(session.LinkState.LinkError, 0);
            EXPECT_EQ(bench.StatusLine(), "Get Setup was cancelled. What is in memory is as it was.");
            EXPECT_FALSE(bench.Home.cmdCancel.Visible || bench.Home.pbBar.Visible || session.Home.Hourglass);
            EXPECT_LE(bench.Pump.NowMs() - cancelledMs, kLongestMs);
            bench.Do("mnuGet");
            EXPECT_EQ(bench.StatusLine(), kGot);
            EXPECT_EQ(bench.InMemory(), "M");
        }
        EXPECT_GT(cancelled, 40) << kind.Name;
    }
}

TEST(WholeSetups, APutIsCancelledOnlyAfterAQuestion) {
    for (const LinkKind& kind : {kLinkKinds[0], kRtu}) {
        for (const bool meant : {false, true}) {
            SCOPED_TRACE(std::string(kind.Name) + (meant ? ", meant" : ", not meant"));
            DeskBench bench(kind);
            bench.Do("mnuOpen A");
            bench.Boxes.SaysYes = meant;
            bench.Pump.After(4000, [&] { bench.Home.CancelTransfer(); });
            bench.Do("mnuPut");
            ASSERT_EQ(bench.Boxes.Shown.size(), 1U);
            EXPECT_TRUE(bench.Boxes.Shown[0].Text.starts_with("Written: ")) << bench.Boxes.Shown[0].Text;
            EXPECT_EQ(bench.InMemory(), "A");
            EXPECT_EQ(bench.InMeter(), meant ? "a mixture" : "A");
            EXPECT_EQ(bench.StatusLine().starts_with("Written: "), meant) << bench.StatusLine();
            EXPECT_EQ(bench.StatusLine() == kPut, !meant);
            bench.Home.CancelTransfer();
            EXPECT_EQ(bench.Boxes.Shown.size(), 1U) << "nothing is under way";
        }
    }
}

// The Setup view, opened in a wait, takes the version from the setup in memory.
TEST(WholeSetups, APutKeepsToTheVersionOfItsStart) {
    DeskBench bench(kRtu);
    bench.Do("mnuOpen A");
    bench.Pump.After(1500, [&] { bench.Program.Identity.FirmwareVersion = 51; });
    bench.Do("mnuPut");
    EXPECT_EQ(bench.InMeter(), "A") << "with the Cutoff Value, which older meters have not";
}

TEST(WholeSetups, ASecondExitEndsAPutAtOnce) {
    DeskBench bench;
    bench.Do("mnuOpen A");
    bench.Pump.After(1500, [&] { bench.Do("mnuExit"); });
    bench.Pump.After(1510, [&] { bench.Do("mnuExit"); });
    EXPECT_EQ(bench.End([&] { bench.Do("mnuPut"); }), 0);
    EXPECT_LT(bench.Pump.NowMs(), 1000 + 1510 + 300);
    EXPECT_TRUE(bench.Boxes.Shown.empty());
    EXPECT_NE(bench.Outside, "");
}

// Acts come at any time, most of them in a wait of one before.
template <class Desk>
void PlayEpisode(Dice& dice, const LinkKind& kind, int number) {
    const char* const acts[] = {"mnuGet",    "mnuGet",    "mnuPut",    "mnuPut",
                                "mnuOpen A", "mnuOpen B", "mnuOpen C", "mnuSaveAs S"};
    Desk bench(kind);
    std::string story = "episode " + std::to_string(number) + ", " + kind.Name;
    bench.Do("mnuOpen A");
    double atMs = 0;
    for (int act = 0; act < 5; ++act) {
        atMs += dice.Below(dice.OneIn(2) ? 400 : 4000);
        bench.Pump.After(atMs, [&, what = dice.Pick(acts)] {
            story += std::string("\n") + std::to_string(bench.Pump.NowMs()) + " " + what;
            bench.Do(what);
            EXPECT_NE(bench.InMemory(), "a mixture") << story;
            const std::string saved = bench.Store.Contents["S.CT2"];
            EXPECT_TRUE(saved.empty() || bench.NameOf(saved.substr(0, 260)) != "a mixture") << story;
        });
    }
    bench.Pump.Pass(200'000);
    EXPECT_NE(bench.InMemory(), "a mixture") << story;
    EXPECT_NE(bench.InMeter(), "a mixture") << story << "\n" << bench.StatusLine();
    if (bench.StatusLine() == kGot) {
        EXPECT_EQ(bench.InMemory(), bench.InMeter()) << story;
    }
}

TEST(WholeSetups, ARandomUserNeverMixesThem) {
    Dice dice(20);
    for (int episode = 0; episode < RandomActs(150) && !HasFailure(); ++episode) {
        const bool serial = !dice.OneIn(3);
        const LinkKind& kind = serial ? dice.Pick(kLinkKinds) : kLinkKinds[dice.Below(2)];
        serial ? PlayEpisode<DeskBench>(dice, kind, episode)
               : PlayEpisode<DeskOf<BehindNodeBench>>(dice, kind, episode);
    }
}

}  // namespace
}  // namespace counter::test

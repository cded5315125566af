// A random user on the whole program, at a meter of any kind, on a good line and on a bad one.
//
// The few seconds here always play the same. For a campaign, and to play one again that failed:
//   MONKEY_MINUTES=15 build/asan/bin/gui_monkey_tests
//   MONKEY_SEED=1234 MONKEY_LOUD=1 build/asan/bin/gui_monkey_tests    tells each act before it is done
#include <QElapsedTimer>
#include <cstdio>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

#include "support/monkey.h"
#include "support/node_net.h"
#include "support/setup_shown.h"
#include "support/temp_folder.h"
#include "support/truth.h"

namespace counter::test {
namespace {

const TempFolder& Folder() {
    static const TempFolder folder;
    return folder;
}

sim::MeterOptions AnyMeter(Dice& dice, bool calm) {
    sim::MeterOptions options = MeterOf(dice.Pick(kLinkKinds), calm ? 83 : 70 + dice.Below(16));
    options.InputBoard = dice.Below(4);
    options.RelayBoard = dice.Below(4);
    options.AnalogBoard = dice.Below(5);  // older meters can't drive all of them, which ends the program
    options.Type = dice.Pick(std::initializer_list<int>{1, 3, 3, 3, 5, 7});
    options.Extended = !dice.OneIn(4);
    options.StrictBaud = dice.OneIn(4);
    options.Signal = {sim::SignalKind::Sine, 500, 200, 20};
    if (dice.OneIn(4)) options.Patches = {{185, "6"}};  // a remote display, of which a Get speaks
    return options;
}

std::vector<std::string> SettingsFor(Dice& dice, const sim::MeterOptions& meter) {
    std::vector<std::string> words = {"FirmwareVersion=" + std::to_string(meter.Version.value_or(83)),
                                      "MeterType=" + std::to_string(meter.Type.value_or(3)),
                                      "SerialProtocol=" + std::to_string(static_cast<int>(*meter.Protocol))};
    if (dice.OneIn(10)) words.emplace_back("CommsEnabled=0");
    if (dice.OneIn(10)) words.emplace_back("ProgramKind=7");
    return words;
}

// What the user finds when it chooses a file; one can't be read, some not always be written.
void LayOutFiles(Dice& dice, MemoryFiles& store) {
    store.Contents[Folder().At("short.CT2")] = std::string(100, '3');
    store.Contents[Folder().At("odd.CT2")] = "\xFF\n\"" + std::string(2000, 'x');
    store.Refused = {Folder().At("locked.CT2")};
    if (dice.OneIn(3)) store.ReadOnly = {Folder().At("kept.CT2"), "home/Settings.SSS", "home/DataFil2"};
    for (const char* name : {"0", "1", "2", "3", "5", "A"}) {
        std::string& curve = store.Contents["home/home/" + std::string(name) + ".PRM"];
        curve.append(84, '5').append("\r\n").append(84, *name).append("\r\n");
    }
}

std::string AnyPath(Dice& dice) {
    const char* const names[] = {"kept.CT2", "short.CT2", "odd.CT2", "lost.CT2", "locked.CT2", "no/such.CT2"};
    return dice.OneIn(6) ? "" : Folder().At(dice.Pick(names));
}

std::vector<sim::Fault> AnyFaults(Dice& dice) {
    const char* const kinds[] = {"noreply",  "cut=5",       "extra", "garbage", "badcheck",   "exception=2",
                                 "late=900", "pause=3,400", "paced", "echo",    "badecho",    "gone=4",
                                 "wrongid",  "status",      "twice", "close=3", "pieces=3,90"};
    std::string fault = dice.OneIn(2) ? "*:" : "*#" + std::to_string(1 + dice.Below(9)) + ":";
    return WithFaults({}, {fault += dice.Pick(kinds)}).Faults;
}

std::string AnyBytes(Dice& dice) {
    std::string bytes(static_cast<std::size_t>(dice.Below(60)), '\r');
    for (char& byte : bytes) byte = static_cast<char>(dice.Below(dice.OneIn(2) ? 256 : 60));
    return bytes;
}

struct SerialDesk {
    SerialDesk(Dice& dice, const sim::MeterOptions& meter) : Bench(meter, SettingsFor(dice, meter)) {}
    const char* Break(Dice& dice) {
        MeterLine& line = Bench.Line;
        const int what = dice.Below(5);
        if (what == 0) return line.Unplug(), "the cable is pulled";
        if (what == 1) return line.GoAway(), "the adaptor is pulled";
        if (what == 2) return line.NextOpen = {StatusKind::NotFound, "port", "gone"}, "no port to open";
        if (what == 3) return line.Inject(AnyBytes(dice)), "noise";
        return line.Meter().SetFaults(AnyFaults(dice)), "faults";
    }
    void Heal() { Bench.Line.Plug(), Bench.Line.NextOpen = {}, Bench.Line.Meter().SetFaults({}); }
    std::string MeterImage() { return Bench.Line.Meter().ImageText(); }
    void LogIn() {}
    Desktop& Desk() { return *Bench.Desk; }
    GuiBench Bench;
};

struct NodeDesk {
    NodeDesk(Dice& dice, const sim::MeterOptions& meter) : Bench(SettingsFor(dice, meter), {}, meter) {
        Start(Bench.Program);
        TakeData(Bench.Store);
        Of = std::make_unique<Desktop>(Bench.Program, Desktop::Folders{{"help"}, {"boards"}});
        Of->ShowFirst();
        Of->Window().show();
    }
    const char* Break(Dice& dice) {
        const int what = dice.Below(4);
        if (what == 0) return Bench.Net.Break(), "the node hangs up";
        if (what == 1) return Bench.Net.StrangerCalls(), "a stranger calls";
        if (what == 2) return Bench.Net.Arrive(AnyBytes(dice)), "noise";
        return Bench.Meter().SetFaults(AnyFaults(dice)), "faults";
    }
    void Heal() { Bench.Meter().SetFaults({}); }
    std::string MeterImage() { return Bench.Meter().ImageText(); }
    void LogIn() {
        Bench.Pump.After(0, [this] { Of->LogIn(); });
    }
    Desktop& Desk() { return *Of; }
    NodeBenchOf<GuiPump> Bench;
    std::unique_ptr<Desktop> Of;
};

// Nothing of what was begun is under way any more, and every view still comes and goes.
template <class World>
void ExpectAtRest(World& world) {
    Session& program = world.Bench.Program;
    GuiPump& pump = world.Bench.Pump;
    EXPECT_EQ(pump.Reasons(), "");
    EXPECT_FALSE(program.Home.Hourglass);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(GuiBench::Dialog(), nullptr);
    MainWindow& window = world.Desk().Window();
    for (const HomeMenuRow& row : HomeMenu()) {
        if (!row.Opens) continue;
        world.Desk().Open(*row.Opens);
        EXPECT_EQ(window.Current(), world.Desk().PageOf(*row.Opens)) << row.Name;
        window.Current()->Leave();
        pump.Pass(3000);
        EXPECT_EQ(window.Current(), world.Desk().PageOf(ViewId::Home)) << row.Name;
        EXPECT_FALSE(program.Home.Hourglass) << row.Name;
    }
    world.Bench.Boxes.SaysYes = true;  // whatever was changed may be lost
    world.Desk().Home().Exit();
}

// Between two acts and with no wait under way, the window shows what the view on show says.
template <class World>
void LookAtView(World& world) {
    const Session& program = world.Bench.Program;
    if (world.Bench.Pump.Reasons().find('>') != std::string::npos) return;
    const ViewPage* page = world.Desk().Window().Current();
    if (const auto* setup = dynamic_cast<const SetupPage*>(page)) {
        ExpectShown(*setup, "on show");
        ExpectInView(*setup, program.Views.HelpId);
    } else if (page == world.Desk().PageOf(ViewId::Home)) {
        EXPECT_NE(program.Views.HelpId / 100, 11) << "help of the Setup view";
    }
}

// On a calm day nothing fails and the user stays; otherwise anything may happen.
template <class World>
void Play(Dice& dice, bool calm, int acts) {
    World world(dice, AnyMeter(dice, calm));
    LayOutFiles(dice, world.Bench.Store);
    Truth truth(world.Bench.Program, world.Bench.Store, calm, [&] { return world.MeterImage(); });
    Monkey monkey(dice, world.Bench.Pump, world.Desk(), world.Bench.Boxes, calm, [&]() -> std::string {
        world.Bench.Boxes.Path = calm ? Folder().At("kept.CT2") : AnyPath(dice);
        if (calm || dice.OneIn(2)) return "another path";
        return dice.OneIn(3) ? (world.Heal(), "healed") : world.Break(dice);
    });
    monkey.AfterAct = [&] {
        truth.Look();
        LookAtView(world);
    };
    int status = -1;
    try {
        world.LogIn();
        monkey.Play(acts);
        world.Heal();
        ExpectAtRest(world);
    } catch (const ProcessEnded& ended) {
        status = ended.Status;
    } catch (const EndlessWait& wait) {
        ADD_FAILURE() << wait.what();
    }
    // The Setup view, opened in the middle of a Get and a Put, may see a board that fits no meter.
    EXPECT_TRUE(status == 0 || status == kIncompatibleBoardExit || (!calm && status == kNoNodeExit))
        << status;
    EXPECT_FALSE(status == 0 && world.Bench.Program.Port.PortOpen());
    const std::string& digits = world.Bench.Program.Image.SetupData;
    EXPECT_TRUE(!calm || digits.find_first_not_of("0123456789ABCDEF") == std::string::npos) << digits;
    if (testing::Test::HasFailure()) std::fputs(monkey.Story().c_str(), stderr);
}

// A program that ends in the middle of things is unwound through the toolkit, which then leaves the
// events that it was at, and for the next program what it showed.
class Unwound {
  public:
#ifdef __SANITIZE_ADDRESS__
    Unwound() {
        __lsan_disable();
    }
    ~Unwound() {
        ClearScreen(), __lsan_enable();
    }
#else
    ~Unwound() {
        ClearScreen();
    }
#endif

  private:
    static void ClearScreen() {
        while (QWidget* popup = QApplication::activePopupWidget()) popup->hide();
        while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
        GuiPump::Settle();
    }
};

void Episode(unsigned seed, int acts) {
    SCOPED_TRACE("MONKEY_SEED=" + std::to_string(seed));
    std::fprintf(stderr, "monkey %u\n", seed);
    Dice dice(seed);
    if (dice.OneIn(2)) return Play<SerialDesk>(dice, true, acts);
    const Unwound unwound;
    dice.OneIn(4) ? Play<NodeDesk>(dice, false, acts) : Play<SerialDesk>(dice, false, acts);
}

TEST(Monkey, BreaksNothing) {
    const int minutes = qEnvironmentVariableIntValue("MONKEY_MINUTES");
    bool chosen = false;
    unsigned seed = qEnvironmentVariableIntValue("MONKEY_SEED", &chosen);
    const unsigned last = minutes > 0 ? ~0U : chosen ? seed : 12;
    const int acts = minutes > 0 || chosen ? 400 : 150;
    QElapsedTimer running;
    running.start();
    for (; seed <= last && !HasFailure(); ++seed) {
        if (minutes > 0 && running.elapsed() > minutes * 60'000) break;
        Episode(seed, acts);
    }
}

}  // namespace
}  // namespace counter::test

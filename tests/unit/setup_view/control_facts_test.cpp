// What the panel tells about a control, the search over all pages, and the live value.
#include "setup_view/control_facts.h"

#include "settings/settings.h"
#include "setup_view/field_search.h"
#include "setup_view/live_value.h"
#include "stories.h"

namespace counter::test {
namespace {

// clang-format off
TEST(ControlFacts, RangeUnitAndTheMetersValue) {
    const struct {
        const char *Given, *Control, *Where, *Range, *Unit, *Meter, *WhyNot;
    } cases[] = {
        {"",              "txtGateTime",   "Input+Display, Input", "0.00 to 199.99", "seconds", "000.10", ""},
        {"193=4A; 199=C0", "txtTimeOut",    "Input+Display, Input", "-999999 to +999999", "", "+000000.", ""},
        {"193=4C; 199=83; 151=12", "txtPulses", "Input+Display, Input", "0.0 to 5999.9", "", "1000.0", ""},
        {"151=13",        "txtScale1[0]",  "Scaling, Item 1", "-9.99999 to +9.99999", "", "+1.00000", ""},
        {"197=20",        "txtLoIn1[0]",   "Scaling, Item 1", "-999999 to +999999 with a point anywhere", "", "+000000.", ""},
        {"185=54; 199=50", "txtOffset1[0]", "Scaling, Item 1", "-99:59:59 to +99:59:59 as hours, minutes, seconds", "", "+00. 00. 00", ""},
        {"151=23; 169=80", "txtSetpt[1]",   "Relay Alarms, Alarm 1", "-99999.9 to +99999.9", "of Item 2", "+01000.0", ""},
        {"",              "cboTrigSlpA[0]", "Scaling, Item 1", "one of: Positive; Negative", "", "Positive", ""},
        {"",              "cboAddress",    "Communication, Serial Communications", "one of 31: 1 to 31", "", "1", ""},
        {"187=20",        "txtCusRecog",   "Communication, Serial Communications", "0 to 255", "", "35", ""},
        {"",              "chkLF",         "Communication, Serial Communications", "on or off", "", "off", ""},
        {"",              "txtLoIn1[0]",   "Scaling, Item 1", "-999999 to +999999 with a point anywhere", "", "+000000.", "is disabled. The scale or a curve is in force."},
    };
    for (const auto& c : cases) {
        SetupBench bench(c.Given);
        bench.Open();
        const Control* control = bench.View.Controls.FindFull(c.Control);
        bench.View.Controls.ComeToTab(control->Tab);
        const SetupImage meter = bench.Image();
        const ControlFacts facts = FactsOf(bench.View, *control, &meter);
        EXPECT_EQ(facts.Where, c.Where) << c.Control;
        EXPECT_EQ(facts.Range, c.Range) << c.Control;
        EXPECT_EQ(facts.Unit, c.Unit) << c.Control;
        EXPECT_EQ(facts.Meter, c.Meter) << c.Control;
        EXPECT_EQ(facts.WhyNot, c.WhyNot) << c.Control;
        EXPECT_EQ(FactsOf(bench.View, *control, nullptr).Meter, "") << c.Control;
    }
}

TEST(FieldSearch, FindsOnAllPagesAndSaysWhatCantBeReached) {
    const auto help = [](int number) { return std::string(number == 1120 ? "the crystal of the meter" : ""); };
    const struct {
        const char *Given, *Text;
        bool Found;
        const char *First, *Line, *Why;
    } cases[] = {
        {"",          "setpoint 2",      true, "txtSetpt[2]",    "Setpoint 2: +020000.  (Relay Alarms, Alarm 2)", ""},
        {"",          "SCALE 1",         true, "txtScale1[0]",   "Scale 1: +1.00000  (Scaling, Item 1)", ""},
        {"199=0B",    "scale 1",         true, "txtScale1[2]",   "Scale 1: +1.00000  (Scaling, Item 2)", ""},
        {"109=04",    "even",            true, "cboParity",      "Parity: None  (Communication, Serial Communications)", ""},
        {"",          "crystal",         true, "txtCal",         "Calibration, Parts per Million: -00100.  (Input+Display)", ""},
        {"",          "setpoint 3",      true, "txtSetpt[3]",    "", "This setup has no such field."},
        {"",          "low in 1",        true, "txtLoIn1[0]",    "", "Low In 1 is disabled. The scale or a curve is in force."},
        {"193=09",    "setpoint 1",      true, "txtSetpt[1]",    "", "Setpoint 1 is on a tab that is not offered. There is no relay board."},
        {"",          "no such words",   false, "",               "", ""},
        {"",          "  ",              false, "",               "", ""},
    };
    for (const auto& c : cases) {
        SetupBench bench(c.Given);
        bench.Open();
        const std::vector<FieldHit> hits = SearchFields(bench.View, c.Text, help);
        ASSERT_EQ(!hits.empty(), c.Found) << c.Text;
        if (hits.empty()) continue;
        EXPECT_EQ(hits[0].Found->FullName(), c.First) << c.Text;
        if (*c.Line != '\0') {
            EXPECT_EQ(hits[0].Line, c.Line);
        }
        EXPECT_EQ(hits[0].Why, c.Why) << c.Text;
        EXPECT_EQ(ComeTo(bench.View, *hits[0].Found) == Refusal::None, hits[0].Why.empty()) << c.Text;
        EXPECT_TRUE(!hits[0].Why.empty() || bench.View.CurrentTab() == hits[0].Found->Tab) << c.Text;
    }
}
// clang-format on

struct LiveBench : SetupBench {
    LiveBench() {
        Bench.Line.Unplug();
        Bench.SwitchOn();
    }
    LiveValue Live{Bench.Program};
    std::size_t Asked() { return Bench.Line.Sent().size(); }
};

TEST(LiveValue, AsksEverySecondUntilItIsSwitchedOff) {
    LiveBench bench;
    for (const double ms : {310.0, 1900.0}) bench.Bench.Line.InjectAfter(ms, "  123.45\r");
    bench.Live.Start();
    bench.Bench.Pump.Pass(1950);
    EXPECT_EQ(bench.Asked(), 2U);
    bench.Live.Stop();
    bench.Bench.Pump.Pass(5000);
    EXPECT_EQ(bench.Asked(), 2U);
    EXPECT_EQ(bench.Live.Text(), "123.45");
    EXPECT_EQ(bench.Live.Trouble(), "");
}

TEST(LiveValue, AFailureIsToldAndEndsIt) {
    LiveBench bench;
    bench.Live.Start();
    bench.Bench.Pump.Pass(9000);
    EXPECT_FALSE(bench.Live.On());
    EXPECT_EQ(bench.Asked(), 1U);
    EXPECT_EQ(bench.Live.Trouble(), "No reading: no reply within 3 seconds (21).");
}

// Switched on in somebody's wait it lets that go on at once, and begins when it is over.
TEST(LiveValue, NeverAsksInAWaitOfSomebodyElse) {
    LiveBench bench;
    VirtualPump& pump = bench.Bench.Pump;
    pump.After(100, [&] {
        const double startMs = pump.NowMs();
        pump.After(1000, [&] {
            bench.Live.Start();
            EXPECT_EQ(pump.NowMs(), startMs + 1000);
        });
        pump.Pass(5000);
        EXPECT_EQ(pump.NowMs(), startMs + 5000);
        EXPECT_EQ(bench.Asked(), 0U);
    });
    pump.Pass(7000);
    EXPECT_EQ(bench.Asked(), 1U);
    LiveBench without;
    without.Bench.Program.Settings.CommsEnabled = Comms::NoLink;
    without.Live.Start();
    EXPECT_FALSE(without.Live.On());
}

}  // namespace
}  // namespace counter::test

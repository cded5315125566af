// Random walks: whatever a setup holds and whatever a user does, the image stays an image, an action writes
// its own bits alone, and a view that was walked through equals one that is built from what is there.
#include <map>
#include <random>
#include <set>
#include <vector>

#include "stories.h"
#include "support/dice.h"

namespace counter::test {
namespace {

constexpr int kActions = 5;
constexpr int kRebuildEvery = 8;

using Fields = std::vector<Field>;

// What a refresh repairs on its way: the display item, and sources that aren't offered.
const Fields kRepaired = {Field::DisplayItem,  Field::AnalogSource, Field::AnalogSource2, Field::Alarm1Source,
                          Field::Alarm2Source, Field::Alarm3Source, Field::Alarm4Source};

// What an action on a control may change beside the field that the control shows.
const Fields kOfMode = {Field::Mode, Field::Function, Field::DisplayType, Field::ClassAndCurve};
const Fields kOfAlarms34 = {Field::Spare229, Field::Deviation3Type, Field::Deviation4Type};
const std::map<std::string, Fields> kBeside = {
    {"cboInOpt", kOfMode},
    {"cboMode", kOfMode},
    {"cboFunction", {Field::DisplayType, Field::ClassAndCurve}},
    {"optBasic", kOfMode},
    {"optExtended", kOfMode},
    {"cboCusCrv", {Field::ClassAndCurve, Field::SquareRoot}},
    {"cboDevTyp[1]", {Field::DeviationCode}},
    {"cboDevTyp[2]", {Field::DeviationCode}},
    {"cboDevTyp[3]", kOfAlarms34},
    {"cboDevTyp[4]", kOfAlarms34},
    {"chkDevStatus", {Field::DeviationCode}},
    {"cboProtocol", {Field::DisplayType}},
};

// The bits of the byte at `pos` that are the fields'. A value changes nothing until digits are typed.
int BitsOf(const Fields& fields, int pos) {
    int bits = 0;
    for (const Field field : fields) {
        const FieldRow& row = RowOf(field);
        const bool here = row.Pos == pos && row.ValueCode == kNoValueCode;
        for (int bit = row.LoBit; here && bit <= row.HiBit; ++bit) bits |= 1 << bit;
    }
    return bits;
}

// What a rebuilt view need not agree in: looks that the rules leave over from what was done before.
// A transmitter's relay list can take the alarms away until the view is opened again.
bool KeepsItsPast(const Control& control, int meterType) {
    static const std::set<std::string> kNames = {
        "tabSetup",     "cboAnaOpt", "cboDType",        "cboResoln",      "cboDevTyp",
        "chkDevStatus", "txtDev",    "cboCutoffEnable", "txtPulses",      "lblItem2",
        "fraPulses",    "lblItem1",  "lblItem3",        "fraCutoffEnable"};
    return control.Tab == kCommunicationTab || control.Tab == kAnalogTab || kNames.count(control.Name) > 0 ||
           (control.Tab == kAlarmsTab && meterType >= 5);
}

std::string Look(const Control& control) {
    return control.Text + "/" + control.Caption + "/" + std::to_string(control.ListIndex) + "/" +
           std::to_string(control.Value) + "/" + std::to_string(control.Entries.size());
}

class Walk {
  public:
    void Run() {
        const int sequences = RandomActs(100'000) / kActions;
        for (int i = 0; i < sequences && !testing::Test::HasFailure(); ++i) {
            if (!Open()) continue;
            for (int k = 0; k < kActions; ++k) Act();
            if (i % kRebuildEvery == 0) CompareWithRebuilt();
        }
        EXPECT_GT(acted_, sequences);
        EXPECT_GT(refused_, sequences);
    }

  private:
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    char Digit() { return "0123456789ABCDEF"[Below(16)]; }

    void MakeWorld() {
        Session& session = bench_.Bench.Program;
        constexpr int kTypes[] = {1, 3, 3, 3, 5, 7};
        constexpr const char* kBoards[] = {"49", "49", "4C", "4A", "48", "69", "2C"};
        session.Identity.MeterType = kTypes[Below(6)];
        session.Identity.SetupFromMeter = Below(4) == 0;
        session.Settings.CommsEnabled = Below(3) == 0;
        session.LinkState.ModbusLink = Below(4) == 0;
        for (char& digit : bench_.Image().SetupData) digit = Digit();
        if (Below(4) == 0) return;
        DigitsPut(bench_.Image(), 193, kBoards[Below(7)]);  // otherwise half of all boards don't exist
        DigitsPut(bench_.Image(), 185, Below(3) == 0 ? "04" : "14");
    }

    bool Open() {
        bench_.Image().SetupData.resize(kImageDigits);
        MakeWorld();
        bench_.Ended = false;
        bench_.Open();
        return !bench_.Ended;
    }

    void Act() {
        Form& form = bench_.View.Controls;
        if (Below(4) == 0) form.ComeToTab(Below(7));
        form.OnlyPageOnShow = Below(3) == 0;
        Control& control = Pick(form);
        if (control.Name == "cmdRead") return;  // reads for ever
        const std::string before = bench_.Image().SetupData;
        const Refusal refusal = ActOn(form, control);
        refusal == Refusal::None ? ++acted_ : ++refused_;
        Check(control, before, refusal);
    }

    // Any control; mostly one that can be reached and is more than a frame.
    Control& Pick(Form& form) {
        for (int tries = Below(4) * 10;; --tries) {
            Control& control = *(form.begin() + Below(static_cast<int>(form.end() - form.begin())));
            const bool actable = control.Kind != ControlKind::Frame && control.Kind != ControlKind::Label;
            if (tries <= 0 || (actable && form.Reach(control) == Refusal::None)) return control;
        }
    }

    Refusal ActOn(Form& form, Control& control) {
        if (control.Kind == ControlKind::List)
            return form.Select(control, Below(static_cast<int>(control.Entries.size()) + 2) - 1);
        if (control.Kind == ControlKind::Check) return form.Check(control, Below(2));
        const Refusal refusal = form.Click(control);
        if (refusal == Refusal::None && control.Kind == ControlKind::Value) {
            bench_.Bench.Program.Views.EntryReturn = 1;
            bench_.View.EntryClosed();
        }
        return refusal;
    }

    void Check(const Control& control, const std::string& before, Refusal refusal) {
        const std::string& after = bench_.Image().SetupData;
        ASSERT_EQ(after.size(), before.size()) << control.FullName();
        ASSERT_EQ(after.find_first_not_of("0123456789ABCDEF"), std::string::npos) << control.FullName();
        ASSERT_TRUE(refusal == Refusal::None || after == before) << control.FullName();
        if (after == before) return;
        const SetupImage old{before};
        const auto beside =
            kBeside.count(control.Name) > 0 ? kBeside.find(control.Name) : kBeside.find(control.FullName());
        const Fields more = beside == kBeside.end() ? Fields() : beside->second;
        for (int pos = 1; pos < kImageDigits; pos += 2) {
            const int changed = ByteGet(old, pos) ^ ByteGet(bench_.Image(), pos);
            const int allowed =
                BitsOf(kRepaired, pos) | BitsOf(more, pos) | BitsOf(bench_.View.FieldsOf(control), pos);
            ASSERT_EQ(changed & ~allowed, 0) << control.FullName() << " at " << pos << " of\n" << before;
        }
    }

    void CompareWithRebuilt() {
        const std::string walked = bench_.Image().SetupData;
        bench_.View.ViewRefresh();
        rebuilt_.Bench.Program.Settings.CommsEnabled = bench_.Bench.Program.Settings.CommsEnabled;
        rebuilt_.Bench.Program.LinkState.ModbusLink = bench_.Bench.Program.LinkState.ModbusLink;
        rebuilt_.Bench.Program.Identity = bench_.Bench.Program.Identity;
        rebuilt_.Image() = bench_.Image();
        rebuilt_.Ended = false;
        rebuilt_.Open();
        // The point of a third item outlives the Function that had it.
        auto point3 = [](SetupBench& bench) { return bench.Bench.Program.Derived.ItemDecPts[3]; };
        if (point3(bench_) != point3(rebuilt_)) return;
        // Lists that lost their selection break the chain, and what hangs on it keeps its past.
        const int board = bench_.Bench.Program.Derived.InputOption;
        if (rebuilt_.Ended || board > 3 || rebuilt_.Seen("cboFunction") == "(none)") return;
        form(bench_).OnlyPageOnShow = form(rebuilt_).OnlyPageOnShow = false;
        auto expected = form(rebuilt_).begin();
        for (const Control& control : form(bench_)) {
            const Control& other = *expected++;
            if (KeepsItsPast(control, bench_.Bench.Program.Identity.MeterType)) continue;
            const bool shown = form(rebuilt_).Reach(other) == Refusal::None;
            ASSERT_EQ(form(bench_).Reach(control) == Refusal::None, shown)
                << control.FullName() << " " << walked;
            if (!shown) continue;
            ASSERT_EQ(Look(control), Look(other)) << control.FullName() << " " << walked;
        }
    }
    static Form& form(SetupBench& bench) { return bench.View.Controls; }

    std::mt19937 random_{20};
    SetupBench bench_, rebuilt_;
    int acted_ = 0, refused_ = 0;
};

TEST(SetupView, RandomWalks) {
    Walk().Run();
}

TEST(SetupView, BearsAnyImage) {
    std::mt19937 random(7);
    SetupBench bench;
    for (int i = 0; i < 2000; ++i) {
        std::string& digits = bench.Image().SetupData;
        digits.resize(random() % 320);
        for (char& digit : digits) digit = static_cast<char>(random() % (i % 2 ? 256 : 128));
        const std::size_t length = digits.size();
        bench.Open();
        bench.View.Controls.ComeToTab(kFilterTab);
        bench.View.Controls.ComeToTab(kCommunicationTab);
        bench.View.Controls.ComeToTab(kAnalogTab);
        ASSERT_EQ(digits.size(), length);
        for (const Control& control : bench.View.Controls) {
            if (control.Kind != ControlKind::List) continue;
            ASSERT_GE(control.ListIndex, -1) << control.FullName();
            ASSERT_LT(control.ListIndex, static_cast<int>(control.Entries.size())) << control.FullName();
        }
    }
}

}  // namespace
}  // namespace counter::test

// Random walks: whatever a setup holds and whatever a user does, the image stays an image, an action writes
// its own bits alone, and a view that was walked through equals one that is built from what is there.
#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <vector>

#include "digit_entry/digit_entry.h"
#include "menu_view/menu_words.h"
#include "meter/meter_words.h"
#include "meter/text.h"
#include "stories.h"
#include "support/dice.h"

namespace counter::test {
namespace {

constexpr int kActions = 7;

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

// The bits of the byte at `pos` that are the fields'.
int BitsOf(const Fields& fields, int pos) {
    int bits = 0;
    for (const Field field : fields) {
        const FieldRow& row = RowOf(field);
        if (row.ValueCode != kNoValueCode && pos >= row.Pos && pos < row.Pos + row.Digits) return 255;
        const bool here = row.Pos == pos;
        for (int bit = row.LoBit; here && bit <= row.HiBit; ++bit) bits |= 1 << bit;
    }
    return bits;
}

// All of a control that a user sees. The blank before a value goes or comes by its own rules until the
// refresh.
std::string Look(const Control& control) {
    std::string look = control.Text.substr(control.Text.starts_with(' ')) + "/" + control.Caption + "/" +
                       std::to_string(control.ListIndex) + "/" + std::to_string(control.Value) +
                       (control.Enabled ? "/on/" : "/off/");
    look += std::string(ColorName(control.TextColor.value_or(ColorBlack))) + "/" +
            std::string(ColorName(control.BackColor.value_or(ColorWhite))) + "/";
    for (const std::string_view entry : control.Entries) look += std::string(entry) + "|";
    for (const bool offered : control.Offered) look += offered ? '1' : '0';
    return look;
}

bool OnShow(const Control& control) {
    return control.Visible && (!control.Container || OnShow(*control.Container));
}

// Where a view that was walked through may differ from one that is built, as the rules want it.
struct Difference {
    const char* Why;
    std::set<std::string> Controls;
    bool (*Where)(const Session& session) = [](const Session&) { return true; };
};
const Difference kDifferences[] = {
    {"unchecking leaves the lists as they are", {"cboDevTyp[1]", "cboDevTyp[2]"}},
    {"a picked source leaves the texts", {"txtSetpt", "txtDev"}},
    {"a picked point leaves those of a clock",
     {"txtLoRd1", "txtHiRd1", "txtLoRd2", "txtHiRd2"},
     [](const Session& session) { return session.Derived.DisplayType == DisplayType::Clock; }},
    {"coming shows the characters, the rules of the protocol hide them",
     {"fraTranChars", "cboTranChars", "fraTranStart", "txtTranStart", "lblTranStart", "fraTranStop",
      "txtTranStop", "lblTranStop"}},
    {"a pick writes one name of the count of batches, a rebuild another", {"lblItem2[3]"}},
    {"the class that was pressed, and why it was not written", {"cmdQBasic", "cmdQExtended", "picText"}},
    {"a build assumes the board that an old meter has",
     {"cboAnaOpt", "tabSetup", "fraAnaOut", "cboRange", "cboRange2"},
     [](const Session& session) { return session.Identity.FirmwareVersion < 78; }},
};

bool MayDiffer(const Control& control, const Session& session) {
    return std::any_of(std::begin(kDifferences), std::end(kDifferences), [&](const Difference& row) {
        return row.Controls.count(control.Name) + row.Controls.count(control.FullName()) > 0 &&
               row.Where(session);
    });
}

class Walk {
  public:
    void Run() {
        bench_.View.OpenDigitEntry = [this] { entry_.OpenDigitEntry(); };
        const int sequences = RandomActs(100'000) / kActions;
        for (int i = 0; i < sequences && !testing::Test::HasFailure(); ++i) {
            if (!Open()) continue;
            for (int k = 0; k < kActions && !testing::Test::HasFailure(); ++k) Act();
            CheckMenuWords();
        }
        EXPECT_GT(acted_, sequences);
        EXPECT_GT(refused_, sequences);
        EXPECT_GT(undone_, sequences / 10);
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
        bench_.Bench.Program.Changes.Restart(bench_.Image());
        bench_.Ended = false;
        bench_.Open();
        return !bench_.Ended;
    }

    void Act() {
        Form& form = bench_.View.Controls;
        slippedIn_ = false;
        if (Below(20) == 0) return AskHelp();
        if (Below(10) == 0) return GoBackAndForth();
        if (Below(4) == 0) form.ComeToTab(Below(7));
        Control& control = Pick(form);
        if (Below(3) > 0 && control.Tab != kEveryTab) form.ComeToTab(control.Tab);
        if (Below(4) == 0) bench_.Bench.Pump.After(5, [this] { SlipIn(); });
        const std::string before = bench_.Image().SetupData;
        const Refusal refusal = ActOn(form, control);
        refusal == Refusal::None ? ++acted_ : ++refused_;
        if (!slippedIn_) Check(control, before, refusal);
        CompareWithFresh(control.FullName());
    }

    // What else the user does while a rule waits.
    void SlipIn() {
        Form& form = bench_.View.Controls;
        Control& control = Pick(form);
        if (control.Kind == ControlKind::Value) return;  // one digit entry at a time
        slippedIn_ = true;
        if (control.Tab != kEveryTab) form.ComeToTab(control.Tab);
        ActOn(form, control);
    }

    // F1 and OK.
    void AskHelp() {
        const int tab = bench_.View.CurrentTab();
        bench_.View.HelpKey();
        bench_.View.ComeBack();
        ASSERT_TRUE(slippedIn_ || bench_.View.CurrentTab() == tab);
        CompareWithFresh("help");
    }

    // Undo and redo: what is in memory then was there after some act, but for what opening a view repairs.
    void GoBackAndForth() {
        const SetupImage before = bench_.Image();
        const bool undone = bench_.View.Undo();
        ASSERT_TRUE(undone || bench_.Image() == before);
        if (undone) ++undone_;
        CompareWithFresh("undo");
        if (!undone || slippedIn_ || Below(2) == 0) return;
        const SetupImage earlier = bench_.Image();
        ASSERT_TRUE(bench_.View.Redo());
        CompareWithFresh("redo");
        if (slippedIn_) return;
        ASSERT_TRUE(bench_.View.Undo());
        ASSERT_EQ(bench_.Image().SetupData, earlier.SetupData);
    }

    // Any control; mostly one that can be reached and is more than a frame.
    Control& Pick(Form& form) {
        for (int tries = Below(4) * 10;; --tries) {
            Control& control = *(form.begin() + Below(static_cast<int>(form.end() - form.begin())));
            const bool actable = control.Kind != ControlKind::Frame && control.Kind != ControlKind::Label;
            if (control.Name == "cmdRead" || control.Name == "cmdMainMenu") continue;  // for ever; goes away
            if (tries <= 0 || (actable && form.Reach(control) == Refusal::None)) return control;
        }
    }

    Refusal ActOn(Form& form, Control& control) {
        if (control.Kind == ControlKind::List)
            return form.Select(control, Below(static_cast<int>(control.Entries.size()) + 2) - 1);
        if (control.Kind == ControlKind::Check) return form.Check(control, Below(2));
        const Refusal refusal = form.Click(control);
        if (refusal == Refusal::None && control.Kind == ControlKind::Value) {
            for (int keys = Below(9); keys > 0; --keys) entry_.Key("+-0123456789."[Below(13)]);
            if (Below(2) == 0) entry_.Ok();
            if (entry_.Shown()) entry_.Cancel();
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

    // Another view is put back to what it was before it was ever on show, and built from what this one has,
    // on its page. False where the program ends.
    bool BuildFresh() {
        std::copy(began_.begin(), began_.end(), fresh_.View.Controls.begin());
        Session& mine = fresh_.Bench.Program;
        const Session& its = bench_.Bench.Program;
        mine.Settings.CommsEnabled = its.Settings.CommsEnabled;
        mine.LinkState.ModbusLink = its.LinkState.ModbusLink;
        mine.Identity = its.Identity;
        mine.Image = its.Image;
        fresh_.Ended = false;
        fresh_.Open();
        // The last outlives the Function that had it.
        mine.Derived.ItemDecPts = its.Derived.ItemDecPts;
        if (!fresh_.Ended) fresh_.View.ViewRefresh();
        const int tab = bench_.View.CurrentTab();
        return !fresh_.Ended && (tab == kInputTab || fresh_.View.Controls.ComeToTab(tab) == Refusal::None);
    }

    void CompareWithFresh(const std::string& act) {
        if (!BuildFresh()) return;
        auto expected = fresh_.View.Controls.begin();
        for (const Control& control : bench_.View.Controls) {
            const Control& other = *expected++;
            if (control.Tab != kEveryTab && control.Tab != bench_.View.CurrentTab()) continue;
            if ((!OnShow(control) && !OnShow(other)) || MayDiffer(control, bench_.Bench.Program)) continue;
            ASSERT_EQ(OnShow(control), OnShow(other)) << control.FullName() << " after " << act;
            ASSERT_EQ(Look(control), Look(other)) << control.FullName() << " after " << act << " of\n"
                                                  << bench_.Image().SetupData;
        }
    }

    // Every cell of the meter's menu that is lit has words.
    void CheckMenuWords() {
        SetupImage image = bench_.Image();
        const MenuView view =
            BuildMenuView(image, bench_.Bench.Program.Identity, bench_.Bench.Program.Derived);
        for (int row = 1; row <= view.MenuRowCount; ++row) {
            std::set<int> told;
            for (const MenuWords& words : WordsOfRow(view, image, row)) {
                ASSERT_FALSE(words.Text.empty() || words.Text.ends_with(' ')) << words.Text;
                for (int column = words.First; column <= words.Last; ++column) told.insert(column);
            }
            const MenuRow& shown = view.grdMain[static_cast<std::size_t>(row)];
            for (int column = 0; column < 7; ++column) {
                const MenuCell& cell = shown.Cells[static_cast<std::size_t>(column)];
                ASSERT_TRUE(Trimmed(cell).empty() || told.contains(column)) << shown.Name.View() << column;
            }
        }
    }

    std::mt19937 random_{20};
    SetupBench bench_, fresh_;
    const std::vector<Control> began_{fresh_.View.Controls.begin(), fresh_.View.Controls.end()};
    DigitEntry entry_{{bench_.Bench.Program.Views, bench_.Image(), bench_.Bench.Program.Derived,
                       bench_.Bench.Program.Link}};
    int acted_ = 0, refused_ = 0, undone_ = 0;
    bool slippedIn_ = false;
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

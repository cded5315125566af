// Any control of any view, in any order, also during the waits of what was pressed before.
#include <gtest/gtest.h>

#include <set>

#include "calibration/calibration_view.h"
#include "commands/commands_view.h"
#include "curve/send_curve_view.h"
#include "digit_entry/digit_entry.h"
#include "readings/graph_view.h"
#include "readings/list_view.h"
#include "readings/plot_view.h"
#include "setup_view/setup_view.h"
#include "shell/home_view.h"
#include "support/bench_meter.h"
#include "support/dice.h"
#include "support/meter_kinds.h"

namespace counter::test {
namespace {

class AnyOrderDesk : BenchMeter {
  public:
    AnyOrderDesk(Dice& dice, const LinkKind& kind) : BenchMeter(MeterOf(kind), {kind.Setting}), dice_(dice) {
        SwitchOn();
        Wire();
        GoHome();
    }
    // False: an act ended the program.
    bool Live(int acts) {
        left_ = acts;
        try {
            Beat();
            while (left_ > 0) Pump.Pass(1000);
            Line.Meter().SetFaults({});
            Pump.Pass(60'000);
        } catch (const ProcessEnded&) {
            return false;
        }
        return true;
    }
    void ExpectAtRest() {
        EXPECT_EQ(Pump.Reasons(), "");
        EXPECT_FALSE(Program.Home.Hourglass);
        EXPECT_EQ(Program.Image.SetupData.find_first_not_of("0123456789ABCDEF"), std::string::npos);
        GoHome();
        EXPECT_EQ(onShow_, &home_.Controls);
    }
    int Acted = 0;
    std::set<ViewId> Opened;

  private:
    void Wire() {
        home_.Open = [this](ViewId view) { return Open(view); };
        home_.HoldExit = [this] { return list_.HoldExit() || plot_.HoldExit() || calibration_.HoldExit(); };
        const auto goHome = [this] { GoHome(); };
        setup_.ShowMainMenu = commands_.ShowMainMenu = calibration_.ShowMainMenu = goHome;
        setup_.OpenDigitEntry = [this] { entry_.OpenDigitEntry(), onShow_ = &entry_.Controls; };
        commands_.OpenSendCurve = [this] { curve_.Load(), onShow_ = &curve_.Controls; };
        curve_.CloseDialog = [this] { commands_.Activate(), onShow_ = &commands_.Controls; };
        for (ReadingView* view : std::initializer_list<ReadingView*>{&list_, &plot_, &graph_}) {
            view->ShowMainMenu = goHome;
            view->ExitProgram = [this] { home_.Exit(); };
        }
        calibration_.ExitProgram = [this] { home_.Exit(); };
        setup_.Load();
        home_.Load();
    }
    void GoHome() {
        entry_.Unload();
        Program.Views.EntryReturn = 0;
        setup_.Buttons.StopReading();
        curve_.Unload();
        commands_.Unload();
        calibration_.Unload();
        for (ReadingView* view : std::initializer_list<ReadingView*>{&list_, &plot_, &graph_}) view->Unload();
        onShow_ = &home_.Controls;
        home_.Activate();
    }
    template <class View>
    void Show(ViewId id, View& view) {
        Opened.insert(id);
        onShow_ = &view.Controls;
        if constexpr (requires { view.Load(); }) view.Load();
        view.Activate();
    }
    bool Open(ViewId view) {
        if (view == ViewId::Setup) Show(view, setup_);
        if (view == ViewId::Commands) Show(view, commands_);
        if (view == ViewId::Calibration) Show(view, calibration_);
        if (view == ViewId::List) Show(view, list_);
        if (view == ViewId::Plot) Show(view, plot_);
        if (view == ViewId::Graph) Show(view, graph_);
        return onShow_ != &home_.Controls;
    }

    // The next beat is set before this one acts, so that it comes during what this one begins.
    void Beat() {
        constexpr int kPauses[] = {1, 1, 30, 300, 3000};
        if (left_ > 0) Pump.After(dice_.Below(dice_.Pick(kPauses)), [this] { Beat(); });
        if (left_ <= 0) return GoHome();
        if (depth_ >= 5) return setup_.Buttons.StopReading();
        --left_, ++Acted, ++depth_;
        Line.Forget(), Boxes.Shown.clear();
        if (dice_.OneIn(200)) Weather();
        entry_.Shown() ? TypeDigit() : Act(*onShow_);
        --depth_;
    }
    void Weather() {
        const char* const faults[] = {"*:noreply", "*#2:cut=3", "*:garbage", "*#5:extra", "*:late=700"};
        const bool bad = dice_.OneIn(2);
        Line.Meter().SetFaults(bad ? WithFaults({}, {dice_.Pick(faults)}).Faults : std::vector<sim::Fault>());
    }
    void Act(Form& form) {
        Control& control = *(form.begin() + dice_.Below(static_cast<int>(form.end() - form.begin())));
        constexpr const char* kTexts[] = {"1000", "", "-1", "0", "abc", "36000", "'0D", "1E9"};
        switch (control.Kind) {
            case ControlKind::List:
                form.Select(control, dice_.Below(static_cast<int>(control.Entries.size()) + 1));
                break;
            case ControlKind::Check:
                form.Check(control, dice_.Below(2));
                break;
            case ControlKind::TabStrip:
                form.ComeToTab(dice_.Below(7));
                break;
            case ControlKind::Entry:
                form.Focus(control);
                form.Type(control, dice_.Pick(kTexts));
                if (dice_.OneIn(2)) form.Enter(control);
                break;
            default:
                if (control.Name != "mnuExit" || dice_.OneIn(20)) form.Click(control);
        }
    }
    void TypeDigit() {
        const int act = dice_.Below(12);
        if (act < 8) entry_.Key(dice_.Pick(std::string_view("0123456789+-.AF\r")));
        if (act == 8) entry_.LeftArrow();
        if (act == 9) entry_.FocusBox(dice_.Below(7));
        if (act == 10) entry_.Ok();
        if (act == 11) entry_.Cancel();
        if (entry_.Shown()) return;
        onShow_ = &setup_.Controls;
        setup_.EntryClosed();
    }

    Dice& dice_;
    HomeView home_{Program};
    SetupView setup_{Program};
    DigitEntry entry_{{Program.Views, Program.Image, Program.Derived, Program.Link}};
    CommandsView commands_{Program};
    SendCurveView curve_{Program};
    CalibrationView calibration_{Program};
    ListView list_{Program};
    PlotView plot_{Program};
    GraphView graph_{Program};
    Form* onShow_ = nullptr;
    int left_ = 0, depth_ = 0;
};

TEST(AnyOrder, OfActsInAnyViewComesToRest) {
    const int acts = RandomActs(30'000);
    int acted = 0;
    std::set<ViewId> opened;
    for (unsigned seed = 1; acted < acts && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        AnyOrderDesk desk(dice, dice.Pick(kLinkKinds));
        if (desk.Live(1000)) desk.ExpectAtRest();
        acted += desk.Acted;
        opened.merge(desk.Opened);
    }
    EXPECT_EQ(opened.size(), 6U);
}

}  // namespace
}  // namespace counter::test

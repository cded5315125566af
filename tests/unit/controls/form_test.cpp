// Who may act on a control, and when its handler runs.
#include "controls/form.h"

#include <gtest/gtest.h>

#include <array>

#include "controls/colors.h"
#include "controls/page_builder.h"

namespace counter {
namespace {

constexpr std::array<std::string_view, 3> kEntries = {"one", "two", "three"};

int NoHelp(std::string_view) {
    return 0;
}

// Two pages; on the first a framed list, a box, two options and a button.
struct FormBench {
    bool Live = true;
    Form Controls{Live};
    PageBuilder Beside{Controls, kEveryTab, NoHelp}, First{Controls, 0, NoHelp}, Second{Controls, 1, NoHelp};
    Control& Tabs = Beside.Add(ControlKind::TabStrip, nullptr, "tab");
    Framed List = First.Wrap(ControlKind::List, nullptr, "cboX", "Caption", 2);
    Control& Box = First.Add(ControlKind::Check, nullptr, "chkX");
    Control& Left = First.Add(ControlKind::Option, &List.Frame, "optLeft");
    Control& Right = First.Add(ControlKind::Option, &List.Frame, "optRight");
    Control& Elsewhere = First.Add(ControlKind::Option, nullptr, "optElsewhere");
    Control& Far = Second.Add(ControlKind::Button, nullptr, "cmdFar");
    int Ran = 0;

    FormBench() {
        Tabs.Entries.assign(kEntries.begin(), kEntries.begin() + 2);
        Tabs.Offered = {true, true};
        Tabs.ListIndex = 0;
        Controls.SetTabStrip(Tabs);
        Form::Fill(List.Inner, kEntries);
        for (Control& control : Controls) Controls.On(control, [this](Control&) { ++Ran; });
    }
};

TEST(Form, FindsByNameAndIndex) {
    FormBench bench;
    EXPECT_EQ(bench.Controls.Find("cboX", 2), &bench.List.Inner);
    EXPECT_EQ(bench.Controls.FindFull("fraX[2]"), &bench.List.Frame);
    EXPECT_EQ(bench.Controls.FindFull("chkX"), &bench.Box);
    for (const char* name : {"cboX", "cboX[1]", "chkX[0]", "chkX[-1]", "", "chk"})
        EXPECT_EQ(bench.Controls.FindFull(name), nullptr) << name;
}

TEST(Form, RefusesWhatAUserCantReach) {
    const struct {
        const char* Name;
        void (*Change)(FormBench&);
        Refusal Expected;
    } cases[] = {
        {"as it is", [](FormBench&) {}, Refusal::None},
        {"hidden", [](FormBench& b) { b.List.Inner.Visible = false; }, Refusal::Hidden},
        {"hidden frame", [](FormBench& b) { b.List.Frame.Visible = false; }, Refusal::Hidden},
        {"disabled", [](FormBench& b) { b.List.Inner.Enabled = false; }, Refusal::Disabled},
        {"disabled frame", [](FormBench& b) { b.List.Frame.Enabled = false; }, Refusal::Disabled},
        {"disabled in a hidden frame",
         [](FormBench& b) { b.List.Inner.Enabled = b.List.Frame.Visible = false; }, Refusal::Hidden},
        {"tab not offered", [](FormBench& b) { b.Tabs.Offered[0] = false; }, Refusal::TabNotOffered},
        {"other tab on show", [](FormBench& b) { b.Tabs.ListIndex = 1; }, Refusal::OtherTab},
        {"other tab, any page on offer",
         [](FormBench& b) {
             b.Tabs.ListIndex = 1;
             b.Controls.OnlyPageOnShow = false;
         },
         Refusal::None},
    };
    for (const auto& c : cases) {
        FormBench bench;
        c.Change(bench);
        EXPECT_EQ(bench.Controls.Select(bench.List.Inner, 1), c.Expected) << c.Name;
        EXPECT_EQ(bench.List.Inner.ListIndex, c.Expected == Refusal::None ? 1 : -1) << c.Name;
        EXPECT_EQ(bench.Ran, c.Expected == Refusal::None ? 1 : 0) << c.Name;
    }
}

TEST(Form, RefusesWhatTheControlDoesNotHave) {
    FormBench bench;
    Form& form = bench.Controls;
    EXPECT_EQ(form.Select(bench.List.Inner, 3), Refusal::NoSuchEntry);
    EXPECT_EQ(form.Select(bench.List.Inner, -1), Refusal::NoSuchEntry);
    EXPECT_EQ(form.Select(bench.Box, 0), Refusal::NoSuchAction);
    EXPECT_EQ(form.Check(bench.Box, 2), Refusal::NoSuchEntry);
    EXPECT_EQ(form.Click(bench.List.Inner), Refusal::NoSuchAction);
    EXPECT_EQ(form.Click(bench.List.Frame), Refusal::NoSuchAction);
    EXPECT_EQ(form.ComeToTab(2), Refusal::NoSuchEntry);
    EXPECT_EQ(bench.Ran, 0);
}

TEST(Form, RunsHandlers) {
    const struct {
        const char* Name;
        void (*Act)(FormBench&);
        int Ran, RanDead;
    } cases[] = {
        // clang-format off
        {"user picks",                  [](FormBench& b) { b.Controls.Select(b.List.Inner, 1); }, 1, 0},
        {"user picks it again",         [](FormBench& b) { for (int i = 0; i < 2; ++i) b.Controls.Select(b.List.Inner, 1); }, 2, 0},
        {"rule selects",                [](FormBench& b) { b.Controls.SetIndex(b.List.Inner, 0); }, 1, 0},
        {"rule selects what isn't there", [](FormBench& b) { b.Controls.SetIndex(b.List.Inner, 3); }, 0, 0},
        {"user checks",                 [](FormBench& b) { b.Controls.Check(b.Box, 1); }, 1, 0},
        {"user checks what it is",      [](FormBench& b) { b.Controls.Check(b.Box, 0); }, 0, 0},
        {"rule checks",                 [](FormBench& b) { b.Controls.SetCheck(b.Box, 1); }, 1, 0},
        {"user clicks an option twice", [](FormBench& b) { for (int i = 0; i < 2; ++i) b.Controls.Click(b.Left); }, 2, 2},
        {"rule sets an option",         [](FormBench& b) { b.Controls.SetOption(b.Left, true); }, 0, 0},
        {"user comes to a tab",         [](FormBench& b) { b.Controls.ComeToTab(1); }, 1, 1},
        {"user clicks a button",        [](FormBench& b) { b.Tabs.ListIndex = 1; b.Controls.Click(b.Far); }, 1, 1},
        // clang-format on
    };
    for (const auto& c : cases) {
        FormBench live, dead;
        dead.Live = false;
        c.Act(live);
        c.Act(dead);
        EXPECT_EQ(live.Ran, c.Ran) << c.Name;
        EXPECT_EQ(dead.Ran, c.RanDead) << c.Name;
    }
}

TEST(Form, OneOptionOfAContainerIsSet) {
    FormBench bench;
    bench.Controls.Click(bench.Elsewhere);
    bench.Controls.Click(bench.Left);
    bench.Controls.Click(bench.Right);
    EXPECT_EQ((std::array{bench.Left.Value, bench.Right.Value, bench.Elsewhere.Value}),
              (std::array{0, 1, 1}));
}

TEST(Form, FocusTellsWhatLosesItAndWhatGetsIt) {
    FormBench bench;
    std::string story;
    for (Control* control : {&bench.Box, &bench.Left}) {
        bench.Controls.OnGotFocus(*control, [&](Control& c) { story += "+" + c.Name; });
        bench.Controls.OnLostFocus(*control, [&](Control& c) { story += "-" + c.Name; });
    }
    EXPECT_EQ(bench.Controls.Focus(bench.Box), Refusal::None);
    bench.Controls.SetFocus(bench.Left);
    bench.Controls.SetFocus(bench.Left);
    EXPECT_EQ(bench.Controls.Focus(bench.List.Frame), Refusal::NoSuchAction);
    EXPECT_EQ(bench.Controls.Focused(), &bench.Left);
    EXPECT_EQ(story, "+chkX-chkX+optLeft");
}

TEST(Form, FocusThatIsPassedOnStaysWhereItWasPassed) {
    FormBench bench;
    std::string told;
    bench.Controls.OnGotFocus(bench.Left, [&](Control&) { bench.Controls.SetFocus(bench.Right); });
    bench.Controls.FocusMoved = [&](const Control& control) { told = control.Name; };
    bench.Controls.SetFocus(bench.Left);
    EXPECT_EQ(bench.Controls.Focused(), &bench.Right);
    EXPECT_EQ(told, "optRight");
}

TEST(Form, AnEntryTellsANewTextAndEnter) {
    FormBench bench;
    Control& entry = bench.First.Add(ControlKind::Entry, nullptr, "txtX");
    int entered = 0;
    bench.Controls.On(entry, [&](Control&) { ++bench.Ran; });
    bench.Controls.OnEnter(entry, [&](Control&) { ++entered; });
    EXPECT_EQ(bench.Controls.Type(entry, "5"), Refusal::None);
    EXPECT_EQ(bench.Controls.Type(entry, "5"), Refusal::None);
    EXPECT_EQ(bench.Ran, 1) << "the same text is no change";
    EXPECT_EQ(bench.Controls.Enter(entry), Refusal::None);
    EXPECT_EQ(entered, 1);
    EXPECT_EQ(bench.Controls.Type(bench.Box, "5"), Refusal::NoSuchAction);
    entry.Enabled = false;
    EXPECT_EQ(bench.Controls.Type(entry, "6"), Refusal::Disabled);
    EXPECT_EQ(bench.Controls.Enter(entry), Refusal::Disabled);
    EXPECT_EQ(entry.Text, "5");
}

}  // namespace
}  // namespace counter

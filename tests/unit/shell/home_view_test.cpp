// The home view: which entries can be used, what its actions do, and what a press in the middle of one does.
#include "shell/home_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "meter/field_code.h"
#include "shell/home_facts.h"
#include "support/bench_meter.h"
#include "support/meter_kinds.h"

namespace counter::test {
namespace {

struct HomeBench : BenchMeter {
    explicit HomeBench(const std::vector<std::string>& settings = {}, sim::MeterOptions options = {})
        : BenchMeter(std::move(options), settings) {
        EXPECT_TRUE(SwitchOn().Ok());
        Home.Load();
        Home.Activate();
    }
    Refusal Press(const char* name) { return Home.Controls.Click(*Home.Controls.Find(name)); }
    bool Enabled(const char* name) { return Home.Controls.Find(name)->Enabled; }
    const std::string& StatusLine() { return Home.lblPGText.Caption; }

    HomeView Home{Program};
};

TEST(HomeView, AccessKeysAreUniqueUnderTheirHeading) {
    HomeBench bench;
    std::map<const Control*, std::set<char>> keys;
    for (const Control& control : bench.Home.Controls) {
        if (control.Kind != ControlKind::Menu) continue;
        const std::size_t mark = control.Caption.find('&');
        if (mark == std::string::npos) continue;
        const char key = static_cast<char>(std::tolower(control.Caption[mark + 1]));
        EXPECT_TRUE(keys[control.Container].insert(key).second) << control.Name << " " << key;
    }
    EXPECT_EQ(keys.size(), 9U) << "the headings and what stands under each of the eight";
}

TEST(HomeView, EntriesFollowLinkAndProtocol) {
    const struct {
        const char* Name;
        std::vector<std::string> Settings;
        bool Counter, Readings, Calibration, CalibrationShown, MenuShown;
    } cases[] = {
        {"Custom ASCII", {}, true, true, true, true, true},
        {"Modbus", {"SerialProtocol=1"}, true, false, false, true, true},
        {"no link", {"CommsEnabled=0"}, false, true, true, true, true},
        {"program without calibration", {"ProgramKind=7"}, true, true, true, false, true},
        {"no front panel", {"MeterType=7"}, true, true, true, true, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        HomeBench bench(c.Settings);
        EXPECT_EQ(bench.Enabled("mnuCounter"), c.Counter);
        EXPECT_EQ(bench.Enabled("mnuMRdgs"), c.Readings);
        EXPECT_EQ(bench.Enabled("mnuCalib"), c.Calibration);
        EXPECT_EQ(bench.Home.Controls.Find("mnuCalib")->Visible, c.CalibrationShown);
        EXPECT_EQ(bench.Home.Controls.Find("mnuMenu")->Visible, c.MenuShown);
        for (const char* off : {"mnuPut", "mnuView", "mnuCmds"}) EXPECT_FALSE(bench.Enabled(off)) << off;
        EXPECT_EQ(bench.Press("mnuSetup"), Refusal::Disabled) << "its heading is disabled";
    }
}

TEST(HomeView, WithoutALinkPutIsNotReachable) {
    HomeBench bench({"CommsEnabled=0"});
    EXPECT_EQ(bench.Press("mnuDefaultSet"), Refusal::None);
    EXPECT_TRUE(bench.Enabled("mnuView"));
    EXPECT_TRUE(bench.Enabled("mnuPut"));
    EXPECT_EQ(bench.Press("mnuPut"), Refusal::Disabled);
    EXPECT_EQ(bench.StatusLine(), "Default Setup data loaded.");
    EXPECT_EQ(bench.Home.lblPGText.TextColor, ColorWhite);
}

TEST(HomeView, AGoodGetEnablesCalibrationOverModbusToo) {
    HomeBench bench({"SerialProtocol=1"}, MeterOf(kRtu));
    EXPECT_EQ(bench.Press("mnuGet"), Refusal::None);
    EXPECT_EQ(bench.StatusLine(), "Getting data from the Counter.  Data received OK.");
    for (const char* on : {"mnuCmds", "mnuView", "mnuPut", "mnuCalib"}) EXPECT_TRUE(bench.Enabled(on)) << on;
    EXPECT_FALSE(bench.Program.Home.Hourglass);
    EXPECT_FALSE(bench.Home.pbBar.Visible);
}

TEST(HomeView, ASilentMeterIsToldAndNothingElseChanges) {
    HomeBench bench;
    bench.Press("mnuDefaultSet");
    const std::string before = bench.Program.Image.SetupData;
    bench.Line.Unplug();
    bench.Press("mnuGet");
    EXPECT_EQ(bench.StatusLine(), "Failed to Get data, check connections, then try again.      ( 21)");
    EXPECT_EQ(bench.Home.lblPGText.TextColor, ColorRed);
    EXPECT_FALSE(bench.Home.pbBar.Visible);
    EXPECT_EQ(bench.Program.Image.SetupData, before);
    EXPECT_TRUE(bench.Enabled("mnuView"));
    bench.Pump.After(2000, [&] {
        EXPECT_TRUE(bench.Home.pbBar.Visible);
        bench.Press("mnuFile");
        EXPECT_FALSE(bench.Home.pbBar.Visible) << "with the line";
    });
    bench.Press("mnuPut");
    EXPECT_FALSE(bench.Home.pbBar.Visible);
    EXPECT_EQ(bench.Home.lblPGText.TextColor, ColorRed) << bench.StatusLine();
    EXPECT_TRUE(bench.Home.lblPGText.Visible);
    EXPECT_FALSE(bench.Program.Home.Hourglass);
    bench.Line.GoAway();
    bench.Line.NextOpen = {StatusKind::NotFound, "/dev/ttyUSB0", "No such file or directory"};
    bench.Press("mnuGet");
    EXPECT_EQ(bench.StatusLine(), "Failed to Get data, check connections, then try again.      ( 27)");
    EXPECT_EQ(bench.Program.Image.SetupData, before);
    bench.Line.Plug();
    bench.Press("mnuGet");
    EXPECT_EQ(bench.Program.LinkState.LinkError, 0) << "everything is usable afterwards";
}

TEST(HomeView, ADeadLineIsOpenedOnceForAViewThatNeedsIt) {
    HomeBench bench;
    bench.Press("mnuGet");
    for (const char* entry :
         {"mnuPS", "mnuCmdsGo", "mnuList", "mnuPlot", "mnuGraph", "mnuCalibGo", "mnuSetup"}) {
        for (const bool back : {false, true}) {
            SCOPED_TRACE(entry);
            const bool opens = std::string(entry) != "mnuPS";  // a drawing needs no line
            bench.Line.GoAway();
            bench.Line.NextOpen = {back ? StatusKind::Ok : StatusKind::NotFound, "/dev/ttyUSB0", "gone"};
            bench.Line.Forget();
            bench.Press(entry);
            EXPECT_EQ(bench.Line.Faulted(), !(back && opens));
            EXPECT_EQ(bench.Program.LineTrouble.Ok(), back || !opens);
            EXPECT_EQ(std::ranges::count(bench.Line.Calls(), "CommPort 1"), opens ? 1 : 0);
        }
    }
    bench.Line.GoAway();
    bench.Line.NextOpen = {StatusKind::NotFound, "/dev/ttyUSB0", "gone"};
    bench.Press("mnuMRdgs");
    EXPECT_EQ(bench.StatusLine(), "/dev/ttyUSB0: gone");
}

TEST(HomeView, ExitDuringAGetEndsTheProgramAndWritesNoFurtherFrame) {
    HomeBench bench;
    std::size_t sent = 0;
    bench.Pump.After(500, [&] {
        sent = bench.Line.Sent().size();
        bench.Press("mnuExit");
    });
    EXPECT_THROW(bench.Press("mnuGet"), ProcessEnded);
    EXPECT_EQ(bench.Line.Sent().size(), sent);
    EXPECT_FALSE(bench.Program.Port.PortOpen());
}

TEST(HomeView, ExitMarksTheNodeLine) {
    HomeBench bench;
    EXPECT_THROW(bench.Press("mnuExit"), ProcessEnded);
    EXPECT_EQ(bench.Store.Contents["home/Settings.SSS"],
              "3501000100100831010000\r\n2711000000000000F6CB000000001\r\n");
}

// What counter-link or counterctl has changed while the window was open.
TEST(HomeView, AnotherProgramsSettingsHoldForTheNextGetAndOutliveTheExit) {
    const std::string theirs = "3501000G00100831010000\r\n2711000000000000F6CB0A0A0A0A";
    HomeBench bench({}, [] {
        sim::MeterOptions options;
        options.Address = 16;
        return options;
    }());
    bench.Press("mnuGet");
    EXPECT_EQ(bench.Program.LinkState.LinkError, 21);
    bench.Store.Contents["home/Settings.SSS"] = theirs + "\r\n";
    bench.Press("mnuGet");
    EXPECT_EQ(bench.Program.LinkState.LinkError, 0);
    EXPECT_TRUE(bench.StatusLine().ends_with("(with the settings as another program has changed them)"));
    bench.Store.Contents["home/Settings.SSS"] = "3501100100100831010000\r\n" + theirs.substr(24) + "\r\n";
    bench.Line.NextOpen = {StatusKind::Busy, "/dev/ttyS0", "Device or resource busy"};
    bench.Home.FollowChanges();
    EXPECT_EQ(bench.StatusLine(),
              "The settings were changed by another program and are used as they are now.  "
              "(/dev/ttyS0: Device or resource busy)");
    EXPECT_FALSE(bench.Enabled("mnuMRdgs")) << "Modbus now";
    bench.Line.NextOpen = {};
    const std::string later = "3601" + theirs.substr(4);
    bench.Store.Contents["home/Settings.SSS"] = later + "\r\n";
    EXPECT_THROW(bench.Press("mnuExit"), ProcessEnded);
    EXPECT_EQ(bench.Store.Contents["home/Settings.SSS"], later + "1\r\n");
}

TEST(HomeView, HeadingsRestoreTheScreenAndKeepTheirTopic) {
    HomeBench bench;
    EXPECT_TRUE(bench.Home.cmdOK.Visible);
    EXPECT_TRUE(bench.Home.TallText());
    bench.Press("mnuJmps");
    EXPECT_EQ(bench.Program.Views.HelpId, 3117);
    EXPECT_EQ(bench.Home.picText.Text, "");
    EXPECT_FALSE(bench.Home.TallText());
    EXPECT_FALSE(bench.Home.cmdOK.Visible);
    bench.Press("cmdMenuHelp");
    EXPECT_EQ(bench.Program.Views.HelpId, 3101);
    bench.Program.Views.HelpId = 1156;  // of a view that was left
    bench.Home.Activate();
    EXPECT_EQ(bench.Program.Views.HelpId, 3101);
    EXPECT_FALSE(bench.Home.cmdMenuHelp.Visible);
    bench.Press("cmdOK");
    EXPECT_TRUE(bench.Home.cmdMenuHelp.Visible);
    EXPECT_EQ(bench.Home.picText.Text, "");
    int opened = 0;
    bench.Home.OpenHelp = [&opened](int number) { opened = number; };
    bench.Press("mnuGlossary");
    EXPECT_EQ(opened, 3121);
    EXPECT_EQ(HomeMenu().back().Name, "mnuGlossary");
}

TEST(HomeView, ReadingsAreReadyBeforeTheirEntriesDropDown) {
    HomeBench bench;
    std::string story;
    bench.Home.PrepareStream = [&] {
        story += bench.Home.lblWait.Visible ? "waits " : "hidden ";
        bench.Press("mnuMRdgs");  // a second press meanwhile changes nothing
    };
    bench.Home.DropDown = [&](Control&) { story += "drops"; };
    bench.Press("mnuMRdgs");
    EXPECT_EQ(story, "waits drops");
    EXPECT_FALSE(bench.Home.lblWait.Visible);
    EXPECT_EQ(bench.Program.Views.HelpId, 3105);
}

TEST(HomeView, SetupFilesAreOpenedAndSaved) {
    HomeBench bench;
    EXPECT_EQ(bench.Press("mnuSave"), Refusal::None);
    EXPECT_EQ(bench.Boxes.Shown.back().Text, "No file name active, use Save Setup As");
    EXPECT_EQ(bench.Boxes.Beeps, 1);

    bench.Press("mnuOpen");
    EXPECT_EQ(bench.Boxes.Asked.back().Title, "Open Setup File");
    EXPECT_EQ(bench.Program.Home.CurrentFileName, "") << "cancelled";

    bench.Boxes.Path = "missing.CT2";
    bench.Press("mnuOpen");
    EXPECT_EQ(bench.StatusLine(), "missing.CT2: No such file or directory");
    EXPECT_EQ(bench.Home.lblPGText.TextColor, ColorRed);
    EXPECT_FALSE(bench.Enabled("mnuView"));

    bench.Press("mnuDefaultSet");
    bench.Boxes.Path = "a.CT2";
    bench.Store.ReadOnly = {"a.CT2"};
    bench.Press("mnuSaveAs");
    EXPECT_TRUE(bench.StatusLine().starts_with("a.CT2: ")) << bench.StatusLine();
    EXPECT_EQ(bench.Program.Home.CurrentFileName, "") << "it was not saved there";
    EXPECT_EQ(bench.Boxes.Asked.back().Proposed, "Setup.CT2");
    bench.Store.ReadOnly.clear();
    bench.Press("mnuSaveAs");
    EXPECT_EQ(bench.Store.Contents["a.CT2"], bench.Program.Image.SetupData + "\r\n");
    bench.Program.Image.SetupData[0] = '7';
    bench.Boxes.SaysYes = false;
    bench.Press("mnuSave");
    EXPECT_EQ(bench.Boxes.Shown.back().Title + "|" + bench.Boxes.Shown.back().Text,
              "a.CT2|Current data will be replaced.");
    EXPECT_NE(bench.Store.Contents["a.CT2"][0], '7') << "the question was cancelled";
    bench.Boxes.SaysYes = true;
    bench.Press("mnuSave");
    EXPECT_EQ(bench.Store.Contents["a.CT2"][0], '7');

    bench.Program.Identity.SetupFromMeter = 1;
    bench.Program.Image.SetupData[0] = '5';
    bench.Press("mnuOpen");
    EXPECT_EQ(bench.Program.Image.SetupData[0], '7');
    EXPECT_EQ(bench.Program.Identity.SetupFromMeter, 0);
    bench.Boxes.Path = "missing.CT2";
    bench.Press("mnuOpen");
    EXPECT_EQ(bench.Program.Image.SetupData[0], '7') << "the setup stays";
    EXPECT_EQ(bench.Program.Home.CurrentFileName, "a.CT2");
}

// Asked first of all: of a "Keep It" nothing else is to be seen.
TEST(HomeView, WhatTheUserChangedIsNotLostWithoutAQuestion) {
    const char* const acts[] = {"mnuDefaultSet", "mnuOpen", "mnuGet", "mnuExit", "backup"};
    for (const std::string act : acts) {
        for (const bool changed : {false, true}) {
            SCOPED_TRACE(act + (changed ? " of a changed one" : ""));
            HomeBench bench;
            bench.Press("mnuGet");
            {
                const SetupActScope pick(bench.Program.Changes, bench.Program.Image,
                                         {"cboBaudRate", "Baud Rate", {Field::BaudRate}});
                if (changed) PutCode(bench.Program.Image, Field::BaudRate, 6);
            }
            const SetupImage before = bench.Program.Image;
            const std::string status = bench.StatusLine();
            bench.Boxes.Path = "missing.CT2";
            bench.Boxes.SaysYes = false;
            bench.Boxes.Shown.clear(), bench.Boxes.Asked.clear(), bench.Line.Forget();
            const auto press = [&] {
                act == "backup" ? bench.Home.OpenBackup("missing.CT2") : void(bench.Press(act.c_str()));
            };
            if (act == "mnuExit" && !changed) {
                EXPECT_THROW(press(), ProcessEnded);
                continue;
            }
            press();
            EXPECT_EQ(bench.Boxes.Shown.size(), changed ? 1U : 0U);
            if (!changed) continue;
            EXPECT_EQ(bench.Boxes.Shown[0].Text,
                      "The setup in memory differs from what was read from the meter in 1 field, and it is "
                      "saved in no file.");
            EXPECT_EQ(bench.Program.Image, before);
            EXPECT_EQ(bench.StatusLine(), status);
            EXPECT_TRUE(bench.Boxes.Asked.empty() && bench.Line.Sent().empty());
            EXPECT_THROW(bench.Home.ExitFromOutside(), ProcessEnded) << "which never asks";
        }
    }
}

TEST(HomeFacts, TellMeterSetupTransferAndBackups) {
    HomeBench bench;
    HomeFacts facts(bench.Program);
    const auto text = [&](std::size_t fact) {
        facts.Follow();
        return facts.Facts[fact].Text;
    };
    EXPECT_TRUE(text(0).starts_with("Not read yet: address ")) << text(0);
    EXPECT_TRUE(facts.Backups.empty());
    bench.Press("mnuGet");
    EXPECT_TRUE(text(0).starts_with("Counter, firmware 83, Extended\nInput Option: ")) << text(0);
    EXPECT_TRUE(text(0).find("Read 2026-03-04 05:06 at address ") != std::string::npos) << text(0);
    EXPECT_EQ(text(1), "It is what was read from the meter, 2026-03-04 05:06, unchanged.");
    EXPECT_EQ(text(2), "Get, 2026-03-04 05:06: all came.");
    ASSERT_EQ(facts.Backups.size(), 1U);
    EXPECT_TRUE(facts.Backups[0].Words.starts_with("2026-03-04 05:06, address ")) << facts.Backups[0].Words;
    EXPECT_FALSE(facts.Follow()) << "nothing has changed";
    bench.Home.OpenBackup(facts.Backups[0].Path);
    EXPECT_EQ(bench.Program.Origin.From, SetupSource::File);
    EXPECT_EQ(bench.Program.Home.CurrentFileName, "") << "Save would write over the backup";
    bench.Home.GoBack();
    PutCode(bench.Program.Image, Field::BaudRate, 6);
    EXPECT_EQ(text(1), "It is what was read from the meter, 2026-03-04 05:06, but for 1 field.");
    bench.Line.Unplug();
    bench.Press("mnuGet");
    EXPECT_EQ(
        text(2),
        "Get, 2026-03-04 05:06: it failed, number 21: no reply within 3 seconds.\nFirst: is the meter on? "
        "More to try is under that number in docs/when-something-fails.md.");
    EXPECT_TRUE(facts.Facts[2].Bad);
    bench.Program.Settings.MeterAddressValue = 9;
    EXPECT_NE(text(0).find("\nThe link is set otherwise now: address 9, "), std::string::npos) << text(0);
}

// What may be no whole setup is told beside the text, and goes into a meter only after a question.
TEST(HomeView, WhatIsNoWholeSetupIsLookedAt) {
    const struct {
        const char *Name, *File, *Fault;
        const char* Note;  // of the status line
    } cases[] = {
        {"empty file", "", nullptr, "no whole setup: 0 characters instead of 260 hexadecimal digits"},
        {"another kind of file", "%PDF-1.7\n", nullptr, "no whole setup: 8 characters instead of 260"},
        {"first block with another character", nullptr, "XR1AZ:cut=107", "first block: not all that came"},
        {"second block a digit longer", nullptr, "XR35Z:extra", "second block: a digit too many came"},
        {"third block never comes", nullptr, "XB74Z:noreply", "memory has only a part of the meter's setup"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        sim::MeterOptions meter;
        if (c.Fault) meter = WithFaults(meter, {c.Fault});
        HomeBench bench({}, meter);
        bench.Boxes.Path = "x.CT2";
        if (c.File) bench.Store.Contents["x.CT2"] = c.File;
        bench.Press("mnuDefaultSet");
        if (c.Fault && std::string_view(c.Fault).ends_with("107")) bench.Line.InjectAfter(1100, "#\r");
        bench.Press(c.File ? "mnuOpen" : "mnuGet");
        EXPECT_NE(bench.StatusLine().find(c.Note), std::string::npos) << bench.StatusLine();
        EXPECT_EQ(bench.Store.Folders.count("home/backups"), 0U) << "no copy to go back to";
        bench.Line.Forget();
        bench.Boxes.SaysYes = false;
        bench.Press("mnuPut");
        ASSERT_FALSE(bench.Boxes.Shown.empty());
        EXPECT_EQ(bench.Boxes.Shown.back().Title, "Put Data");
        EXPECT_TRUE(bench.Line.Sent().empty());
        bench.Boxes.SaysYes = true;
        bench.Press("mnuPut");
        EXPECT_EQ(bench.Line.Sent().size(), 7U);
        bench.Press("mnuDefaultSet");
        EXPECT_EQ(bench.Program.Home.SetupDoubt, "");
    }
}

}  // namespace
}  // namespace counter::test

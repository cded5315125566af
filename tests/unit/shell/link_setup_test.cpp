// counter-link: what it lays down, what it refuses, and what it says of the meter that answered.
#include "shell/link_setup.h"

#include <gtest/gtest.h>

#include "support/fixed_catalog.h"
#include "support/memory_files.h"
#include "support/meter_kinds.h"
#include "support/meter_line.h"
#include "support/virtual_pump.h"

namespace counter::test {
namespace {

struct LinkBench {
    VirtualPump Pump;
    MemoryFiles Store;
    FixedCatalog Catalog;
    TriedDevice Tried;
    MeterLine Line;
    LinkSetup View{{Pump, Line, Tried, Catalog, {Store, "home"}}};

    explicit LinkBench(sim::MeterOptions options = {}) : Line(Pump, std::move(options)) {
        Store.Contents["/dev/ttyUSB0"] = "";
        View.Load();
    }
    std::string File() { return Store.Contents["home/Settings.SSS"]; }
    const std::string& Result() { return View.lblResult.Caption; }
};

TEST(LinkSetup, KeepsWhatItDoesNotShow) {
    LinkBench bench;
    bench.Store.Contents["home/Settings.SSS"] = "351200710010083174321\r\n2711AABBCCDDEEFFF6CBC0A800071\r\n";
    bench.View.Load();
    EXPECT_EQ(bench.View.txtNodeIp.Text, "192.168.0.7");
    bench.View.Controls.Select(bench.View.cboBaud, 6);
    bench.View.Controls.Click(bench.View.cmdSave);
    EXPECT_EQ(bench.File(), "3612007100100831743210\r\n2711AABBCCDDEEFFF6CBC0A800071\r\n");
}

TEST(LinkSetup, APickedPortGetsTheNumberByItsLastingName) {
    LinkBench bench;
    bench.View.Controls.Select(bench.View.cboPort, 1);
    EXPECT_EQ(bench.View.txtDevice.Text, "/dev/ttyUSB0");
    bench.View.Controls.Click(bench.View.cmdSave);
    EXPECT_EQ(bench.Store.LinkTarget("home/ports/com1"), "/dev/serial/by-id/usb-1");
    EXPECT_EQ(bench.File(), "3501000100100831010000\r\n2711000000000000F6CB00000000\r\n")
        << "as a new file begins";
}

TEST(LinkSetup, LaysDownWhatANewFileBeginsWithAndNothingIllegal) {
    LinkBench bench;
    bench.View.Controls.Type(bench.View.txtVersion, "many");
    bench.View.Controls.Click(bench.View.cmdSave);
    EXPECT_EQ(bench.View.lblResult.TextColor, ColorRed);
    EXPECT_EQ(bench.Result(), "Firmware version is a number 0 to 255");
    bench.View.Controls.Type(bench.View.txtVersion, "83");
    bench.View.Controls.Type(bench.View.txtDevice, "/dev/nothing");
    bench.View.Controls.Click(bench.View.cmdSave);
    EXPECT_EQ(bench.Result(), "/dev/nothing: No such file or directory");
    bench.Store.Links["home/ports/com1"] = "/dev/ttyS0";
    bench.Store.Links["home/ports/meter"] = "com1";
    bench.View.Controls.Type(bench.View.txtDevice, "home/ports/meter");
    bench.View.Controls.Click(bench.View.cmdSave);
    EXPECT_EQ(bench.Result(), "home/ports/meter: is port number 1 itself");
    EXPECT_EQ(bench.File(), "");
    bench.View.Controls.Type(bench.View.txtDevice, "/dev/ttyS0");
    bench.View.Controls.Click(bench.View.cmdSave);
    EXPECT_EQ(bench.File(), "3501000100100831010000\r\n2711000000000000F6CB00000000\r\n");
}

TEST(LinkSetup, ListAndDeviceAgreeAndAMachineWithoutPortsIsToldSo) {
    LinkBench bench;
    bench.View.Controls.Type(bench.View.txtDevice, "/dev/ttyUSB0");
    EXPECT_EQ(bench.View.cboPort.ListIndex, 1);
    bench.View.Controls.Type(bench.View.txtDevice, "/dev/pts/3");
    EXPECT_EQ(bench.View.cboPort.ListIndex, -1);
    bench.Catalog.Known.clear();
    bench.View.Controls.Click(bench.View.cmdRefresh);
    EXPECT_TRUE(bench.Result().starts_with("This machine has no serial port:")) << bench.Result();
}

TEST(LinkSetup, WhatIsNotSavedIsAskedAbout) {
    LinkBench bench;
    int asked = 0, opened = 0, closed = 0;
    bench.View.AskToDrop = [&](const Message&) { return ++asked > 1; };
    bench.View.OpenSetup = [&] { return ++opened > 1; };
    bench.View.Close = [&] { ++closed; };
    EXPECT_TRUE(bench.View.MayClose());
    bench.View.Controls.Type(bench.View.txtVersion, "many");
    EXPECT_FALSE(bench.View.MayClose());
    bench.View.Controls.Click(bench.View.cmdSaveOpen);
    EXPECT_EQ(opened, 0) << "it was not saved";
    bench.View.Controls.Type(bench.View.txtVersion, "84");
    EXPECT_TRUE(bench.View.MayClose()) << "the user says so";
    bench.View.Controls.Click(bench.View.cmdSaveOpen);
    EXPECT_EQ(bench.Result(), "Saved, but Counter Setup could not be started.");
    bench.View.Controls.Click(bench.View.cmdSaveOpen);
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(bench.View.MayClose() && asked == 2);
}

TEST(LinkSetup, TheTestSaysWhoAnsweredOrWhyNobodyDid) {
    LinkBench bench;
    bench.View.Controls.Click(bench.View.cmdTest);
    EXPECT_EQ(bench.View.lblResult.TextColor, ColorGreen) << bench.Result();
    EXPECT_NE(bench.Result().find("firmware version"), std::string::npos) << bench.Result();
    EXPECT_EQ(bench.Tried.Device, "/dev/ttyS0");
    EXPECT_FALSE(bench.Line.PortOpen());
    bench.Line.Unplug();
    bench.View.Controls.Click(bench.View.cmdTest);
    EXPECT_EQ(bench.Result().rfind("no reply within 3 seconds (21).", 0), 0U) << bench.Result();
    bench.Line.NextOpen = {StatusKind::Busy, "/dev/ttyS0", "Device or resource busy"};
    bench.View.Controls.Click(bench.View.cmdTest);
    EXPECT_EQ(bench.Result(), "/dev/ttyS0: Device or resource busy");
    EXPECT_TRUE(bench.View.cmdSave.Enabled);
    EXPECT_EQ(bench.Store.Contents.size(), 1U) << "nothing was written";
}

TEST(LinkSetup, FindMeterTriesLinesUntilOneAnswersAndWritesNothing) {
    // What the meter on /dev/ttyUSB0 speaks, the settings with which it is found, and the last trial.
    const struct {
        const LinkKind& Kind;
        int Version;
        const char *Line1, *Tried;
    } cases[] = {
        // clang-format off
        {kLinkKinds[0], 83, "3501000100100831010000", "Trial 5 of 140: /dev/ttyUSB0, Custom ASCII at 9600 baud"},
        {kRtu,          83, "3501100100100831010000", "Trial 6 of 140: /dev/ttyUSB0, Modbus RTU at 9600 baud"},
        {kRtu,          79, "3501100100100791010000", "Trial 8 of 140: /dev/ttyUSB0, Modbus RTU (old check) at 9600 baud"},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Tried);
        LinkBench bench(MeterOf(c.Kind, c.Version));
        std::string last;
        bench.View.Controls.Changed = [&] {
            if (bench.Result().rfind("Trial", 0) != 0) return;
            last = bench.Result();
            const bool first = last.find("/dev/ttyS0") != std::string::npos;
            bench.Line.NextOpen =
                first ? Status{StatusKind::Other, "/dev/ttyS0", "Input/output error"} : Status{};
        };
        bench.View.Controls.Click(bench.View.cmdFind);
        EXPECT_EQ(last, c.Tried);
        EXPECT_EQ(bench.View.lblResult.TextColor, ColorGreen) << bench.Result();
        EXPECT_NE(bench.Result().find("It is on /dev/ttyUSB0. Save keeps this."), std::string::npos);
        EXPECT_EQ(bench.File(), "");
        bench.View.Controls.Click(bench.View.cmdSave);
        EXPECT_EQ(bench.File().substr(0, 22), c.Line1);
    }
}

// The usual first, and no line twice.
TEST(LinkSetup, FindMeterKnowsEveryLineThatAMeterCanHave) {
    std::vector<std::string> steps;
    for (const SearchStep& step : SearchSteps({"A"})) steps.push_back(StepInWords(step));
    ASSERT_EQ(steps.size(), 70U);
    EXPECT_EQ(steps.front(), "A, Custom ASCII at 9600 baud");
    EXPECT_EQ(steps[27], "A, Modbus RTU (old check) at 300 baud");
    EXPECT_EQ(steps.back(), "A, Modbus RTU (old check) at 300 baud, odd parity");
    EXPECT_EQ(std::set<std::string>(steps.begin(), steps.end()).size(), steps.size());
}

TEST(LinkSetup, FindMeterTellsWhatItTriedAndCanBeStopped) {
    LinkBench bench;
    bench.Line.Unplug();
    bench.Pump.After(10000, [&] {
        EXPECT_EQ(bench.View.pbFind.Value, 2);
        EXPECT_FALSE(bench.View.cmdSave.Enabled);
        bench.View.Controls.Click(bench.View.cmdFind);
    });
    bench.View.Controls.Click(bench.View.cmdFind);
    EXPECT_EQ(bench.Result(), "Stopped.");
    EXPECT_LT(bench.Pump.NowMs(), 15000);
    EXPECT_TRUE(bench.View.cmdSave.Enabled);
    bench.Pump.After(1000, [&] { bench.View.Cancel(); });
    bench.View.Controls.Click(bench.View.cmdTest);
    EXPECT_EQ(bench.Result(), "Stopped.");
    EXPECT_FALSE(bench.View.Cancel()) << "nothing is under way";

    bench.View.Controls.Click(bench.View.cmdFind);
    EXPECT_EQ(
        bench.Result(),
        "No meter answered on /dev/ttyS0, /dev/ttyUSB0: 140 trials with meter address 1 and Modbus address "
        "1. Check that the meter is on, its cable and wiring, and its address.");
}

TEST(LinkSetup, FieldsFollowProtocolAndNode) {
    LinkBench bench;
    EXPECT_FALSE(bench.View.cboParity.Enabled);
    EXPECT_FALSE(bench.View.txtNode.Enabled);
    bench.View.Controls.Select(bench.View.cboProtocol, 1);
    EXPECT_TRUE(bench.View.cboParity.Enabled);
    EXPECT_FALSE(bench.View.cboAddress.Enabled);
    bench.View.Controls.Check(bench.View.chkNode, 1);
    EXPECT_TRUE(bench.View.txtNode.Enabled);
    EXPECT_FALSE(bench.View.txtDevice.Enabled);
}

}  // namespace
}  // namespace counter::test

// The Commands panel on a line whose far end the test plays: what each press sends and shows, in virtual
// time.
#include "commands/commands_view.h"

#include <gtest/gtest.h>

#include "support/hand_bench.h"

namespace counter::test {
namespace {

struct PanelBench : HandBench {
    CommandsView View{Program};

    explicit PanelBench(bool modbus = false, const char* modeAndFunction = "00") {
        DigitsPut(Program.Image, 199, modeAndFunction);
        if (modbus) UseModbusAscii();
        Open();
    }
    void Open() {
        View.Load();
        View.Activate();
    }
    Refusal Click(const char* button) { return View.Controls.Click(*View.Controls.Find(button)); }
    void Type(const char* text) { View.Controls.Type(View.txtRmtDspy, text); }
    void Focus(Control& control) { View.Controls.Focus(control); }
    void Answer(const char* text) {
        Port.Answer = [text](const std::string&) { return text; };
    }
    std::string Fields() {
        std::string text;
        for (const char* name : {"picItem1", "picItem2", "picItem3", "picPeak", "picValley"})
            text += "[" + View.Controls.Find(name)->Text + "]";
        return text;
    }
    // The status line with its colour, "-" where it is hidden.
    std::string Status() const {
        if (!View.lblErrText.Visible) return "-";
        return (View.lblErrText.TextColor == ColorGreen ? "green " : "red ") + View.lblErrText.Caption;
    }
};

// clang-format off
const struct {
    const char* Button;
    const char* Text;    // for the display
    const char* Answer;  // in Custom ASCII
    const char* Ascii;
    const char* Modbus;  // empty: disabled
    const char *Fields, *Status;
} kPresses[] = {
    {"cmdItem1",    "", "  12.5", "300 *1B1", "300 :010400030002F6", "[12.5][][][][]", "green Item 1 request sent."},
    {"cmdItem2",    "", " -1",    "300 *1B2", "300 :010400090002F0", "[][-1][][][]",   "green Item 2 request sent."},
    {"cmdItem3",    "", "33",     "300 *1B3", "300 :0104000B0002EE", "[][][33][][]",   "green Item 3 request sent."},
    {"cmdPeakRd",   "", " 9",     "300 *1B4", "300 :010400050002F4", "[][][][9][]",    "green Peak Request sent."},
    {"cmdValleyRd", "", " 1",     "300 *1B6", "300 :010400070002F2", "[][][][][1]",    "green Valley Request sent."},
    {"cmdActive",   "", " 12345.67-00001.50",          "300 *1B0", "", "[ 12345.67][-00001.50][][][]",          "green All Active Readings request sent."},
    {"cmdActiveP",  "", " 12345.67 99999.99-00000.01", "300 *1B7", "", "[ 12345.67][][][ 99999.99][-00000.01]", "green All Active Readings + Peak + Valley request sent."},
    {"cmdFRst",     "", "-", "300 *1C1", "300 :01050002FF00F9", "[][][][][]", "green Function Reset Command sent."},
    {"cmdLARst",    "", "-", "300 *1C2", "300 :01050003FF00F8", "[][][][][]", "green Latched Alarms Reset Command sent."},
    {"cmdMRst",     "", "-", "300 *1C0", "300 :01050001FF00FA", "[][][][][]", "green Meter Reset Command sent."},
    {"cmdPeak",     "", "-", "300 *1C3", "300 :01050004FF00F7", "[][][][][]", "green Peak Reset Command sent."},
    {"cmdValley",   "", "-", "300 *1C9", "300 :01050005FF00F6", "[][][][][]", "green Valley Reset Command sent."},
    {"cmdRmtDspy",  "", "-", "300 *1C4", "300 :01050006FF00F5", "[][][][][]", "green Remote Display Reset Command sent."},
    {"cmdDspyOnly", " -12.50 ", "-", "300 *1H -12.50 ", "300 :01100069000204FFFFFB1E69", "[][][][][]", "green Remote data sent to Display only."},
    {"cmdItm3Only", "12.34",    "-", "300 *1K12.34",    "300 :0110006B000204000004D2A8", "[][][][][]", "green Remote data sent to Item 3 only."},
    {"cmdBoth",     "",         "-", "300 *1L",         "300 :0110006D000204000000007C", "[][][][][]", "green Remote data sent to Display and Item 3."},
    {"cmdC",        "*2X'0D",   "-", "300 *2X'0D",      "",                              "[][][][][]", "green Remote data sent to Display"},
    {"cmdSendPRM",  "", "-", "", "", "[][][][][]", "-"},
};
// clang-format on

TEST(Panel, APressIsOneFrameAndItsStatus) {
    for (const auto& c : kPresses) {
        PanelBench ascii, modbus(true);
        ascii.Answer(c.Answer);
        for (PanelBench* bench : {&ascii, &modbus}) bench->Type(c.Text);
        for (int again = 0; again < 2; ++again) {
            EXPECT_EQ(ascii.Click(c.Button), Refusal::None) << c.Button;
            EXPECT_EQ(ascii.Port.Story(), c.Ascii) << c.Button;
            EXPECT_EQ(ascii.Fields(), c.Fields) << c.Button;
            EXPECT_EQ(ascii.Status(), c.Status) << c.Button;
        }
        EXPECT_EQ(modbus.Click(c.Button), *c.Modbus == '\0' ? Refusal::Disabled : Refusal::None) << c.Button;
        EXPECT_EQ(modbus.Port.Story(), c.Modbus) << c.Button;
    }
}

TEST(Panel, TheValueGoesWithTheFocusAndTheHelpLineFollows) {
    for (const bool modbus : {false, true}) {
        PanelBench bench(modbus);
        CommandsView& view = bench.View;
        const auto seen = [&] { return view.txtRmtDspy.Text + (view.lblModeC.Visible ? "|help" : "|"); };
        const std::string help = modbus ? "|" : "|help";
        bench.Focus(view.txtRmtDspy);
        EXPECT_EQ(seen(), "|") << "nothing was sent yet";
        bench.Type("5");
        EXPECT_EQ(seen(), "5" + help);
        bench.Focus(view.cmdDspyOnly);
        bench.Click("cmdDspyOnly");
        EXPECT_EQ(seen(), "5|");
        bench.Focus(view.txtRmtDspy);
        EXPECT_EQ(seen(), help);
        bench.Type("6");
        bench.Focus(view.cmdDspyOnly);
        bench.Focus(view.txtRmtDspy);
        EXPECT_EQ(seen(), "6|") << "it empties once for each send";
        bench.Port.Story();
        bench.Type("2147483648");
        bench.Click("cmdDspyOnly");
        EXPECT_EQ(bench.Port.Story(), modbus ? "" : "300 *1H2147483648");
        EXPECT_EQ(bench.Status(),
                  modbus ? "red A value for the display is -2147483648 to 2147483647 over Modbus."
                         : "green Remote data sent to Display only.");
        bench.Focus(view.cmdDspyOnly);
        bench.Focus(view.txtRmtDspy);
        EXPECT_EQ(seen(), modbus ? "2147483648|" : "|help") << "what was refused is kept";
        view.RefuseTyped("5\u20AC");
        EXPECT_EQ(bench.Status(), "red '5\u20AC' has characters that the meter does not have");
    }
}

TEST(Panel, Item3IsOfferedUnlessTheModeNeedsIt) {
    for (const char* mode : {"02", "32", "0B", "1C", "2D", "CE", "0F", "00", "01", "03", "3F", "0A", "08"}) {
        PanelBench bench(false, mode);
        const bool taken = std::string("02 32 0B 1C 2D CE 0F").find(mode) != std::string::npos;
        for (const char* button : {"cmdItm3Only", "cmdBoth"})
            EXPECT_EQ(bench.View.Controls.Find(button)->Enabled, !taken) << mode;
        EXPECT_EQ(bench.Status(), taken
                                      ? "green Remote display is unavailable for Item 3 because it is being "
                                        "used by the selected Mode/Function."
                                      : "-");
    }
}

TEST(Panel, ReadingsThatBringLess) {
    PanelBench bench;
    bench.Answer(" 12345.67");
    bench.Click("cmdItem1");
    bench.Answer("-");
    bench.Click("cmdItem2");
    EXPECT_EQ(bench.Fields(), "[12345.67][12345.67][][][]") << "a silent meter: the last reply again";
    EXPECT_EQ(bench.Status(), "green Item 2 request sent.");
    bench.Answer(" 12345.67");
    DigitsPut(bench.Program.Image, 187, "08");
    bench.Open();
    bench.Click("cmdActive");
    EXPECT_EQ(bench.Status(), "green Only Item 1 displayed because Termination after each item set.");
    EXPECT_EQ(bench.Fields(), "[ 12345.67][][][][]");
    bench.State().PortFault = 1;
    for (const char* button : {"cmdItem1", "cmdActive", "cmdActiveP"}) {
        bench.Click(button);
        EXPECT_EQ(bench.Fields(), "[][][][][]") << button;
        EXPECT_EQ(bench.Status(), "red Communications failure.  Program may have to be re-started.")
            << button;
    }
}

// An adaptor that is pulled out fails in the exchange, not in a wait: what Item 1 was is no Item 2.
TEST(Panel, APulledAdaptorIsACommunicationsFailure) {
    for (const bool modbus : {false, true}) {
        PanelBench bench(modbus);
        bench.Program.LineTrouble = {StatusKind::NotFound, "/dev/ttyUSB0", "No such file or directory"};
        bench.Open();
        EXPECT_EQ(bench.Status(), "red /dev/ttyUSB0: No such file or directory") << "as it was opened";
        bench.Answer(modbus ? ":0104040000000CEB" : " 1.5");
        bench.Click("cmdItem1");
        bench.Port.Answer = [&](const std::string&) { return bench.Port.Gone = true, "-"; };
        bench.Click("cmdItem2");
        EXPECT_EQ(bench.Fields(), modbus ? "[ 12][][][][]" : "[1.5][][][][]");
        EXPECT_EQ(bench.Status(), "red Communications failure.  Program may have to be re-started.");
    }
}

// Item 1 was asked for at 300 and is answered at 310; the second press comes at 320 and sends at 620.
TEST(Panel, APressDuringAWaitRunsToItsEndInsideIt) {
    PanelBench bench;
    bench.Port.Answer = [](const std::string& frame) { return frame == "*1B1" ? " 1.5" : " 2.5"; };
    bench.Pump.After(320, [&] { bench.Click("cmdItem2"); });
    bench.Click("cmdItem1");
    // Exchanges never overlap: the reply that is awaited comes in before the next command goes out.
    EXPECT_EQ(bench.Port.Story(), "300 *1B1; 570 *1B2");
    EXPECT_EQ(bench.View.picItem1.Text, "1.5");
    EXPECT_EQ(bench.View.picItem2.Text, "2.5");
}

TEST(Panel, WhatComesAfterItWasLeftIsThrownAway) {
    PanelBench bench;
    int home = 0;
    bench.View.ShowMainMenu = [&] { ++home; };
    bench.Answer(" 12.5 13.5");
    for (const char* button : {"cmdItem1", "cmdActive", "cmdActiveP"}) {
        bench.Pump.After(400, [&] {
            bench.Click("cmdOK");
            bench.Open();
        });
        bench.Click(button);
        EXPECT_EQ(bench.Fields() + bench.Status(), "[][][][][]-") << button;
    }
    EXPECT_EQ(home, 3);
    bench.State().SerialProtocol = 1;
    bench.Click("cmdSendPRM");
    EXPECT_EQ(bench.Boxes.Shown.at(0).Text,
              "Cannot send the custom curve file when using the Modbus protocol.");
}

}  // namespace
}  // namespace counter::test

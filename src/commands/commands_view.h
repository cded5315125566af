// CommandsView: hand work on a live meter, without a screen.
//
// Readings, resets and values for the display, one exchange a press; nothing repeats or runs by itself. The
// buttons are not locked meanwhile: a press during the wait of another runs to its end inside it. What a
// reading brings after the view was left is thrown away.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/page_builder.h"
#include "link/single_reading.h"
#include "session/session.h"

namespace counter {

class CommandsView {
  public:
    static constexpr const char* kTitle = "COMMANDS";
    // A reading whose port failed.
    static constexpr const char* kCommunicationsFailure =
        "Communications failure.  Program may have to be re-started.";

    explicit CommandsView(Session& session);

    // Fresh: fields empty, and what the setup and the protocol rule out disabled.
    void Load();
    // The view comes to the front, also from behind the curve dialog.
    void Activate();
    // The view is left, whatever it waits for.
    void Unload();

    // What was typed, in UTF-8, has characters that the meter lacks; the status line says so.
    void RefuseTyped(const std::string& typed);

    // Why the value of the last press was not sent; empty where it was.
    std::string WhyNotSent;

    // Hooks into what shows the view; each may be empty.
    std::function<void()> ShowMainMenu;
    std::function<void()> OpenSendCurve;  // as a dialog over this view

  private:
    static constexpr int kHelpNumber = 3104;  // of all hand work

  public:
    Session& Program;
    Form Controls;
    PageBuilder Build{Controls, kEveryTab, [](std::string_view) { return kHelpNumber; }};

    // clang-format off
    Control& lblRdgs     = Build.Add(ControlKind::Label,   nullptr, "lblRdgs",     "READINGS");
    Control& cmdActive   = Build.Add(ControlKind::Button,  nullptr, "cmdActive",   "All Active");
    Control& cmdActiveP  = Build.Add(ControlKind::Button,  nullptr, "cmdActiveP",  "All Active + Peak + Valley");
    Control& cmdItem1    = Build.Add(ControlKind::Button,  nullptr, "cmdItem1",    "Item 1");
    Control& cmdItem2    = Build.Add(ControlKind::Button,  nullptr, "cmdItem2",    "Item 2");
    Control& cmdItem3    = Build.Add(ControlKind::Button,  nullptr, "cmdItem3",    "Item 3");
    Control& cmdPeakRd   = Build.Add(ControlKind::Button,  nullptr, "cmdPeakRd",   "Peak");
    Control& cmdValleyRd = Build.Add(ControlKind::Button,  nullptr, "cmdValleyRd", "Valley");
    Control& picItem1    = Build.Add(ControlKind::Picture, nullptr, "picItem1");
    Control& picItem2    = Build.Add(ControlKind::Picture, nullptr, "picItem2");
    Control& picItem3    = Build.Add(ControlKind::Picture, nullptr, "picItem3");
    Control& picPeak     = Build.Add(ControlKind::Picture, nullptr, "picPeak");
    Control& picValley   = Build.Add(ControlKind::Picture, nullptr, "picValley");

    Control& lblResets   = Build.Add(ControlKind::Label,   nullptr, "lblResets",   "RESETS");
    Control& cmdFRst     = Build.Add(ControlKind::Button,  nullptr, "cmdFRst",     "Function");
    Control& cmdLARst    = Build.Add(ControlKind::Button,  nullptr, "cmdLARst",    "Latched Alarm");
    Control& cmdMRst     = Build.Add(ControlKind::Button,  nullptr, "cmdMRst",     "Meter");
    Control& cmdPeak     = Build.Add(ControlKind::Button,  nullptr, "cmdPeak",     "Peak");
    Control& cmdValley   = Build.Add(ControlKind::Button,  nullptr, "cmdValley",   "Valley");
    Control& cmdRmtDspy  = Build.Add(ControlKind::Button,  nullptr, "cmdRmtDspy",  "Remote Display");

    Control& lblRmtDspy  = Build.Add(ControlKind::Label,   nullptr, "lblRmtDspy",  "REMOTE DISPLAY");
    Control& lblValue    = Build.Add(ControlKind::Label,   nullptr, "lblValue",    "Enter Value");
    Control& txtRmtDspy  = Build.Add(ControlKind::Entry,   nullptr, "txtRmtDspy");
    Control& cmdDspyOnly = Build.Add(ControlKind::Button,  nullptr, "cmdDspyOnly", "Display Only");
    Control& cmdItm3Only = Build.Add(ControlKind::Button,  nullptr, "cmdItm3Only", "Item 3 Only");
    Control& cmdBoth     = Build.Add(ControlKind::Button,  nullptr, "cmdBoth",     "Display + Item 3");
    Control& cmdC        = Build.Add(ControlKind::Button,  nullptr, "cmdC",        "Display Mode C");
    Control& lblModeC    = Build.Add(ControlKind::Label,   nullptr, "lblModeC",
        "For Display Mode C,  use the hex format 'xx to enter unprintable characters (e.g. a carriage return is entered as '0D)");

    Control& lblCC       = Build.Add(ControlKind::Label,   nullptr, "lblCC",       "CUSTOM CURVE");
    Control& cmdSendPRM  = Build.Add(ControlKind::Button,  nullptr, "cmdSendPRM",  "Send .PRM File");

    Control& lblErrText  = Build.Add(ControlKind::Label,   nullptr, "lblErrText");
    Control& cmdOK       = Build.Add(ControlKind::Button,  nullptr, "cmdOK",       "OK");
    // clang-format on

  private:
    // One command without a reply, in both protocols.
    struct Request {
        std::string_view Ascii;    // after the head
        std::string_view Modbus;   // for a value: what comes before its eight digits
        bool WithoutHead = false;  // the text alone goes out
    };

    void WireReading(Control& button, ReadingKind kind, Control& field, const char* status);
    void WireReset(Control& button, Request reset, const char* status);
    void WireRemote(Control& button, Request target, const char* status);
    void WireHelpLine();
    void Wire();

    void ReadInto(Control& field, ReadingKind kind, const char* status);
    void ReadActive(bool withPeakValley, const char* status);
    bool Ask(ReadingKind kind);
    void ShowValues(bool withPeakValley);
    void SendRemote(const Request& target, const char* status);
    void ReportSending(const char* status);
    void ClearFields();
    void DisableTakenItem3();
    void OpenCurve();
    void ShowStatus(const std::string& text, Color color);

    int termEachItem_ = 0;     // 1: the meter answers a line of values with Item 1 alone
    int rmtClearOnFocus_ = 0;  // 1: the value was sent and goes when its field gets the focus
    int opening_ = 0;          // counts how often the view was left
};

}  // namespace counter

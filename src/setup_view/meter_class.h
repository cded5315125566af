// The meter's class and baud rate: buttons that reach beyond the image, into the meter or the settings.
#pragma once

#include "platform/status.h"
#include "setup_view/page.h"
#include "setup_view/tabs.h"

namespace counter {

struct MeterClass : Page {
    explicit MeterClass(SetupView& view) : Page(view, kInputTab) {}

    // clang-format off
    Control& fraBasExt    = Build.Add(ControlKind::Frame,  nullptr,    "fraBasExt",    "Basic / Extended");
    Control& cmd9600      = Build.Add(ControlKind::Button, &fraBasExt, "cmd9600",      "9600");
    Control& cmdQBasic    = Build.Add(ControlKind::Button, &fraBasExt, "cmdQBasic",    "Basic");
    Control& cmdQExtended = Build.Add(ControlKind::Button, &fraBasExt, "cmdQExtended", "Extended");
    // clang-format on

    void Wire();
    // Both class buttons at rest.
    void ColorCommands();
    // The button of the meter's class.
    void MarkClass();
    // Writes the class, 0 Basic or 1 Extended, into a connected meter, over Custom ASCII:
    //
    //   X11FZ                     the word that holds it, four digits come back
    //   W11F, four digits and Z   100 ms later: bits 3..2 of the first byte changed and no other
    //
    // Nothing is written without a link, over Modbus, or when the answer has another length; picText says so
    // until the view is built again or another class is written. The image stays. True if written.
    bool BasicExtend(int extended);
    // Why the meter's class can't be written now, a sentence; empty: it can.
    std::string_view WhyNotWritten() const;
    void SayNothing();

  private:
    void PressClass(Control& button, int extended);
    bool SendClass(int extended);
    void SetBaud9600();
};

}  // namespace counter

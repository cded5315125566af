// What is beside the pages: the tabs, the way out, and the reading of a meter without a panel.
#pragma once

#include <string>

#include "setup_view/page.h"

namespace counter {

struct ViewButtons : Page {
    explicit ViewButtons(SetupView& view);

    // clang-format off
    Control& tabSetup    = Build.Add(ControlKind::TabStrip, nullptr, "tabSetup");
    Control& cmdMainMenu = Build.Add(ControlKind::Button,   nullptr, "cmdMainMenu", "Main Menu");
    Control& cmdRead     = Build.Add(ControlKind::Button,   nullptr, "cmdRead", "Read");
    Control& lblValue    = Build.Add(ControlKind::Label,    nullptr, "lblValue");
    Control& picText     = Build.Add(ControlKind::Picture,  nullptr, "picText");
    // clang-format on

    void Wire();
    void ShowByMeterKind();
    // The Read loop runs.
    bool Reading() const { return readRunning_; }
    // Ends it at its next turn.
    void StopReading();

  private:
    void PressRead();
    void ReadOnce();
    bool AskMeter(double& reading, int point);

    bool readRunning_ = false;
};

// A reading with the decimals of point code 1..6; the point is always there, a lone 0 in front of it isn't.
std::string ReadingText(double reading, int point);

}  // namespace counter

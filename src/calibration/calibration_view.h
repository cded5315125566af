// CalibrationView: asks for the known frequency, runs the calibration and shows how far it is.
//
// Once begun, a run offers nothing to press: the meter has a test scale until the end of it. A second Enter
// does nothing and the view can't be reset. Whoever closes the window or ends the program meanwhile ends the
// run at its next rest, and the meter has its own scale again before anything closes: with a test scale it
// would show wrong values where it is used.
//
// Over Modbus there is no calibration: the view says so and takes no frequency.
#pragma once

#include <functional>
#include <string_view>

#include "calibration/calibration.h"
#include "controls/page_builder.h"
#include "session/session.h"

namespace counter {

class CalibrationView {
  public:
    static constexpr const char* kTitle = "CALIBRATION";

    explicit CalibrationView(Session& session);

    // The view comes to the front with its field empty. Nothing while a run is under way.
    void Activate();
    // The view is left. Nothing while a run is under way.
    void Unload();

    // The whole procedure, on the frequency in txtFreq; nothing while it runs already. A doubt, of the
    // frequency before anything is sent, is a question to the user, and an end without a new factor, or with
    // one that the meter did not keep, a message.
    void Calib();
    // From the first frame of the procedure to the last.
    bool Running() const { return running_; }

    // The program is told to exit. False: it may, now. True: a run is under way, and ExitProgram is called
    // after its last step, with what it has written in Session::Writes.
    bool HoldExit();
    // The run under way, if any, is to end as soon as the meter has its own scale.
    void WantEnd() { endWanted_ = running_; }

    // Hooks into what shows the view; each may be empty.
    std::function<void()> ShowMainMenu;
    std::function<void()> ExitProgram;

  private:
    static constexpr int kHelpNumber = 1210;

  public:
    Session& Program;
    Form Controls;
    PageBuilder Build{Controls, kEveryTab, [](std::string_view) { return kHelpNumber; }};

    // clang-format off
    Control& lblProc        = Build.Add(ControlKind::Label,   nullptr, "lblProc", "CALIBRATION  PROCEDURE");
    Control& picCAL1        = Build.Add(ControlKind::Picture, nullptr, "picCAL1");
    Control& lblEnter       = Build.Add(ControlKind::Label,   nullptr, "lblEnter",
        "Enter the known accurate input frequency in Hertz (no commas)  >");
    Control& txtFreq        = Build.Add(ControlKind::Entry,   nullptr, "txtFreq");
    Control& picCAL2        = Build.Add(ControlKind::Picture, nullptr, "picCAL2");
    Control& lblCalc        = Build.Add(ControlKind::Label,   nullptr, "lblCalc",   kCalculatingText);
    Control& lblReturn      = Build.Add(ControlKind::Label,   nullptr, "lblReturn", kReturningText);
    Control& lblSet         = Build.Add(ControlKind::Label,   nullptr, "lblSet",    kSettingText);
    Control& txtScaleFactor = Build.Add(ControlKind::Value,   nullptr, "txtScaleFactor");
    Control& lblPPM         = Build.Add(ControlKind::Label,   nullptr, "lblPPM",    kPpmText);
    Control& lblRange       = Build.Add(ControlKind::Label,   nullptr, "lblRange",  kLimitedText);
    Control& lblDone        = Build.Add(ControlKind::Label,   nullptr, "lblDone",   kDoneText);
    Control& cmdOK          = Build.Add(ControlKind::Button,  nullptr, "cmdOK",     "OK");
    Control& cmdCANCEL      = Build.Add(ControlKind::Button,  nullptr, "cmdCANCEL", "CANCEL");
    // clang-format on

  private:
    void Run(const std::string& frequency);
    void HideProgress();
    static void Offer(Control& button, bool offered);
    void ShowStage(CalibrationStage stage, const CalibrationResult& sofar);
    void BackToMainMenu();
    CalibrationUser User();
    void TellOutcome(const CalibrationResult& result);

    bool running_ = false;
    bool endWanted_ = false;
    bool exitWanted_ = false;
};

}  // namespace counter

#include "calibration/calibration_view.h"

#include <string>
#include <utility>

#include "meter/text.h"

namespace counter {

namespace {

constexpr const char* kBeforeText =
    "This procedure requires a known accurate input frequency to be applied to the\n"
    "Counter with a Dual Channel Signal Conditioner in the Rate A Only mode.\n"
    "Set Menu items 'SEtuP' and 'Config' to all zeros.\n"
    "Apply the frequency now and continue with this procedure when the reading has \n"
    "settled.";

constexpr const char* kWaitText =
    "Wait while setting the meter scale factor and offset for a high resolution\n"
    "reading near 900,000.";

}  // namespace

CalibrationView::CalibrationView(Session& session) : Program(session) {
    Controls.OnEnter(txtFreq, [this](Control&) { Calib(); });
    Controls.On(cmdCANCEL, [this](Control&) {
        Unload();
        BackToMainMenu();
    });
    Controls.On(cmdOK, [this](Control&) { BackToMainMenu(); });
    HideProgress();
}

void CalibrationView::Activate() {
    if (running_) return;
    Offer(cmdOK, false);
    Offer(cmdCANCEL, true);
    HideProgress();
    picCAL1.Text = kBeforeText;
    txtFreq.Text.clear();
    const bool modbus = Program.LinkState.ModbusLink;
    txtFreq.Enabled = !modbus;
    const bool dead = !Program.LineTrouble.Ok();
    if (dead) picCAL2.Text = Program.LineTrouble.Text();
    if (modbus) picCAL2.Text = kNeedsAsciiText;
    picCAL2.Visible = modbus || dead;
    Controls.SetFocus(modbus ? cmdCANCEL : txtFreq);
    Controls.TellChanged();
}

void CalibrationView::Unload() {
    if (running_) return;
    Controls.DropFocus();
    HideProgress();
}

void CalibrationView::Calib() {
    if (running_ || Program.LinkState.ModbusLink) return;
    running_ = true;
    endWanted_ = false;
    const std::string frequency(Trimmed(txtFreq.Text));
    const std::string doubt = DoubtOfFrequency(frequency);
    if (doubt.empty() || User().GoOn(doubt)) Run(frequency);
    running_ = false;
    if (std::exchange(exitWanted_, false) && ExitProgram) ExitProgram();
}

// What is typed meanwhile would be taken for the frequency of this run.
void CalibrationView::Run(const std::string& frequency) {
    Offer(cmdCANCEL, false);
    Offer(cmdOK, false);  // of a run before this one
    HideProgress();
    picCAL2.Text = kWaitText;
    picCAL2.Visible = true;
    txtFreq.Enabled = false;
    Controls.TellChanged();
    Program.Home.ShowHourglass(true);
    const CalibrationResult result = RunCalibration(Program.Link, frequency, User());
    Program.Home.ShowHourglass(false);
    txtFreq.Enabled = true;
    Controls.TellChanged();
    TellOutcome(result);
}

CalibrationUser CalibrationView::User() {
    CalibrationUser user;
    user.Tell = [this](CalibrationStage stage, const CalibrationResult& sofar) {
        ShowStage(stage, sofar);
        Controls.TellChanged();
    };
    user.GoOn = [this](const std::string& doubt) {
        return Program.Dialogs.Confirm({kTitle, doubt + "\r\rGo on with the calibration?"});
    };
    user.EndWanted = [this] { return endWanted_ || Program.Writes.EndWanted(); };
    return user;
}

// A program that is to exit says it in its own way.
void CalibrationView::TellOutcome(const CalibrationResult& result) {
    if (exitWanted_) {
        Program.Writes.SoFar = [text = "Calibration: " + OutcomeOf(result)] { return text; };
    } else if (!result.Good()) {
        Program.Dialogs.Show({kTitle, OutcomeOf(result)});
    }
}

bool CalibrationView::HoldExit() {
    if (running_) exitWanted_ = true;
    WantEnd();
    return running_;
}

void CalibrationView::ShowStage(CalibrationStage stage, const CalibrationResult& sofar) {
    switch (stage) {
        case CalibrationStage::Calculating:
            lblCalc.Visible = true;
            break;
        case CalibrationStage::Limited:
            lblRange.Visible = true;
            break;
        case CalibrationStage::Returning:
            lblReturn.Visible = true;
            break;
        case CalibrationStage::Setting:
            lblSet.Visible = lblPPM.Visible = txtScaleFactor.Visible = true;
            txtScaleFactor.Text = std::to_string(sofar.Applied.Ppm);
            break;
        case CalibrationStage::Done:
            lblDone.Visible = sofar.Good();
            Offer(cmdOK, true);
            Controls.SetFocus(cmdOK);
            break;
    }
}

void CalibrationView::HideProgress() {
    for (Control* control :
         {&picCAL2, &lblCalc, &lblReturn, &lblSet, &txtScaleFactor, &lblPPM, &lblRange, &lblDone}) {
        control->Visible = false;
    }
}

void CalibrationView::Offer(Control& button, bool offered) {
    button.Visible = button.Enabled = offered;
}

void CalibrationView::BackToMainMenu() {
    if (ShowMainMenu) ShowMainMenu();
    Program.Home.ShowHourglass(false);
}

}  // namespace counter

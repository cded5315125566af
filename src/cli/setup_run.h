// SetupRun: the Setup view on one setup, without a screen, and a user who acts by a script.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "cli/edit_script.h"
#include "cli/offline_session.h"
#include "digit_entry/digit_entry.h"
#include "setup_view/setup_view.h"

namespace counter {

class SetupRun {
  public:
    // What is done with the view at its end. Returns the exit status.
    using Finish = std::function<int(SetupRun& run)>;
    SetupRun(const CommandCall& call, Finish finish);

    // Brings the view to the front, runs the actions of the script and finishes. With `fromMeter` the image
    // counts as the result of a good Get Setup. A message may end the program: then it finishes at once, and
    // the process ends with the status.
    int Execute(const SetupImage& image, bool fromMeter, std::string_view script);

    // The first action that could not be done and why, as "line 3: txtSetpt[1] is hidden"; empty where all
    // were. No action behind that one is run.
    const std::string& Wrong() const { return wrong_; }
    SetupView& View() { return view_; }
    Session& Program() { return offline_.Program(); }
    Status WriteHeld() { return offline_.WriteHeld(); }
    Json Messages() const { return offline_.Messages(); }
    // A message ended the program; nothing more can be done to the view.
    bool Ended() const { return ended_; }

  private:
    void End();
    bool Step();
    void RunDuringReadLoop();
    std::string TakeLine();

    std::string Run(const ScriptAction& action);
    std::string ComeToTab(int tab);
    std::string ActOn(Control& control, const ScriptAction& action);
    std::string Select(Control& list, const ScriptAction& action);
    std::string TypeInto(Control& value, const ScriptAction& action);
    std::string NoControl(const ScriptAction& action);

    const CommandCall& call_;
    Finish finish_;
    OfflineSession offline_;
    SetupView view_;
    DigitEntry entry_;
    Control* readButton_ = nullptr;

    std::string_view rest_;  // of the script
    int line_ = 0;
    std::string wrong_;
    bool entryOpened_ = false;
    bool actsInLoop_ = false;
    bool left_ = false;        // the view was left for the main menu
    bool scriptOver_ = false;  // the program was ended because the script was
    bool ended_ = false;
};

}  // namespace counter

// SetupRun: the Setup view on one setup, without a screen, and a user who acts by a script.
#pragma once

#include <string>
#include <string_view>

#include "cli/edit_script.h"
#include "cli/offline_session.h"
#include "digit_entry/digit_entry.h"
#include "setup_view/setup_view.h"

namespace counter {

class SetupRun {
  public:
    // With `fromMeter` the image counts as the result of a good Get Setup.
    SetupRun(const CommandCall& call, const SetupImage& image, bool fromMeter);

    // Brings the view to the front. A message may end the program.
    void Open();
    // Runs the actions of a script. Returns nothing, or the first action that can't be done and why, as
    // "line 3: txtSetpt[1] is hidden"; no action behind that one is run.
    std::string RunScript(std::string_view script);

    SetupView& View() { return view_; }
    Session& Program() { return offline_.Program(); }
    Status WriteHeld() { return offline_.WriteHeld(); }
    Json Messages() const { return offline_.Messages(); }
    // A message ended the program; nothing more can be done to the view.
    bool Ended() const { return ended_; }

  private:
    bool Step();
    void RunDuringReadLoop();
    std::string TakeLine();

    std::string Run(const ScriptAction& action);
    std::string ComeToTab(int tab);
    std::string ActOn(Control& control, const ScriptAction& action);
    std::string Select(Control& list, const ScriptAction& action);
    std::string TypeInto(Control& value, const ScriptAction& action);
    std::string NoControl(const ScriptAction& action);

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

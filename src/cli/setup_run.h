// SetupRun: the Setup view on one setup, without a screen, and a user who acts on it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/edit_script.h"
#include "cli/offline_session.h"
#include "offline/view_user.h"
#include "setup_view/setup_view.h"

namespace counter {

class SetupRun;

// The user: a script, a list of fields to set, or somebody at a terminal.
class Player {
  public:
    virtual ~Player() = default;
    // Does the next thing. False at the end, and after a thing that ends the run.
    virtual bool Step(SetupRun& run) = 0;
};

class SetupRun {
  public:
    // What is done with the view at its end. Returns the exit status.
    using Finish = std::function<int(SetupRun& run)>;
    SetupRun(const CommandCall& call, Player& player, Finish finish);

    // Brings the view to the front, lets the player act and finishes. With `fromMeter` the image counts as
    // the result of a good Get Setup. A message may end the program: then it finishes at once, and the
    // process ends with the status.
    int Execute(const SetupImage& image, bool fromMeter);

    // --- For the player ---

    // Does one action. Returns why it could not be done, as "txtSetpt[1] is hidden"; empty when done.
    std::string Run(const ScriptAction& action);
    // "no control 'txtSetpt'; there is txtSetpt[1] txtSetpt[2]", or with the names that may be meant.
    std::string NoControl(const std::string& fullName) const;
    // Full names of all, in the form's order.
    std::vector<std::string> ControlNames() const;
    // Who acts on the controls.
    ViewUser& User() { return user_; }
    // The image and what is beside it are as they were, and the view is built from them.
    void Restore(const SetupImage& image);

    // --- For the end ---

    // Writes the image where the call wants it, then what the view has changed of the settings. Returns 0, or
    // the exit status with its line written.
    int Save();

    SetupView& View() { return view_; }
    Session& Program() { return offline_.Program(); }
    Json Messages() const { return offline_.Messages(); }
    // A message ended the program; nothing more can be done to the view.
    bool Ended() const { return ended_; }
    // The Read loop runs, and the player acts within one of its waits.
    bool Reading() const { return view_.Buttons.Reading(); }

  private:
    void End();
    void RunDuringReadLoop();

    std::string ComeToTab(int tab);
    std::string ActOn(Control& control, const ScriptAction& action);
    std::string Select(Control& list, const ScriptAction& action);
    std::string TypeInto(Control& value, const ScriptAction& action);

    const CommandCall& call_;
    Player& player_;
    Finish finish_;
    OfflineSession offline_;
    SetupView view_;
    ViewUser user_;

    bool actsInLoop_ = false;
    bool left_ = false;        // the view was left for the main menu
    bool playerDone_ = false;  // the program was ended because the player was at the end
    bool ended_ = false;
};

}  // namespace counter

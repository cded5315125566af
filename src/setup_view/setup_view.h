// SetupView: the tabbed editor of the setup, without a screen.
//
// It holds no state of its own beyond what it shows. Each control writes its field of the image at once, and
// most changes rebuild the view from the image, so what a user sees is always what the image says. The rules
// of a page are in the files of that page, with its operations (`view.Scaling.DecPtFill()`).
//
// A user acts through Controls (Select, Check, Click, ComeToTab). A click on a value stores a request for
// digit entry in Session::Views and calls OpenDigitEntry; whoever runs that dialog calls EntryClosed when it
// has gone.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/form.h"
#include "session/session.h"
#include "setup_view/alarms_page.h"
#include "setup_view/analog_page.h"
#include "setup_view/communication_page.h"
#include "setup_view/filter_page.h"
#include "setup_view/input_display_page.h"
#include "setup_view/lockouts_page.h"
#include "setup_view/meter_class.h"
#include "setup_view/mode_lists.h"
#include "setup_view/option_boards.h"
#include "setup_view/scaling_page.h"
#include "setup_view/view_buttons.h"

namespace counter {

// Exit status of a program that met an analog board which its meter can't drive.
inline constexpr int kIncompatibleBoardExit = 2;

class SetupView {
  public:
    explicit SetupView(Session& session);

    Session& Program;
    // All controls, and all that a user can do to them.
    Form Controls;

    // --- Coming and going ---

    // Once, before the first Activate.
    void Load();
    // The view comes to the front. After a digit entry (Views.EntryReturn is 1) it only refreshes what
    // depends on values and stays on its page; otherwise it is built from the image, on the first page.
    // An analog board that the meter can't drive ends the process after a message box.
    void Activate();
    // The view goes from the front. What waits in it ends where it is and touches neither image nor focus,
    // which are another's by then.
    void PutAway();
    // Digit entry has closed, by whichever button: Activate, and what the entered field rules beside it.
    void EntryClosed();
    // F1: remembers the page in Views.PageTab and calls OpenHelp with the help number in force.
    void HelpKey();
    // Help has closed: the view is built from the image on the page that HelpKey or a digit entry
    // remembered, as a user comes to it.
    void ComeBack();
    int CurrentTab() const { return Buttons.tabSetup.ListIndex; }

    // --- Undo ---

    // The last act of the user's is taken back, with all that rules changed along with it, or done again: the
    // view is built from the image on the page of that act. False where there is none.
    bool Undo();
    bool Redo();

    // --- Which control shows which field ---

    // As the pages bind them.
    std::vector<Binding> Bindings;
    // The controls that change a field: one, or an element of each layout. None for the meter's own fields,
    // and for what several controls decide. `entry`: where options show the field, those of this entry of its
    // list, of the first for -1.
    std::vector<Control*> ControlsOf(Field field, int entry) const;
    // The fields that a control changes; more than one where it shows them in turns.
    std::vector<Field> FieldsOf(const Control& control) const;

    // Brings the user to the control of a field. Empty, or why it can't be come to, a sentence.
    std::string ComeToField(Field field);

    // --- Why something can't be reached now ---

    // Why an action on a control was refused: "is hidden"; of a tab that isn't offered with WhyNotOffered, of
    // a control that a rule has disabled with the rule, in a sentence.
    std::string WhyRefused(Refusal refusal, const Control& control) const;
    // A sentence; empty for a tab that is offered.
    std::string_view WhyNotOffered(int tab) const;

    // Hooks into what shows the view; each may be empty.
    std::function<void()> OpenDigitEntry;           // the request is in Session::Views
    std::function<void(int helpNumber)> OpenHelp;   // help over this view
    std::function<void()> ShowMainMenu;             // hide this view, show the home view
    std::function<void(const Control&)> TakeFocus;  // a rule moves the focus

    // --- The pages ---

    ViewButtons Buttons{*this};
    ModeLists Modes{*this};
    InputDisplayPage Input{*this, Modes};
    OptionBoards Boards{*this};
    MeterClass Class{*this};
    ScalingPage Scaling{*this};
    FilterPage Filter{*this};
    AlarmsPage Alarms{*this};
    CommunicationPage Communication{*this};
    AnalogPage Analog{*this};
    LockoutsPage Lockouts{*this};

    // Rebuild all that depends on Mode and Function, and all that depends on values.
    void InputRefresh();
    void ViewRefresh();

    // --- For the pages ---

    void Offer(int tab, bool offered);
    // Scaling and filter pages: none on a remote display, no filter page where nothing is filtered.
    void OfferByDisplayType();
    void CameTo(int tab);
    // Moves focus and help number while the view is on show.
    void Focus(Control& control);
    // LinkDelay between two lists that a rule fills. The user acts meanwhile and his handlers are live;
    // where he has to wait longer than a blink he sees an hourglass. False where the view was left or built
    // anew meanwhile: the rule then ends without doing more.
    bool LetUserAct(double ms);
    // The number of this stay in front; another one when the view was left or built anew.
    int Stay() const { return stay_; }

    // While one lives, handlers of lists and boxes are dead, or live; then they are as before.
    class Handlers {
      public:
        Handlers(SetupView& view, bool live)
            : view_(view), stay_(view.stay_), before_(view.Program.Views.SetupRefreshOn) {
            view_.Program.Views.SetupRefreshOn = live;
        }
        ~Handlers() {
            if (stay_ == view_.stay_) view_.Program.Views.SetupRefreshOn = before_;
        }
        Handlers(const Handlers&) = delete;
        Handlers& operator=(const Handlers&) = delete;

      private:
        SetupView& view_;
        int stay_;
        bool before_;
    };
    struct Quiet : Handlers {
        explicit Quiet(SetupView& view) : Handlers(view, false) {}
    };
    struct Live : Handlers {
        explicit Live(SetupView& view) : Handlers(view, true) {}
    };

  private:
    SetupAct ActOn(const Control& control) const;
    std::vector<Field> FieldsOfAct(const Control& control) const;
    void DoAct(const Control& control, const std::function<void()>& act);
    void BuildOn(const SetupImage& image, const SetupAct& act);
    Control* ControlFor(Field field);

    void Build(int page);
    void ComeToPageOnShow();
    void TakeIdentity();
    void FillLists();
    void ShowSelections();
    void SetHandlers(bool live);

    // From the beginning of a build to its end, handlers stay dead whatever the operations within it do,
    // but not while one of them waits.
    bool opening_ = false;
    bool onShow_ = false;
    int stay_ = 0;
};

}  // namespace counter

// SetupView: the tabbed editor of the setup, without a screen.
//
// It holds no state of its own beyond what it shows. Each control writes its field of the image at once, and
// most changes rebuild the view from the image, so what a user sees is always what the image says. The rules
// of a page stand in the files of that page; here all of them are reached.
//
// A user acts through Controls (Select, Check, Click, ComeToTab). A click on a value stores a request for
// digit entry in Session::Views and calls OpenDigitEntry; whoever runs that dialog calls EntryClosed when it
// has gone.
#pragma once

#include <functional>

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
    // The view comes to the front. Behind a digit entry (Views.EntryReturn is 1) it only refreshes what
    // depends on values and stays on its page; otherwise it is built anew from the image, on the first page.
    // An analog board that the meter can't drive ends the process behind a message box.
    void Activate();
    // Digit entry has closed, by whichever button: Activate, and what the entered field rules beside it.
    void EntryClosed();
    // F1: remembers the page in Views.PageTab and calls OpenHelp with the help number in force.
    void HelpKey();
    // Back to the page that HelpKey or a digit entry remembered; runs none of its rules.
    void RestorePage();
    int CurrentTab() const { return Buttons.tabSetup.ListIndex; }

    // Hooks into what shows the view; each may be empty.
    std::function<void()> OpenDigitEntry;           // the request stands in Session::Views
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

    // --- Operations that rebuild a part of the view ---

    // Rebuild all that depends on Mode and Function, and all that depends on values.
    void InputRefresh();
    void ViewRefresh();

    void OptionBoardsFill() { Boards.Refill(); }
    void ModeListFill() { Modes.FillModes(); }
    void FunctionListFill() { Modes.FillFunctions(); }
    void ModeFromList() { Modes.ModeFromList(); }
    void FunctionFromList() { Modes.FunctionFromList(); }
    void DisplayTypeFill() { Input.FillDisplayTypes(); }
    void CutoffRefresh() { Input.RefreshCutoff(); }
    void ColorCommands() { Class.PaintButtons(); }
    // Writes the meter's class, 0 Basic or 1 Extended, into a connected meter.
    void BasicExtend(int extended) { Class.WriteClass(extended); }

    // The item frames of a mode word; one level 0..3 of them with 1..3 items, which count 4 hides.
    void FrameUpdate(int modeWord) { Scaling.ShowFrames(modeWord); }
    void FraItemVisibility(int level, int count) { Scaling.ShowLevel(level, count); }
    void ScaleCoord() { Scaling.RefreshScaling(); }
    void DecPtFill() { Scaling.FillDecimalPoints(); }
    void DecPtAlign() { Scaling.AlignDecimalPoints(); }
    void MultiplierFill(Control& list) { Scaling.FillMultipliers(list); }
    void CurveListFill() { Scaling.FillCurves(); }
    void SqRtRefresh() { Scaling.RefreshSquareRoot(); }
    void Read0InRefresh() { Scaling.RefreshRead0In(); }
    void BatchFill() { Scaling.FillBatch(); }
    void SlopeListFill(Control& list);

    void FilterUpdate() { Filter.Update(); }
    void SrcUpdate() { counter::SrcUpdate(Program.Derived); }
    // Which fields of the communication page make sense under protocol 0..3.
    void MBRules(int protocol);
    void SetFrameActive(Control& frame, Control& control, bool active) {
        Form::SetFrameActive(frame, control, active);
    }

    // --- For the pages ---

    void Offer(int tab, bool offered);
    // Scaling and filter pages: none on a remote display, no filter page where nothing is filtered.
    void OfferByDisplayType();
    void CameTo(int tab);
    void Focus(Control& control);

    // While one lives, handlers of lists and boxes are dead, or live; then they are as before.
    class Handlers {
      public:
        Handlers(SetupView& view, int live) : on_(view.Program.Views.SetupRefreshOn), before_(on_) {
            on_ = live;
        }
        ~Handlers() { on_ = before_; }
        Handlers(const Handlers&) = delete;
        Handlers& operator=(const Handlers&) = delete;

      private:
        int& on_;
        int before_;
    };
    struct Quiet : Handlers {
        explicit Quiet(SetupView& view) : Handlers(view, 0) {}
    };
    struct Live : Handlers {
        explicit Live(SetupView& view) : Handlers(view, 1) {}
    };

  private:
    void BuildAnew();
    void TakeIdentity();
    void FillLists();
    void ShowSelections();
    void SetHandlers(int live);

    // From the beginning of a build to its end, handlers stay dead whatever the operations within it do.
    bool opening_ = false;
};

}  // namespace counter

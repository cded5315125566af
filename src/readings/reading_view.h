// ReadingView: what the views of the reading stream share - coming and going, the stream, Print and End.
//
// A view opens with Load and Activate and ends with Unload; it lives on and can be opened again. While it is
// up, events run during each of its waits, so any button may be pressed, and the view may be unloaded, before
// the press that waits has come to its end; what was replaced in that time does nothing more.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/form.h"
#include "controls/page_builder.h"
#include "link/reading_stream.h"
#include "platform/printer.h"
#include "readings/reading_keeper.h"
#include "readings/reading_statistics.h"
#include "session/session.h"

namespace counter {

class ReadingView {
  public:
    virtual ~ReadingView() = default;

    Session& Program;
    // All controls, and all that a user can do to them.
    Form Controls;
    ReadingStream Stream;

    // Hooks into what shows the view; each may be empty.
    std::function<void()> Drawn;  // readings have been taken: table or chart may show more, controls don't
    std::function<void()> ShowMainMenu;  // hide this view, show the home view, which unloads this one
    std::function<void()> ExitProgram;   // after an End for which HoldExit has made the exit wait
    Printer* Paper = nullptr;
    ReadingKeeper* Keeper = nullptr;  // null: the button does nothing

    // Which value of a frame with several is looked at, 1..3; the user chooses it.
    int Item = 1;
    // Whether it counts readings into bars, which some may lie beyond.
    virtual bool HasBars() const { return false; }
    // What the readings of the run amount to, of all items: each that the view has taken, over pauses, until
    // a new run begins.
    ReadingStatistics Statistics;
    RunState State() const;
    // Of the reading in hand, or the last one; nothing where it shows no number for that item.
    std::optional<double> ItemValue(int item) const;

    // Before the view is shown: everything as new.
    void Load() { Unload(); }
    // The view has come to the front.
    virtual void Activate() = 0;
    // The view is gone, whatever it was doing: no arriving byte and no press reaches it any more. Sends
    // nothing, so a meter that was not stopped by End goes on sending.
    void Unload();
    // The program is told to exit. False: it may, now. True: End is under way and must still stop the meter;
    // ExitProgram is called after it.
    bool HoldExit();

  protected:
    ReadingView(Session& session, std::unique_ptr<FrameCutter> cutter);

    // A button acts while the view is up and End was not pressed.
    void OnPress(Control& button, std::function<void()> action);
    bool Acts() const { return up_ && !ending_; }
    void ComeUp();

    // A run begins, replacing the one before: the meter is told to send, 300 ms pass, and unless Holds says
    // otherwise of the number that comes back, the caller attaches the stream.
    int StartRun();
    // Whether run `number` is still the one. Where the view has gone meanwhile, the meter is told to stop.
    bool Holds(int number);
    // A paused run goes on.
    void ResumeRun();
    // Input is thrown away from now on.
    void StopRun();
    // The run is over though the view isn't, as a sweep whose time is over.
    virtual bool IsFull() const { return false; }

    // On the status label, in red. An empty text hides it, unless the meter did not answer when the stream
    // was prepared for: that stands until the first reading.
    void TellStatus(const std::string& text);
    void PressPrint();
    void PressEnd();

    // What End sends, the stream being paused.
    virtual void SendEnd();
    // The view's own part of Unload.
    virtual void Reset() = 0;
    // The user looks at another item.
    virtual void ItemChosen() {}
    virtual void TakeReading(const std::string& text, bool onlySizes) = 0;

    PageBuilder Build;

  public:
    Control& lblFigures = Build.Add(ControlKind::Picture, nullptr, "lblFigures");
    // Can be used where frames have several values.
    Control& cboItem = Build.Add(ControlKind::List, nullptr, "cboItem", "Item");
    // Every reading is kept from a press until the next, or the end of the view.
    Control& cmdRecord = Build.Add(ControlKind::Button, nullptr, "cmdRecord", "Record");

  protected:
    Control* StatusLine = nullptr;  // where TellStatus shows

  private:
    void Take(const Frame& frame);
    void OfferItems(int count);
    void ChooseItem();
    void PressRecord();
    void EndRecord();
    void TakeFirst();
    std::string StandingStatus() const;
    void LetEventsRun();
    void LeaveByEnd();

    bool up_ = false;
    bool ending_ = false;
    bool exitWanted_ = false;
    bool recording_ = false;
    bool answered_ = false;           // a reading has come since the view came up
    std::vector<std::string> items_;  // of the reading in hand
    int run_ = 0;
    int life_ = 0;  // another one after each Unload
};

}  // namespace counter

// What the home view shows, whatever shows it: a window, or the last lines of a terminal.
#pragma once

#include <functional>
#include <string>

#include "controls/colors.h"
#include "platform/status.h"

namespace counter {

struct HomeState {
    std::string StatusText;  // the progress line
    std::string StatusNote;  // what else is to be known, after the text of the line; goes with it
    Color StatusColor = ColorWhite;
    bool StatusVisible = false;
    int Transfers = 0;                   // under way, one in a wait of the other
    int TransfersBegun = 0;              // since the program began
    int CancelledUpTo = 0;               // those up to this number stop at their next wait
    std::function<bool()> CancelWanted;  // asked as well; may be empty
    int ProgressPercent = 0;             // 0..100
    bool ProgressVisible = false;
    bool Hourglass = false;
    std::string CurrentFileName;
    Status Backup;           // how the last good Get's copy was kept
    std::string SetupDoubt;  // why the setup in memory may not be a whole one, a sentence; empty: it is

    // Menu entries that are enabled by what was loaded.
    bool ViewEnabled = false;
    bool PutEnabled = false;
    bool CommandsEnabled = false;
    bool CalibrationEnabled = false;

    std::function<void()> Changed;  // tells who shows it; may be empty
    std::function<void()>
        Replaced;  // another setup is in memory though the home view may not be on show; may be empty

    void ShowStatus(const std::string& text, Color color, const std::string& note = {});
    // One more thing to be known, behind the text that is on the line.
    void AddNote(const std::string& note);
    // The status line: text, and the note in brackets after it.
    std::string StatusLine() const;
    // The progress bar goes with the line.
    void HideStatus();
    void ProgressTo(int percent);
    void ShowProgress(bool visible);
    void ShowHourglass(bool shown);
    // Those that are under way; what begins later goes its way.
    void CancelTransfers() { CancelledUpTo = TransfersBegun; }
};

// While it lives a transfer is under way. The progress bar goes with the last, however that ends.
class TransferScope {
  public:
    explicit TransferScope(HomeState& home) : home_(home), number_(++home.TransfersBegun) {
        ++home_.Transfers;
    }
    ~TransferScope() {
        if (--home_.Transfers == 0) home_.ShowProgress(false);
    }
    TransferScope(const TransferScope&) = delete;
    TransferScope& operator=(const TransferScope&) = delete;

    // The user has called it off.
    bool Cancelled() const {
        return number_ <= home_.CancelledUpTo || (home_.CancelWanted && home_.CancelWanted());
    }

  private:
    HomeState& home_;
    const int number_;
};

}  // namespace counter

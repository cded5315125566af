// The option boards that the meter holds: four lists on the first page, and the pages that follow them.
#pragma once

#include "setup_view/page.h"
#include "setup_view/tabs.h"

namespace counter {

struct OptionBoards : Page {
    explicit OptionBoards(SetupView& view) : Page(view, kInputTab) {}

    // clang-format off
    Framed InOpt  = Build.Wrap(ControlKind::List, nullptr, "cboInOpt",  "Input Option");
    Framed RlyOpt = Build.Wrap(ControlKind::List, nullptr, "cboRlyOpt", "Relay Option");
    Framed ComOpt = Build.Wrap(ControlKind::List, nullptr, "cboComOpt", "Comm Option");
    Framed AnaOpt = Build.Wrap(ControlKind::List, nullptr, "cboAnaOpt", "Analog Option");
    // clang-format on

    void Wire();
    // All four lists and what follows them. An analog board that the connected meter can't drive ends the
    // process.
    void OptionBoardsFill();

  private:
    void FillInput();
    void FillRelays();
    void FillComm();
    void FillAnalog();
    void FollowRelays();
    void FollowComm();
    void FollowAnalog();
    void RefuseIncompatibleBoard(int storedBoard);
    bool AnalogBoardCanBeRead() const;
    void PickRelays(Control& list);
    void PickComm(Control& list);
    void PickAnalog(Control& list);
};

}  // namespace counter

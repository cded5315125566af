// Mode and Function: the two lists, the meter's class, and the chain that ties them to the input board.
//
// A pick in one list makes the pair legal, fills the next list and selects its entry, whose handler goes on
// from there; the last one rebuilds the view:
//
//   cboInOpt, optBasic, optExtended  ->  cboMode  ->  cboFunction  ->  InputRefresh
#pragma once

#include <array>

#include "setup_view/page.h"
#include "setup_view/tabs.h"

namespace counter {

struct ModeLists : Page {
    explicit ModeLists(SetupView& view) : Page(view, kInputTab) {}

    // clang-format off
    Control& fraInput    = Build.Add(ControlKind::Frame, nullptr, "fraInput", "Input");
    Framed   Mode        = Build.Wrap(ControlKind::List, &fraInput, "cboMode", "Mode");
    Framed   Function    = Build.Wrap(ControlKind::List, &fraInput, "cboFunction", "Function");
    Control& optBasic    = Build.Add(ControlKind::Option, nullptr, "optBasic", "Basic");
    Control& optExtended = Build.Add(ControlKind::Option, nullptr, "optExtended", "Extended");
    // clang-format on

    void Wire();
    void PickInputBoard(int inputOption);
    void ModeListFill();
    void FunctionListFill();
    void ModeFromList();
    void FunctionFromList();
    // The option of the meter's class.
    void ShowClass();
    void Normalise();

  private:
    void PickMode();
    void PickFunction();
    void PickBasic();
    void PickExtended();
    void RebuildWithout(const Control& list);
    int LastFunction() const;
};

}  // namespace counter

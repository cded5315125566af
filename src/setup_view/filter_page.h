// The filter page.
#pragma once

#include "setup_view/page.h"
#include "setup_view/tabs.h"

namespace counter {

struct FilterPage : Page {
    explicit FilterPage(SetupView& view) : Page(view, kFilterTab) {}

    // clang-format off
    Control& fraFilter = Build.Add(ControlKind::Frame, nullptr, "fraFilter", "Filter");
    Framed   TimConst  = Build.Wrap(ControlKind::List, &fraFilter, "cboTimConst", "Time Constant");
    Framed   Thresh    = Build.Wrap(ControlKind::List, &fraFilter, "cboThresh", "Threshold");
    Framed   PeakVal   = Build.Wrap(ControlKind::List, &fraFilter, "cboPeakVal", "Peak/Valley Filter");
    Framed   FType     = Build.Wrap(ControlKind::List, &fraFilter, "cboFType", "Type");
    // clang-format on

    void Wire();
    // Whether the Function filters an item, and which.
    void FilterUpdate();
    // Leaves the lists without selection.
    void Refill();
    void ShowSelections();
    // Coming to the page shows what is stored, which a refresh has left without selection.
    void Come();

  private:
    std::array<Binding, 4> Bound() {
        return {{{TimConst.Inner, Field::FilterTimeConstant},
                 {Thresh.Inner, Field::FilterThreshold},
                 {PeakVal.Inner, Field::PeakValleyFilter},
                 {FType.Inner, Field::FilterType}}};
    }
};

}  // namespace counter

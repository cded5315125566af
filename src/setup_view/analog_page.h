// The analog outputs page: one output, or two with the dual board.
#pragma once

#include "setup_view/page.h"
#include "setup_view/tabs.h"

namespace counter {

struct AnalogPage : Page {
    explicit AnalogPage(SetupView& view) : Page(view, kAnalogTab) {}

    // clang-format off
    Control& fraAnaOut  = Build.Add(ControlKind::Frame, nullptr, "fraAnaOut", "Analog Output");
    Framed   Source     = Build.Wrap(ControlKind::List,  &fraAnaOut, "cboSource", "Source");
    Framed   AnaLo      = Build.Wrap(ControlKind::Value, &fraAnaOut, "txtAnaLo",  "Lo Range Reading");
    Framed   Range      = Build.Wrap(ControlKind::List,  &fraAnaOut, "cboRange",  "Range");
    Framed   AnaHi      = Build.Wrap(ControlKind::Value, &fraAnaOut, "txtAnaHi",  "Hi Range Reading");

    Control& fraAnaOut2 = Build.Add(ControlKind::Frame, nullptr, "fraAnaOut2", "Analog Output 2");
    Framed   Source2    = Build.Wrap(ControlKind::List,  &fraAnaOut2, "cboSource2", "Source 2");
    Framed   AnaLo2     = Build.Wrap(ControlKind::Value, &fraAnaOut2, "txtAnaLo2",  "Lo Range Reading 2");
    Framed   Range2     = Build.Wrap(ControlKind::List,  &fraAnaOut2, "cboRange2",  "Range 2");
    Framed   AnaHi2     = Build.Wrap(ControlKind::Value, &fraAnaOut2, "txtAnaHi2",  "Hi Range Reading 2");
    // clang-format on

    void Wire();
    // Frames, captions and range lists follow the board in AnalogOption.
    void FollowBoard();
    // Sources and ranges; sources that aren't offered are repaired in the image.
    void RefreshSourcesAndRanges();
    void RefreshReadings();

  private:
    bool DualBoard() const;
    void ShowRanges();
};

}  // namespace counter

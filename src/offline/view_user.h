// ViewUser: who acts on a Setup view that no screen shows, with its digit entry.
#pragma once

#include <functional>
#include <string>

#include "digit_entry/digit_entry.h"
#include "setup_view/setup_view.h"

namespace counter {

class ViewUser {
  public:
    // Takes the view's digit entry, and acts on any page that is offered.
    explicit ViewUser(SetupView& view);
    ViewUser(const ViewUser&) = delete;
    ViewUser& operator=(const ViewUser&) = delete;

    SetupView& View;
    DigitEntry Entry;

    // What controls are called in the lines below; "txtSetpt[1]", unless somebody tells otherwise.
    std::function<std::string(const Control&)> NameOf = [](const Control& control) {
        return control.FullName();
    };

    // "txtCal is disabled"; empty for none.
    std::string RefusalLine(const Control& control, Refusal refusal) const;
    // Opens digit entry on a value. Returns why not; empty where it is open.
    std::string OpenEntry(Control& value);
    // Ends digit entry by OK or by Cancel. False for an OK that was refused, as for a byte of 256 or more:
    // then it is cancelled.
    bool CloseEntry(bool ok);
    // "cboDuplex has no entry 'Full'; entries are #0 'Full Duplex' #1 'Half Duplex'", with what was asked for
    // as `wanted`.
    std::string NoEntryLine(const Control& list, const std::string& wanted) const;

  private:
    bool opened_ = false;
};

}  // namespace counter

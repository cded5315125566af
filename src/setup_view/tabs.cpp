// Which tabs of the Setup view are offered, and why the others, and single controls, can't be reached.
#include "setup_view/tabs.h"

#include "meter/meter_words.h"
#include "meter/mode_tables.h"
#include "setup_view/setup_view.h"
#include "setup_view/why_disabled.h"

namespace counter {

void SetupView::Offer(int tab, bool offered) {
    Buttons.tabSetup.Offered[static_cast<std::size_t>(tab)] = offered;
}

void SetupView::OfferByDisplayType() {
    bool ownDisplay = !IsRemoteDisplay(Program.Derived.DisplayType);
    Offer(kScalingTab, ownDisplay);
    Offer(kFilterTab, ownDisplay && FilterItemOfWord(Program.Derived.ModeWord) > 0);
}

std::string SetupView::WhyRefused(Refusal refusal, const Control& control) const {
    const std::string why(RefusalText(refusal));
    std::string_view reason;
    if (refusal == Refusal::TabNotOffered) reason = WhyNotOffered(control.Tab);
    if (refusal == Refusal::Disabled) reason = WhyDisabled(control.Name);
    return reason.empty() ? why : why + ". " + std::string(reason);
}

std::string_view SetupView::WhyNotOffered(int tab) const {
    if (Buttons.tabSetup.Offered[static_cast<std::size_t>(tab)]) return {};
    switch (tab) {
        case kScalingTab:
            return "A remote display has no scaling of its own.";
        case kFilterTab:
            return IsRemoteDisplay(Program.Derived.DisplayType) ? "A remote display has no filter of its own."
                                                                : "This Mode and Function filter no item.";
        case kAlarmsTab:
            return "There is no relay board.";
        case kCommunicationTab:
            return "There is no communication board.";
        case kAnalogTab:
            return "There is no analog output board.";
        default:
            return "A transmitter has no panel to lock.";
    }
}

}  // namespace counter

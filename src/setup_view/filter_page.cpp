#include "setup_view/filter_page.h"

#include "meter/mode_tables.h"
#include "setup_view/setup_view.h"

namespace counter {

void FilterPage::Wire() {
    Bind(Bound());
}

void FilterPage::FilterUpdate() {
    int item = FilterItemOfWord(Values().ModeWord);
    if (item > 0) fraFilter.Caption = "Filter  Item " + std::to_string(item);
    View.OfferByDisplayType();
    Form::SetFrameActive(View.Input.DVal.Frame, View.Input.DVal.Inner, item > 0);
}

void FilterPage::Refill() {
    Fill(Bound());
}

void FilterPage::ShowSelections() {
    Show(Bound());
}

void FilterPage::Come() {
    SetupView::Quiet quiet(View);
    View.Input.RefillActions();
    View.Input.ShowSelections();
    Refill();
    ShowSelections();
}

}  // namespace counter

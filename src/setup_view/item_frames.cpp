// The frames of the items: which layout is on show, with how many items; and the batch lists, which are in
// the first item of layout 3.
#include <array>

#include "meter/meter_words.h"
#include "meter/mode_tables.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

constexpr int kBatchLevel = 3;
constexpr int kHide = 4;  // a count of items that no layout has

// Functions that have a second item in layout 0, and Modes that have one in each Function.
bool HasSecondItem(const DerivedValues& values) {
    const int function = values.FunctionIndex;
    return function == Function::RateAndTotal || function == Function::ARateBTotal ||
           values.ModeIndex == Mode::Stopwatch ||
           (function == Function::AandB && values.ModeIndex != Mode::Quadrature);
}

std::array<Binding, 4> Bound(const ScalingPage& page) {
    return {{{page.BatCount.Inner, Field::BatchCount},
             {page.BatItm2.Inner, Field::BatchItem2},
             {page.BatStart.Inner, Field::BatchStart},
             {page.BatReset.Inner, Field::BatchTotalReset}}};
}

}  // namespace

void ScalingPage::HideAll() {
    for (int level = 0; level < kLevels; ++level) FraItemVisibility(level, kHide);
    previousLevel_ = kNoLevel;
}

void ScalingPage::FrameUpdate(int modeWord) {
    DerivedValues& values = Values();
    values.ModeWord = modeWord;
    ItemLevelUpdate(values);
    if (previousLevel_ != kNoLevel) FraItemVisibility(previousLevel_, kHide);
    previousLevel_ = values.ItemLevel;
    FraItemVisibility(values.ItemLevel, values.ItemCount);
    if (values.ItemLevel == 0 && !HasSecondItem(values)) fraItem2[0].Visible = false;
}

void ScalingPage::FraItemVisibility(int level, int count) {
    bool show = count != kHide;
    bool second = show && count > 1;
    fraItem1[level].Visible = show;
    if (show) lblItem1[level].Caption = ItemName(1);
    if (!show || second) fraItem2[level].Visible = second;
    if (second) {
        bool batches = level == kBatchLevel && BatItm2.Inner.ListIndex == 1;
        Resoln.Inner[kBatchLevel].Visible = !batches;
        // The next name is right for V-F batches and wrong for a rate batch, whose own handler corrects it:
        // required.
        lblItem2[level].Caption = ItemName(2, batches ? 1 : 0);
    }
    if (level < 2) return;
    fraItem3[level].Visible = show;
    if (show) lblItem3[level].Caption = ItemName(3);
}

// The name of item 1 to 3; `more` takes one further down the names, which no batch's is the last of.
std::string ScalingPage::ItemName(int item, int more) const {
    const auto& row = ItemRows[static_cast<std::size_t>(Values().ItemRow)];
    return std::string(ItemNames[static_cast<std::size_t>(row[static_cast<std::size_t>(item) - 1] + more)]);
}

void ScalingPage::WireBatch() {
    Bind(Bound(*this));
    Controls().On(BatItm2.Inner, [this](Control& list) { PickBatchItem2(list); });
}

// The frames were shown before their list had a selection; a count of batches makes up for that.
void ScalingPage::BatchFill() {
    Fill(Bound(*this));
    Show(Bound(*this));
    if (BatItm2.Inner.ListIndex == 1) ShowBatchItem2();
}

// A V-F batch has no choice of its end; the stored bits stay.
void ScalingPage::RefreshBatchCount() {
    if (Level() == kBatchLevel)
        Form::SetFrameActive(BatCount.Frame, BatCount.Inner, Values().InputOption == InputBoard::DualSigCond);
}

void ScalingPage::PickBatchItem2(Control& list) {
    PutCode(Image(), Field::BatchItem2, list.ListIndex);
    ShowBatchItem2();
}

// A count of batches has no Resolution.
void ScalingPage::ShowBatchItem2() {
    const bool batches = BatItm2.Inner.ListIndex == 1;
    lblItem2[kBatchLevel].Caption = batches ? " # Batches" : " Grand Total";
    Resoln.Inner[kBatchLevel].Visible = !batches;
}

}  // namespace counter

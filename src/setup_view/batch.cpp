// The batch lists, which stand in the first item of layout 3.
#include <array>

#include "setup_view/setup_view.h"

namespace counter {

namespace {

std::array<Binding, 4> Bound(const ScalingPage& page) {
    return {{{page.BatCount.Inner, Field::BatchCount},
             {page.BatItm2.Inner, Field::BatchItem2},
             {page.BatStart.Inner, Field::BatchStart},
             {page.BatReset.Inner, Field::BatchTotalReset}}};
}

}  // namespace

void ScalingPage::WireBatch() {
    Bind(Bound(*this));
    Controls().On(BatItm2.Inner, [this](Control& list) { PickBatchItem2(list); });
}

void ScalingPage::FillBatch() {
    Fill(Bound(*this));
    Show(Bound(*this));
}

// A V-F batch has no choice of its end; the stored bits stay.
void ScalingPage::RefreshBatchCount() {
    if (Level() == 3) View.SetFrameActive(BatCount.Frame, BatCount.Inner, Values().InputOption == 1);
}

// A count of batches has no Resolution.
void ScalingPage::PickBatchItem2(Control& list) {
    Put(Field::BatchItem2, list.ListIndex);
    lblItem2[3].Caption = list.ListIndex == 1 ? " # Batches" : " Grand Total";
    Resoln.Inner[3].Visible = list.ListIndex == 0;
}

}  // namespace counter

// The frames of the items: which layout is on show, with how many items.
#include "meter/mode_tables.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

constexpr int kHide = 4;  // a count of items that no layout has

}  // namespace

void ScalingPage::HideAll() {
    for (int level = 0; level < kLevels; ++level) ShowLevel(level, kHide);
    previousLevel_ = kNoLevel;
}

void ScalingPage::ShowFrames(int modeWord) {
    DerivedValues& values = Values();
    values.ModeWord = modeWord;
    ItemLevelUpdate(values);
    if (previousLevel_ != kNoLevel) ShowLevel(previousLevel_, kHide);
    previousLevel_ = values.ItemLevel;
    ShowLevel(values.ItemLevel, values.ItemCount);
    if (values.ItemLevel != 0) return;
    int function = values.FunctionIndex;
    bool second =
        function == 3 || function == 5 || values.ModeIndex == 5 || (function == 0 && values.ModeIndex != 12);
    if (!second) fraItem2[0].Visible = false;
}

void ScalingPage::ShowLevel(int level, int count) {
    bool show = count != kHide;
    bool second = show && count > 1;
    fraItem1[level].Visible = show;
    if (show) lblItem1[level].Caption = ItemName(1);
    if (!show || second) fraItem2[level].Visible = second;
    if (second) {
        bool batches = BatItm2.Inner.ListIndex == 1;
        Resoln.Inner[3].Visible = !batches;
        // The next name is right for V-F batches and wrong for a rate batch, whose own handler corrects it:
        // required.
        lblItem2[level].Caption = ItemName(2, batches ? 1 : 0);
    }
    if (level < 2) return;
    fraItem3[level].Visible = show;
    if (show) lblItem3[level].Caption = ItemName(3);
}

// The name of item 1 to 3; `more` takes one further down the names. Behind the last there is none.
std::string ScalingPage::ItemName(int item, int more) const {
    const auto& row = ItemRows[static_cast<std::size_t>(Values().ItemRow)];
    const int index = row[static_cast<std::size_t>(item) - 1] + more;
    return index < std::ssize(ItemNames) ? std::string(ItemNames[static_cast<std::size_t>(index)]) : "";
}

}  // namespace counter

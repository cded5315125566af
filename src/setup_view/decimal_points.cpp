// The two decimal points, and the boxes that show readings in them.
#include <algorithm>

#include "meter/field_lists.h"
#include "meter/meter_words.h"
#include "meter/text.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

// Moves the point of a box so that code d leaves d - 1 digits after it. A text that has it there already
// stays as it is, blanks included.
void AlignPoint(std::string& text, int code) {
    auto behind = static_cast<std::size_t>(std::clamp(code, 1, 6));  // the point and the digits after it
    std::string digits(Trimmed(text));
    std::size_t point = digits.find('.');
    if (point != std::string::npos) {
        if (digits.size() - point == behind) return;
        digits.erase(point, 1);
    }
    digits.insert(digits.size() - std::min(digits.size(), behind - 1), ".");
    text = digits;
}

}  // namespace

void ScalingPage::WireDecimalPoints() {
    for (int level = 0; level < kLevels; ++level) {
        Bind({DecPt1.Inner[level], Field::DecimalPoint1},
             [this](Control& list) { PickDecimalPoint1(list.ListIndex); });
        Bind({DecPt2.Inner[level], Field::DecimalPoint2},
             [this](Control& list) { PickDecimalPoint2(list.ListIndex); });
    }
}

void ScalingPage::DecPtFill() {
    Form::Fill(DecPt1.Inner[Level()], lists::kDecPt1);
    Form::Fill(DecPt2.Inner[Level()], lists::kDecPt2);
    Values().DecPt1 = CodeOf(Image(), Field::DecimalPoint1);
    Values().DecPt2 = CodeOf(Image(), Field::DecimalPoint2);
    Controls().SetIndex(DecPt1.Inner[Level()], Values().DecPt1 - 1);
    Controls().SetIndex(DecPt2.Inner[Level()], Values().DecPt2 - 1);
}

void ScalingPage::DecPtAlign() {
    SetupView::Quiet quiet(View);
    if (Values().DisplayType == DisplayType::Clock) return;
    auto align = [this](ScalingGroup& group, int code) {
        for (FramedArray<4>* pair : {&group.Offset, &group.LoRd, &group.HiRd})
            AlignPoint(pair->Inner[Level()].Text, code);
    };
    align(Group1, Values().DecPt1);
    align(Group2, Group2DecPt(Values()));
}

void ScalingPage::PickDecimalPoint1(int index) {
    DerivedValues& values = Values();
    values.DecPt1 = index + 1;
    PutCode(Image(), Field::DecimalPoint1, values.DecPt1);
    ItemDecPtMap(values);
    DecPtAlign();
    if (values.PresetActive) View.Input.TimeOut.Inner.Text = TextOf(Field::Preset);
    if (values.CutoffActive) View.Input.Pulses.Inner.Text = TextOf(Field::CutoffValue);
}

void ScalingPage::PickDecimalPoint2(int index) {
    Values().DecPt2 = index + 1;
    PutCode(Image(), Field::DecimalPoint2, Values().DecPt2);
    ItemDecPtMap(Values());
    DecPtAlign();
}

}  // namespace counter

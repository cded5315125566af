// Opening and leaving the dialog: a field's text into the boxes, the boxes into the image.
#include "digit_entry/digit_entry.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "controls/colors.h"
#include "digit_entry/digit_range.h"
#include "digit_entry/digit_text.h"
#include "link/waits.h"
#include "meter/field_table.h"
#include "meter/meter_words.h"
#include "meter/text.h"
#include "meter/value_codec.h"

namespace counter {

namespace {

// Between hiding the dialog and the refresh after it, so that the screen is drawn first.
constexpr double kAfterDialogMs = 10;

constexpr int kMostByte = 255;

Control* AddControl(Form& form, ControlKind kind, const char* name, int index, const char* caption = "") {
    Control control;
    control.Kind = kind;
    control.Name = name;
    control.Index = index;
    control.Caption = caption;
    return &form.Add(std::move(control));
}

int NumberOf(const std::string& digits) {
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

// Gate Time and Time Out are hundredths of a second, wherever the point of the Cutoff Value beside them is.
bool IsHundredths(const EntryState& state) {
    return state.FieldType == 0 &&
           (state.FieldPos == RowOf(Field::GateTime).Pos || state.FieldPos == RowOf(Field::TimeOut).Pos);
}

// As fields show a value: a blank, the sign, the digits.
std::string WithSeparateSign(const std::string& text) {
    if (text.starts_with('-')) return " " + text;
    return " +" + text.substr(std::min<std::size_t>(1, text.size()));
}

}  // namespace

DigitEntry::DigitEntry(const EntryWork& work) : work_(work) {
    for (int i = 0; i < kDigitBoxes; ++i) {
        Control* box = AddControl(Controls, ControlKind::Value, "txtDigit", i);
        boxes_[static_cast<std::size_t>(i)] = box;
        Controls.On(*box, [this, i](Control&) { FocusBox(i); });
    }
    for (int i = 0; i < kMarks; ++i) {
        marks_[static_cast<std::size_t>(i)] = AddControl(Controls, ControlKind::Label, "lblDP", i);
    }
    Controls.On(*AddControl(Controls, ControlKind::Button, "cmdOK", kSingle, "OK"),
                [this](Control&) { Ok(); });
    Controls.On(*AddControl(Controls, ControlKind::Button, "cmdCancel", kSingle, "Cancel"),
                [this](Control&) { Cancel(); });
}

DigitLimits DigitEntry::Limits() const {
    const EntryState& state = work_.State;
    return {state.FieldType, state.FieldPos, work_.Derived.TimeEntry,
            state.FieldType == kFreePointType && work_.Derived.InputOption != InputBoard::VfConverter};
}

void DigitEntry::OpenDigitEntry() {
    work_.State.EntryReturn = 1;
    work_.State.EntryTarget->BackColor = ColorLightGreen;
    stored_.reset();
    shown_ = true;
    LoadDigits();
    title_ = TitleOfField();
}

std::string DigitEntry::TitleOfField() const {
    const EntryState& state = work_.State;
    std::string field = state.EntryTarget->Caption;
    for (const Control* around = state.EntryTarget; field.empty() && around; around = around->Container)
        field = around->Caption;
    std::string title = kTitle;
    if (!field.empty()) title += " - " + std::string(Trimmed(field));
    const std::string range = RangeOfBoxes(Limits(), state.EntryDecimal);
    return range.empty() ? title : title + ", " + range + UnitBehind(state.FieldType, state.FieldPos);
}

void DigitEntry::LoadDigits() {
    EntryState& state = work_.State;
    state.EntryAtEnd = 0;
    const DigitLimits limits = Limits();
    const BareText bare = BareTextOf(state.FieldText, !limits.FreePoint);
    const int first = FirstBox(state.FieldType);
    state.EntryDecimal = OpeningDecimal(bare.PointPlace, bare.PointCode);
    std::string text = bare.Text;
    if (state.FieldType == kByteType) {
        text.insert(0, "00");
        text.erase(0, text.size() - std::min<std::size_t>(3, text.size()));
    }
    if (state.FieldType == 5 || state.FieldType == 6) text.clear();  // no field has these; boxes stay empty
    DigitTexts spread = SpreadText(text, limits, state.EntryDecimal);
    for (int i = 0; i < kDigitBoxes; ++i) {
        Box(i).Enabled = i >= first;
        Box(i).Text = std::move(spread[static_cast<std::size_t>(i)]);
    }
    MoveTo(first);
    LightMark();
}

// The place of the point that the boxes show, 0 where there is none. A code that the image holds is taken as
// it is, 0 and 7 included.
int DigitEntry::OpeningDecimal(int pointPlace, int pointCode) const {
    const DerivedValues& derived = work_.Derived;
    switch (work_.State.FieldType) {
        case 0:
        case 1:
            if (IsHundredths(work_.State)) return 3;
            if (derived.CutoffActive) return derived.DecPt1;
            return work_.State.FieldType == 0 && work_.State.FieldPos == RowOf(Field::PulsesPerRev).Pos ? 1
                                                                                                        : 3;
        case 2:
            return derived.PresetActive ? derived.DecPt1 : pointCode;
        case 3:
            return 6;
        case kFreePointType:
            if (derived.InputOption == InputBoard::VfConverter) return VfPointCode(derived.ModeIndex);
            return pointPlace == 0 ? 1 : 9 - pointPlace;
        case kByteType:
            return 1;
        default:
            return 0;
    }
}

void DigitEntry::LightMark() {
    for (Control* mark : marks_) mark->BackColor = ColorDarkGray;
    const int decimal = work_.State.EntryDecimal;
    if (work_.State.FieldType == kFreePointType || decimal < 1 || decimal > kMarks) return;
    marks_[static_cast<std::size_t>(decimal) - 1]->BackColor = ColorDarkRed;
}

bool DigitEntry::MarkLit(int mark) const {
    return marks_[static_cast<std::size_t>(mark)]->BackColor == ColorDarkRed;
}

// False where a byte is refused; nothing is stored then. What has been stored and not touched since is not
// stored again: behind Enter a clock value counts as a plain number, and 01:02:03 would become 02:50:03.
bool DigitEntry::StoreDigits() {
    const DigitTexts texts = Texts();
    if (stored_ == texts) return true;
    if (!StoreTexts()) return false;
    stored_ = texts;
    return true;
}

DigitTexts DigitEntry::Texts() const {
    DigitTexts texts;
    std::transform(boxes_.begin(), boxes_.end(), texts.begin(), [](const Control* box) { return box->Text; });
    return texts;
}

bool DigitEntry::StoreTexts() {
    EntryState& state = work_.State;
    state.FieldText.clear();
    for (int i = FirstBox(state.FieldType); i <= kLastBox; ++i) state.FieldText += Box(i).Text;
    state.FieldText = work_.Derived.TimeEntry > 0 ? WithoutBlanksAndPoints(state.FieldText)
                                                  : FirstPointOnly(state.FieldText);
    if (state.FieldType == kByteType) {
        if (!StoreByte()) return false;
    } else {
        const DerivedValues& derived = work_.Derived;
        ValueEncode(work_.Image, {derived.InputOption, derived.ModeIndex, derived.TimeEntry}, state.FieldType,
                    state.FieldPos, state.FieldText);
        if (state.FieldType != 0) state.FieldText = WithSeparateSign(state.FieldText);
    }
    state.EntryTarget->Text = state.FieldText;
    state.EntryTarget->BackColor = ColorWhite;
    return true;
}

bool DigitEntry::StoreByte() {
    EntryState& state = work_.State;
    const int number = NumberOf(state.FieldText);
    if (number > kMostByte) {
        Refuse(FirstBox(kByteType));
        MoveTo(FirstBox(kByteType));
        return false;
    }
    state.EntryByte = number;
    state.FieldText = WithoutLeadingZeros(state.FieldText);
    BytePut(work_.Image, state.FieldPos, number);
    return true;
}

void DigitEntry::Ok() {
    if (!StoreDigits()) return;
    Close();
    work_.Derived.TimeEntry = 0;
    Controls.TellChanged();  // the dialog is hidden before the pause
    const bool longer = ShowHourglass && ExceedsABlink(LinkDelayMs(work_.Line, kAfterDialogMs));
    if (longer) ShowHourglass(true);
    LinkDelay(work_.Line, kAfterDialogMs);
    if (longer) ShowHourglass(false);
    work_.State.SetupRefreshOn = true;
}

// TimeEntry stays, as required; the refresh that follows clears it.
void DigitEntry::Cancel() {
    work_.State.EntryTarget->BackColor = ColorWhite;
    Close();
}

void DigitEntry::HelpKey() {
    Cancel();
    work_.State.EntryReturn = 0;
    if (OpenHelp) OpenHelp(work_.State.EntryTarget->HelpNumber);
}

void DigitEntry::Close() {
    work_.State.EntryReturn = 1;
    shown_ = false;
}

}  // namespace counter

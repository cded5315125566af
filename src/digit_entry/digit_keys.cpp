// Keys and arrows in the boxes.
#include <utility>

#include "digit_entry/digit_entry.h"
#include "digit_entry/digit_text.h"

namespace counter {

namespace {

constexpr char kEnter = 13;
constexpr int kScaleType = 3;

}  // namespace

void DigitEntry::Key(char character) {
    if (character == kEnter) {
        // Required: Enter stores and leaves the dialog up, where the rest of a clock entry is a plain number.
        StoreDigits();
        work_.State.EntryReturn = 0;
        work_.Derived.TimeEntry = 0;
        return;
    }
    const DigitLimits limits = Limits();
    if (limits.FreePoint) work_.State.EntryDecimal = 0;
    if (character == '.') {
        if (limits.FreePoint && focus_ > 0) SetFreePoint(focus_);
        return;
    }
    if (!BoxAdmits(limits, focus_, character)) {
        Refuse(focus_);
        return;
    }
    TakeCharacter(focus_, character);
}

void DigitEntry::FirstKey(char character) {
    const DigitLimits limits = Limits();
    const bool digit = character >= '0' && character <= '9';
    if (digit && BoxAdmits(limits, focus_, '+')) MoveTo(focus_ + 1);
    Key(character);
}

void DigitEntry::Refuse(int box) {
    ++beeps_;
    refusedBox_ = box;
}

// The character replaces what the box holds. A box with the point after it keeps it; as a key has no
// fixed point where the user moves it, such a box loses it.
void DigitEntry::TakeCharacter(int box, char character) {
    const int type = work_.State.FieldType;
    const int decimal = work_.State.EntryDecimal;
    const bool clock = work_.Derived.TimeEntry > 0;
    const bool atPoint = clock ? box == 2 || box == 4 : box == 7 - decimal;
    if (box == kLastBox && type == kFreePointType) work_.State.EntryAtEnd = 1;
    std::string text(1, character);
    if (atPoint && (clock || type != kByteType)) text += '.';
    WriteBox(box, std::move(text));
    if (box < kLastBox) {
        MoveTo(box + 1);
    } else {
        // A box that is written has the caret at its start; with a character that goes in by itself
        // the caret is after it.
        caret_ = atPoint || type == kScaleType ? 0 : 1;
    }
}

// The point goes after the digit of this box and vanishes from the others.
void DigitEntry::SetFreePoint(int box) {
    CutToDigits();
    WriteBox(box, Box(box).Text + ".");
    if (box == kLastBox && work_.State.EntryAtEnd == 1) caret_ = 1;
}

void DigitEntry::CutToDigits() {
    for (int i = 1; i <= kLastBox; ++i) {
        std::string& text = Box(i).Text;
        if (text.size() > 1) text.resize(1);
    }
}

void DigitEntry::WriteBox(int box, std::string text) {
    Box(box).Text = std::move(text);
    if (box == focus_) caret_ = 0;
}

void DigitEntry::MoveTo(int box) {
    focus_ = box;
    caret_ = 0;
}

void DigitEntry::LeftArrow() {
    if (focus_ <= FirstBox(work_.State.FieldType)) return;
    const bool stays = focus_ == kLastBox && work_.State.EntryAtEnd == 1;
    MoveTo(stays ? kLastBox : focus_ - 1);
    work_.State.EntryAtEnd = 0;
}

void DigitEntry::RightArrow() {
    if (focus_ < kLastBox) {
        work_.State.EntryAtEnd = 0;
        MoveTo(focus_ + 1);
        return;
    }
    work_.State.EntryAtEnd = 1;
    caret_ = 1;
}

void DigitEntry::FocusBox(int box) {
    if (box >= 0 && box <= kLastBox && Box(box).Enabled) MoveTo(box);
}

void DigitEntry::KeyOnOk(char character) {
    if (character != '.' || work_.State.FieldType != kFreePointType) return;
    CutToDigits();
    // Required: the digit in front of this point is a character of code 0, as the dialog remembers none.
    WriteBox(kLastBox, std::string("\0.", 2));
}

}  // namespace counter

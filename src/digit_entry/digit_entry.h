// DigitEntry: the dialog frmEntVal, in which every numeric value is typed.
//
// It imitates how a digit is set at the meter's front panel: seven boxes of one character, the place of the
// point as a lit mark between them. Each box admits only what the meter could show there. On leaving, the
// value goes straight into the image and back into the field that opened the dialog.
//
//   txtDigit   0    1    2    3    4    5    6      box 0 is the sign's place
//   lblDP         5    4    3    2    1    0        mark k is lit for EntryDecimal k + 1
//
// Enter stores and leaves the dialog up; OK stores what Enter has not, and closes; Cancel closes and takes
// nothing back.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "controls/entry_state.h"
#include "controls/form.h"
#include "digit_entry/digit_limits.h"
#include "digit_entry/digit_text.h"
#include "link/link.h"
#include "meter/derived_values.h"
#include "meter/setup_image.h"

namespace counter {

// What an entry works on. Of the derived values it takes board, Mode, DecPt1, PresetActive, CutoffActive and
// TimeEntry, and clears TimeEntry when it has stored.
struct EntryWork {
    EntryState& State;
    SetupImage& Image;
    DerivedValues& Derived;
    Link& Line;
};

class DigitEntry {
  public:
    static constexpr const char* kTitle = "Enter Decimal Value";
    static constexpr int kMarks = 6;

    explicit DigitEntry(const EntryWork& work);

    // Opens on the request in the state: EntryTarget (not null), FieldText, FieldType and FieldPos.
    void OpenDigitEntry();
    bool Shown() const { return shown_; }
    // "Enter Decimal Value - Gate Time, 0.00 to 199.99 seconds": the field by its caption, and what the boxes
    // admit. As it opened: it stays while digits are typed.
    const std::string& Title() const { return title_; }

    // The key that opened it: a digit goes into the first box behind the sign.
    void FirstKey(char character);
    // A character typed into the box that has the focus; 13 is Enter, which stores.
    void Key(char character);
    void LeftArrow();
    void RightArrow();
    // A click on a box brings the focus there; a box in front of the first one takes none.
    void FocusBox(int box);
    // A character typed while the OK button has the focus: "." sets a free point after box 6.
    void KeyOnOk(char character);
    // A byte of 256 or more beeps and keeps the dialog.
    void Ok();
    void Cancel();
    // F1: closes, stores nothing and asks for help on the field. Its view is then built again after the help.
    void HelpKey();
    // Closes without a trace, as when its view is opened again.
    void Unload() { shown_ = false; }

    // The pause behind OK is longer than a blink, and over; may be empty.
    std::function<void(bool shown)> ShowHourglass;
    // Shows the help of this number; may be empty.
    std::function<void(int helpNumber)> OpenHelp;

    // The controls, for what draws and drives them.
    Form Controls;
    int FocusedBox() const { return focus_; }
    // Characters of the focused box in front of the caret, 0 or 1.
    int Caret() const { return caret_; }
    // How often it has beeped since the program began, and the box that refused the key that time.
    int Beeps() const { return beeps_; }
    int RefusedBox() const { return refusedBox_; }

    // What the boxes admit, while it is open.
    DigitLimits Limits() const;
    std::string BoxText(int box) const { return Box(box).Text; }
    bool MarkLit(int mark) const;  // 0..5

  private:
    Control& Box(int box) const { return *boxes_[static_cast<std::size_t>(box)]; }
    void LoadDigits();
    int OpeningDecimal(int pointPlace, int pointCode) const;
    void LightMark();
    bool StoreDigits();
    bool StoreTexts();
    DigitTexts Texts() const;
    bool StoreByte();
    void Close();

    void TakeCharacter(int box, char character);
    void SetFreePoint(int box);
    void CutToDigits();
    void WriteBox(int box, std::string text);
    void MoveTo(int box);
    void Refuse(int box);
    std::string TitleOfField() const;

    EntryWork work_;
    std::array<Control*, kDigitBoxes> boxes_{};
    std::array<Control*, kMarks> marks_{};
    std::optional<DigitTexts> stored_;  // what the boxes held when they were stored last in this opening
    bool shown_ = false;
    int focus_ = 0;
    int caret_ = 0;
    int beeps_ = 0;
    int refusedBox_ = 0;
    std::string title_ = kTitle;
};

}  // namespace counter

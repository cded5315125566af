// Form: the controls of one view, and the one place where actions on them come in.
//
// Rules of the view change a control's properties as they like, but select entries, boxes and options
// through the form; users act through Select, Check, Click and ComeToTab, which refuse what a user could not
// reach now.
//
// A handler runs
//   - for a list whose entry is selected, by a rule or by a user, also one that is selected already,
//   - for a box whose value changes,
//     both only while handlers are live, as they are in a form that is told no flag;
//   - for an option, button, value, label or menu entry that a user clicks, always;
//   - for an entry whose text a user changes, always.
//
// A form knows which of its controls has the focus, where its view has rules about that: what comes to have
// it and what loses it may have handlers of their own, whoever moved it.
#pragma once

#include <deque>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "controls/control.h"

namespace counter {

// Why an action did not happen.
enum class Refusal {
    None,
    Hidden,         // it or something around it
    Disabled,       // it or something around it
    TabNotOffered,  // its page can't be come to
    OtherTab,       // another page is on show
    NoSuchAction,   // this kind of control has no such action
    NoSuchEntry,    // the list has no such entry, the box no such value
};

// In words, for whoever is told about the control: "is hidden".
std::string_view RefusalText(Refusal refusal);

class Form {
  public:
    using Handler = std::function<void(Control&)>;

    Form() = default;
    // Handlers of lists and boxes are live only while the flag is set. It outlives the form.
    explicit Form(const bool& live) : live_(&live) {}
    explicit Form(const bool&& live) = delete;
    Form(const Form&) = delete;  // its controls point into it
    Form& operator=(const Form&) = delete;

    // Controls keep their place in memory and come in the order in which they were added.
    Control& Add(Control control);
    void On(Control& control, Handler handler);
    // Enter pressed in an entry; the control comes to have the focus; it loses it.
    void OnEnter(Control& control, Handler handler);
    void OnGotFocus(Control& control, Handler handler);
    // The same, but not where a user only passes by with the Tab key.
    void OnPickedFocus(Control& control, Handler handler);
    void OnLostFocus(Control& control, Handler handler);
    // The strip that names the pages; without one all pages can be reached.
    void SetTabStrip(Control& strip) { strip_ = &strip; }

    // Null where there is none.
    Control* Find(std::string_view name, int index = kSingle);
    // The same by "txtSetpt[1]".
    Control* FindFull(std::string_view fullName);

    auto begin() { return controls_.begin(); }
    auto end() { return controls_.end(); }
    auto begin() const { return controls_.begin(); }
    auto end() const { return controls_.end(); }

    // For rules. An index that the list lacks leaves it without selection and runs nothing.
    void SetIndex(Control& list, int index);
    void SetCheck(Control& box, int value);
    // Sets or clears an option alone; a set one clears the others in its container. Runs nothing.
    void SetOption(Control& option, bool set);
    // Empties a list and fills it again; it is then without selection.
    static void Fill(Control& list, std::span<const std::string_view> entries);
    // Both are shown enabled or disabled, and the list's text black or gray.
    static void SetFrameActive(Control& frame, Control& control, bool active);
    // Moves the focus; one that has it already stays as it is and runs nothing.
    void SetFocus(Control& control);
    // Null: none, as when the view opens.
    Control* Focused() const { return focused_; }
    // Nothing has the focus any more; runs nothing.
    void DropFocus() { focused_ = nullptr; }

    // For users. Refusal::None: done.
    Refusal Select(Control& list, int index);
    Refusal Check(Control& box, int value);
    Refusal Click(Control& control);
    Refusal ComeToTab(int tab);
    // An entry's text is now this; a text that is the same runs nothing.
    Refusal Type(Control& entry, const std::string& text);
    // The Enter key in an entry.
    Refusal Enter(Control& entry);
    // A click brings the focus, or the Tab key.
    Refusal Focus(Control& control);
    Refusal FocusByTab(Control& control);
    // Whether a user could act on it now.
    Refusal Reach(const Control& control) const;

    // Users of a script may act on any page that is offered; at a screen only the page on show can be
    // reached.
    bool OnlyPageOnShow = true;

    // Told which control a user acts on, before its handler runs; may be empty.
    std::function<void(const Control&)> Touched;
    // What is around all that comes of one act of the user's, a rule's waits and acts within them included.
    // It does `act` once; may be empty.
    std::function<void(const Control&, const std::function<void()>& act)> Around;
    // Told when something may have to be drawn again; may be empty.
    std::function<void()> Changed;
    void TellChanged() const;
    // Told where a rule moved the focus; may be empty.
    std::function<void(const Control&)> FocusMoved;

  private:
    using Handlers = std::unordered_map<const Control*, Handler>;
    static void RunOf(const Handlers& handlers, Control& control);
    Refusal TakeFocus(Control& control, bool picked);
    void MoveFocus(Control& control, bool picked = true);
    void Run(Control& control);
    void RunLive(Control& control);
    Refusal Touch(Control& control, bool rightKind);
    void Act(const Control& control, const std::function<void()>& act);

    const bool* live_ = nullptr;  // null: always
    Control* strip_ = nullptr;
    std::deque<Control> controls_;
    Control* focused_ = nullptr;
    Handlers handlers_, enterHandlers_, gotFocusHandlers_, pickedHandlers_, lostFocusHandlers_;
};

}  // namespace counter

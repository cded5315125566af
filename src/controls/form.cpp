#include "controls/form.h"

#include <algorithm>
#include <utility>

namespace counter {

namespace {

bool HasPlace(const Control& list, int index) {
    return index >= 0 && index < static_cast<int>(list.Entries.size());
}

bool TakesClick(ControlKind kind) {
    return kind == ControlKind::Option || kind == ControlKind::Button || kind == ControlKind::Value ||
           kind == ControlKind::Label || kind == ControlKind::Menu;
}

bool TakesFocus(ControlKind kind) {
    return kind != ControlKind::Frame && kind != ControlKind::Label && kind != ControlKind::Picture &&
           kind != ControlKind::Menu && kind != ControlKind::Progress;
}

}  // namespace

std::string Control::FullName() const {
    return Index == kSingle ? Name : Name + "[" + std::to_string(Index) + "]";
}

std::string_view RefusalText(Refusal refusal) {
    switch (refusal) {
        case Refusal::None:
            return "can be reached";
        case Refusal::Hidden:
            return "is hidden";
        case Refusal::Disabled:
            return "is disabled";
        case Refusal::TabNotOffered:
            return "is on a tab that is not offered";
        case Refusal::OtherTab:
            return "is on a tab that is not on show";
        case Refusal::NoSuchAction:
            return "has no such action";
        case Refusal::NoSuchEntry:
            return "has no such entry";
    }
    return {};
}

Control& Form::Add(Control control) {
    return controls_.emplace_back(std::move(control));
}

void Form::On(Control& control, Handler handler) {
    handlers_[&control] = std::move(handler);
}

void Form::OnEnter(Control& control, Handler handler) {
    enterHandlers_[&control] = std::move(handler);
}

void Form::OnGotFocus(Control& control, Handler handler) {
    gotFocusHandlers_[&control] = std::move(handler);
}

void Form::OnPickedFocus(Control& control, Handler handler) {
    pickedHandlers_[&control] = std::move(handler);
}

void Form::OnLostFocus(Control& control, Handler handler) {
    lostFocusHandlers_[&control] = std::move(handler);
}

Control* Form::Find(std::string_view name, int index) {
    auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control& control) {
        return control.Index == index && control.Name == name;
    });
    return found == controls_.end() ? nullptr : &*found;
}

Control* Form::FindFull(std::string_view fullName) {
    auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control& control) {
        return fullName.starts_with(control.Name) && control.FullName() == fullName;
    });
    return found == controls_.end() ? nullptr : &*found;
}

void Form::SetIndex(Control& list, int index) {
    list.ListIndex = HasPlace(list, index) ? index : -1;
    if (list.ListIndex >= 0) RunLive(list);
}

void Form::SetCheck(Control& box, int value) {
    if (box.Value == value) return;
    box.Value = value;
    RunLive(box);
}

void Form::SetOption(Control& option, bool set) {
    if (set) {
        for (Control& other : controls_) {
            bool group = other.Kind == ControlKind::Option && other.Container == option.Container &&
                         other.Tab == option.Tab;
            if (group) other.Value = 0;
        }
    }
    option.Value = set ? 1 : 0;
}

void Form::Fill(Control& list, std::span<const std::string_view> entries) {
    list.Entries.assign(entries.begin(), entries.end());
    list.ListIndex = -1;
}

void Form::SetFrameActive(Control& frame, Control& control, bool active) {
    frame.Enabled = control.Enabled = active;
    control.TextColor = active ? ColorBlack : ColorGray;
}

void Form::SetFocus(Control& control) {
    MoveFocus(control);
    // What got it may have passed it on.
    if (FocusMoved && focused_) FocusMoved(*focused_);
}

void Form::MoveFocus(Control& control, bool picked) {
    if (focused_ == &control) return;
    Control* before = focused_;
    focused_ = &control;
    if (before) RunOf(lostFocusHandlers_, *before);
    RunOf(gotFocusHandlers_, control);
    if (picked) RunOf(pickedHandlers_, control);
}

Refusal Form::Reach(const Control& control) const {
    if (strip_ && control.Tab != kEveryTab) {
        if (!strip_->Offered[static_cast<std::size_t>(control.Tab)]) return Refusal::TabNotOffered;
        if (OnlyPageOnShow && strip_->ListIndex != control.Tab) return Refusal::OtherTab;
    }
    bool enabled = true;
    for (const Control* around = &control; around; around = around->Container) {
        if (!around->Visible) return Refusal::Hidden;
        enabled = enabled && around->Enabled;
    }
    return enabled ? Refusal::None : Refusal::Disabled;
}

Refusal Form::Select(Control& list, int index) {
    Refusal refusal = Touch(list, list.Kind == ControlKind::List);
    if (refusal != Refusal::None) return refusal;
    if (!HasPlace(list, index)) return Refusal::NoSuchEntry;
    Act(list, [&] {
        list.ListIndex = index;
        RunLive(list);
    });
    return Refusal::None;
}

Refusal Form::Check(Control& box, int value) {
    Refusal refusal = Touch(box, box.Kind == ControlKind::Check);
    if (refusal != Refusal::None) return refusal;
    if (value != 0 && value != 1) return Refusal::NoSuchEntry;
    Act(box, [&] { SetCheck(box, value); });
    return Refusal::None;
}

Refusal Form::Click(Control& control) {
    Refusal refusal = Touch(control, TakesClick(control.Kind));
    if (refusal != Refusal::None) return refusal;
    Act(control, [&] {
        if (control.Kind == ControlKind::Option) SetOption(control, true);
        Run(control);
    });
    return Refusal::None;
}

Refusal Form::ComeToTab(int tab) {
    if (!strip_ || !HasPlace(*strip_, tab)) return Refusal::NoSuchEntry;
    if (!strip_->Offered[static_cast<std::size_t>(tab)]) return Refusal::TabNotOffered;
    if (Touched) Touched(*strip_);
    strip_->ListIndex = tab;
    Act(*strip_, [this] { Run(*strip_); });
    return Refusal::None;
}

Refusal Form::Type(Control& entry, const std::string& text) {
    Refusal refusal = Touch(entry, entry.Kind == ControlKind::Entry);
    if (refusal != Refusal::None || entry.Text == text) return refusal;
    entry.Text = text;
    Run(entry);
    TellChanged();
    return Refusal::None;
}

Refusal Form::Enter(Control& entry) {
    Refusal refusal = Touch(entry, entry.Kind == ControlKind::Entry);
    if (refusal != Refusal::None) return refusal;
    RunOf(enterHandlers_, entry);
    TellChanged();
    return Refusal::None;
}

Refusal Form::Focus(Control& control) {
    return TakeFocus(control, true);
}

Refusal Form::FocusByTab(Control& control) {
    return TakeFocus(control, false);
}

Refusal Form::TakeFocus(Control& control, bool picked) {
    Refusal refusal = Touch(control, TakesFocus(control.Kind));
    if (refusal != Refusal::None) return refusal;
    MoveFocus(control, picked);
    TellChanged();
    return Refusal::None;
}

void Form::Act(const Control& control, const std::function<void()>& act) {
    Around ? Around(control, act) : act();
    TellChanged();
}

void Form::TellChanged() const {
    if (Changed) Changed();
}

Refusal Form::Touch(Control& control, bool rightKind) {
    if (!rightKind) return Refusal::NoSuchAction;
    Refusal refusal = Reach(control);
    if (refusal == Refusal::None && Touched) Touched(control);
    return refusal;
}

void Form::RunOf(const Handlers& handlers, Control& control) {
    auto found = handlers.find(&control);
    if (found != handlers.end()) found->second(control);
}

void Form::Run(Control& control) {
    RunOf(handlers_, control);
}

void Form::RunLive(Control& control) {
    if (!live_ || *live_) Run(control);
}

}  // namespace counter

#include "cli/setup_run.h"

#include <algorithm>
#include <utility>

#include "cli/cli_output.h"
#include "cli/suggest.h"
#include "meter/text.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

constexpr char kEnterKey = 13;

std::string Label(const ScriptAction& action) {
    return ControlLabel(action.Control, action.Index);
}

// What a verb can be done to; empty where `control` is of that kind.
std::string_view WrongKind(const Control& control, ScriptVerb verb) {
    const ControlKind kind = control.Kind;
    switch (verb) {
        case ScriptVerb::Select:
            return kind == ControlKind::List ? "" : "is not a list";
        case ScriptVerb::Check:
            return kind == ControlKind::Check ? "" : "is not a check box";
        case ScriptVerb::Click:
            return kind == ControlKind::Button || kind == ControlKind::Option
                       ? ""
                       : "is not a button or option button";
        default:
            return kind == ControlKind::Value ? "" : "is not a value field";
    }
}

// The entry that equals the text, blanks at both ends ignored, or -1.
int EntryOf(const Control& list, std::string_view text) {
    const auto found = std::find_if(list.Entries.begin(), list.Entries.end(),
                                    [text](std::string_view entry) { return Trimmed(entry) == text; });
    return found == list.Entries.end() ? -1 : static_cast<int>(found - list.Entries.begin());
}

int EntryOf(const Control& list, const ScriptAction& action) {
    if (action.Number >= 0) return action.Number;
    for (const std::string& text : TextCandidates(action.Text)) {
        if (const int index = EntryOf(list, text); index >= 0) return index;
    }
    return -1;
}

std::string Wanted(const ScriptAction& action) {
    return action.Number >= 0 ? "#" + std::to_string(action.Number) : "'" + action.Text + "'";
}

void TypeKeys(DigitEntry& entry, const std::string& keys) {
    for (const char key : keys) {
        if (key == '<') {
            entry.LeftArrow();
        } else if (key == '>') {
            entry.RightArrow();
        } else {
            entry.Key(key == '~' ? kEnterKey : key);
        }
    }
}

}  // namespace

SetupRun::SetupRun(const CommandCall& call, Player& player, Finish finish)
    : call_(call),
      player_(player),
      finish_(std::move(finish)),
      offline_(call),
      view_(offline_.Program()),
      user_(view_) {
    view_.ShowMainMenu = [this] { left_ = true; };
    offline_.Pump().OnTurn = [this] { RunDuringReadLoop(); };
    offline_.Pump().OnEnd = [this] { End(); };
}

int SetupRun::Execute(const SetupImage& image, bool fromMeter) {
    offline_.Begin(image);
    if (fromMeter) offline_.ImageIsFromMeter();
    view_.Load();
    view_.Activate();
    while (player_.Step(*this)) {
    }
    return finish_(*this);
}

void SetupRun::End() {
    ended_ = !playerDone_;
    if (ended_) player_.Step(*this);  // any further action is refused
    const int status = OutputStatus(call_.World, finish_(*this));
    call_.World.Err.flush();
    call_.World.Exit(status);
}

// The Read loop runs until its button is pressed again, so the actions after its start run within it, one in
// each turn of its waits. Where the player is at the end first, so is the program.
void SetupRun::RunDuringReadLoop() {
    if (!Reading() || actsInLoop_) return;
    actsInLoop_ = true;
    const bool more = player_.Step(*this);
    actsInLoop_ = false;
    if (more) return;
    playerDone_ = true;
    offline_.Pump().EndProcess(kDone);
}

void SetupRun::Restore(const SetupImage& image) {
    Program().Image = image;
    Program().Views.EntryReturn = 0;
    view_.Activate();
}

std::string SetupRun::Run(const ScriptAction& action) {
    if (ended_) return "the program has ended";
    if (left_) return "the Setup view was left for the main menu";
    if (action.Verb == ScriptVerb::Tab) return ComeToTab(action.Number);
    Control* control = view_.Controls.Find(action.Control, action.Index);
    if (control == nullptr) return NoControl(Label(action));
    const std::string_view wrongKind = WrongKind(*control, action.Verb);
    if (!wrongKind.empty()) return Label(action) + " " + std::string(wrongKind);
    return ActOn(*control, action);
}

std::string SetupRun::ComeToTab(int tab) {
    const Refusal refusal = view_.Controls.ComeToTab(tab);
    if (refusal == Refusal::None) return {};
    const std::string name = "tab " + std::to_string(tab);
    if (refusal == Refusal::NoSuchEntry) return name + " does not exist";
    return name + " is not offered. " + std::string(view_.WhyNotOffered(tab));
}

std::string SetupRun::ActOn(Control& control, const ScriptAction& action) {
    switch (action.Verb) {
        case ScriptVerb::Select:
            return Select(control, action);
        case ScriptVerb::Check:
            return user_.RefusalLine(control, view_.Controls.Check(control, action.Number));
        case ScriptVerb::Click:
            return user_.RefusalLine(control, view_.Controls.Click(control));
        default:
            return TypeInto(control, action);
    }
}

std::string SetupRun::Select(Control& list, const ScriptAction& action) {
    const Refusal reach = view_.Controls.Reach(list);
    if (reach != Refusal::None) return user_.RefusalLine(list, reach);
    const int index = EntryOf(list, action);
    const Refusal refusal = view_.Controls.Select(list, index);
    return refusal == Refusal::NoSuchEntry ? user_.NoEntryLine(list, Wanted(action))
                                           : user_.RefusalLine(list, refusal);
}

std::string SetupRun::TypeInto(Control& value, const ScriptAction& action) {
    if (std::string why = user_.OpenEntry(value); !why.empty()) return why;
    TypeKeys(user_.Entry, action.Text);
    user_.CloseEntry(action.Verb == ScriptVerb::Enter);
    return {};
}

int SetupRun::Save() {
    if (Status status = SaveSetupFile(call_.World.Store, call_.OutPath(), Program().Image); !status.Ok())
        return RefuseStatus(call_, status);
    const Status held = offline_.WriteHeld();
    return held.Ok() ? kDone : RefuseStatus(call_, held);
}

std::vector<std::string> SetupRun::ControlNames() const {
    std::vector<std::string> names;
    for (const Control& control : view_.Controls) names.push_back(control.FullName());
    return names;
}

// Which indexes there are helps whoever left one out.
std::string SetupRun::NoControl(const std::string& fullName) const {
    std::string elements;
    for (const Control& control : view_.Controls) {
        if (control.Name == fullName.substr(0, fullName.find('['))) elements += " " + control.FullName();
    }
    const std::string text = "no control '" + fullName + "'";
    return elements.empty() ? text + DidYouMean(fullName, ControlNames()) : text + "; there is" + elements;
}

}  // namespace counter

#include "cli/edit_console.h"

#include <algorithm>
#include <istream>

#include "controls/form_lines.h"
#include "meter/text.h"

namespace counter {

namespace {

constexpr const char* kPrompt = "edit> ";
constexpr std::size_t kEntriesRoom = 60;  // characters of a list's entries in one line

constexpr const char* kWordsHelp =
    "  list [TEXT]            what can be reached now; with TEXT only what has it in its name or caption\n"
    "  show CONTROL           all about a control\n"
    "  undo                   takes the last change back; the view is opened anew\n"
    "  quit                   ends without writing; the end of input (Ctrl-D) writes\n";

// Of what a user acts on; empty for all else.
std::string_view KindName(ControlKind kind) {
    switch (kind) {
        case ControlKind::List:
            return "list";
        case ControlKind::Check:
            return "box";
        case ControlKind::Option:
            return "option";
        case ControlKind::Button:
            return "button";
        case ControlKind::Value:
            return "value";
        case ControlKind::TabStrip:
            return "tabs";
        default:
            return {};
    }
}

bool IsActedOn(const Control& control) {
    return !KindName(control.Kind).empty();
}

// Its own, or that of the frame around it.
std::string CaptionAround(const Control& control) {
    for (const Control* around = &control; around != nullptr; around = around->Container) {
        if (!around->Caption.empty()) return std::string(Trimmed(around->Caption));
    }
    return {};
}

std::string EntriesLine(const Control& list) {
    std::string text;
    for (const std::string_view entry : list.Entries) {
        text += (text.empty() ? "" : " | ") + std::string(Trimmed(entry));
        if (text.size() > kEntriesRoom) return text.substr(0, kEntriesRoom) + "...";
    }
    return text;
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

bool EditConsole::Step(SetupRun& run) {
    if (run.Ended()) return false;
    world_.Err << kPrompt << std::flush;
    std::string line;
    if (!std::getline(world_.In, line)) {
        Say("");
        return false;
    }
    const std::string bare(Trimmed(line));
    const std::size_t end = std::min(bare.find(' '), bare.size());
    if (!Word(run, bare.substr(0, end), std::string(Trimmed(bare.substr(end))))) Act(run, line);
    return !quit_;
}

// False for a line that is an action.
bool EditConsole::Word(SetupRun& run, const std::string& word, const std::string& rest) {
    if (word == "help" || word == "?") {
        world_.Err << kActionsHelp << kWordsHelp;
    } else if (word == "list") {
        List(run, rest);
    } else if (word == "show") {
        Show(run, rest);
    } else if (word == "undo") {
        Undo(run);
    } else if (word == "quit") {
        quit_ = true;
    } else {
        return false;
    }
    return true;
}

void EditConsole::Act(SetupRun& run, const std::string& line) {
    ScriptAction action;
    std::string wrong = ParseScriptLine(line, action);
    if (wrong.empty() && action.Verb == ScriptVerb::None) return;
    const Picture before = PictureOf(run);
    const SetupImage image = run.Program().Image;
    if (wrong.empty()) wrong = run.Run(action);
    if (!wrong.empty()) {
        Say(wrong);
        return;
    }
    if (run.Program().Image.SetupData != image.SetupData) undo_.push_back(image);
    TellChanges(run, before);
}

void EditConsole::Undo(SetupRun& run) {
    // The loop works on the view that would be rebuilt.
    if (run.Reading()) return Say("the meter is being read; click cmdRead first");
    if (undo_.empty()) return Say("there is nothing to take back");
    const Picture before = PictureOf(run);
    run.Restore(undo_.back());
    undo_.pop_back();
    TellChanges(run, before);
}

EditConsole::Picture EditConsole::PictureOf(SetupRun& run) {
    Picture picture;
    const Form& form = run.View().Controls;
    for (const Control& control : form)
        picture.push_back({form.Reach(control) == Refusal::None, ValueShown(control)});
    return picture;
}

void EditConsole::TellChanges(SetupRun& run, const Picture& before) {
    const Picture after = PictureOf(run);
    std::vector<std::vector<std::string>> lines;
    std::string come, gone;
    std::size_t i = 0;
    for (const Control& control : run.View().Controls) {
        const Seen& was = before[i];
        const Seen& is = after[i++];
        if (!IsActedOn(control)) continue;
        if (is.Reachable && !was.Reachable) come += " " + control.FullName();
        if (was.Reachable && !is.Reachable) gone += " " + control.FullName();
        if (is.Reachable && is.Value != was.Value)
            lines.push_back({"  " + control.FullName(), Printable(was.Value), "->", Printable(is.Value)});
    }
    world_.Err << Columns(lines);
    if (!come.empty()) Say("  can be reached now:" + come);
    if (!gone.empty()) Say("  no longer:" + gone);
    if (lines.empty() && come.empty() && gone.empty()) Say("  nothing changed");
}

void EditConsole::List(SetupRun& run, const std::string& filter) {
    std::vector<std::vector<std::string>> lines;
    const Form& form = run.View().Controls;
    for (const Control& control : form) {
        if (!IsActedOn(control) || form.Reach(control) != Refusal::None) continue;
        const std::string caption = CaptionAround(control);
        if (!Contains(control.FullName(), filter) && !Contains(caption, filter)) continue;
        lines.push_back({control.FullName(), std::string(KindName(control.Kind)), Printable(caption),
                         Printable(ValueShown(control)), Printable(EntriesLine(control))});
    }
    world_.Err << (lines.empty() ? "nothing of that name can be reached now\n" : Columns(lines));
}

void EditConsole::Show(SetupRun& run, const std::string& name) {
    Form& form = run.View().Controls;
    const Control* control = form.FindFull(name);
    if (control == nullptr) return Say(run.NoControl(name));
    const bool acted = IsActedOn(*control);
    std::string text = name + ": " + std::string(acted ? KindName(control->Kind) : "shown only");
    text += " '" + Printable(CaptionAround(*control)) + "'";
    if (const std::string value = ValueShown(*control); !value.empty()) text += ", " + Printable(value);
    if (acted) text += ", " + run.View().WhyRefused(form.Reach(*control), *control);
    Say(text);
    for (std::size_t i = 0; i < control->Entries.size(); ++i) {
        const std::string entry(Trimmed(control->Entries[i]));
        Say("  #" + std::to_string(i) + " " + Printable(entry));
    }
}

}  // namespace counter

#include "cli/edit_script.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "cli/exact_number.h"
#include "cli/suggest.h"
#include "meter/text.h"

namespace counter {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view Stripped(std::string_view text) {
    return Trimmed(text, kBlanks);
}

// Takes the first word off the front of `rest`.
std::string_view TakeWord(std::string_view& rest) {
    rest = Stripped(rest);
    const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
    rest = Stripped(rest.substr(word.size()));
    return word;
}

// A number of decimal digits alone, at most 9999.
std::optional<int> NumberOf(std::string_view text) {
    const bool tooLong = text.size() > 4;
    return tooLong || text.starts_with('-') ? std::nullopt : ExactNumber<int>(text);
}

struct VerbWord {
    const char* Word;
    ScriptVerb Verb;
};

constexpr VerbWord kVerbs[] = {
    {"tab", ScriptVerb::Tab},     {"select", ScriptVerb::Select}, {"check", ScriptVerb::Check},
    {"click", ScriptVerb::Click}, {"enter", ScriptVerb::Enter},   {"cancel", ScriptVerb::Cancel},
};

ScriptVerb VerbOf(std::string_view word) {
    const auto* found = std::find_if(std::begin(kVerbs), std::end(kVerbs),
                                     [word](const VerbWord& verb) { return verb.Word == word; });
    return found == std::end(kVerbs) ? ScriptVerb::None : found->Verb;
}

std::string NoVerb(const std::string& word) {
    std::string text = "no action '" + word + "'; actions are";
    std::vector<std::string> words;
    for (const VerbWord& verb : kVerbs) words.emplace_back(verb.Word);
    for (const std::string& legal : words) text += " " + legal;
    return text + DidYouMean(word, words);
}

// "name" or "name[index]".
std::string ParseControl(std::string_view word, ScriptAction& action) {
    const std::string_view name = word.substr(0, word.find('['));
    action.Control = std::string(name);
    if (name.empty() || name[0] == '#') return "a control is missing";
    if (name.size() == word.size()) return {};
    const std::string_view index = word.substr(name.size() + 1);
    const auto number = index.ends_with(']') ? NumberOf(index.substr(0, index.size() - 1)) : std::nullopt;
    if (!number) return "'" + std::string(word) + "' is not a control's name and index, as in txtSetpt[1]";
    action.Index = *number;
    return {};
}

std::string ParseTab(std::string_view rest, ScriptAction& action) {
    const auto number = NumberOf(rest);
    if (!number) return "usage: tab N, with N from 0 on";
    action.Number = *number;
    return {};
}

// "#I" alone, or with a comment after it; anything else is a text, as entries begin with a "#" too.
std::string ParseSelect(std::string_view rest, ScriptAction& action) {
    if (rest.empty()) return "usage: select CONTROL #I or select CONTROL TEXT";
    action.Text = std::string(rest);
    if (rest[0] != '#') return {};
    const std::size_t end = std::min(rest.find_first_not_of("0123456789", 1), rest.size());
    const std::string_view behind = Stripped(rest.substr(end));
    const auto number = NumberOf(rest.substr(1, end - 1));
    if (!number || !(behind.empty() || behind[0] == '#')) return {};
    action.Number = *number;
    action.Text.clear();
    return {};
}

std::string ParseCheck(std::string_view rest, ScriptAction& action) {
    if (rest != "0" && rest != "1") return "usage: check CONTROL 0|1";
    action.Number = rest == "1" ? 1 : 0;
    return {};
}

}  // namespace

std::string ParseScriptLine(std::string_view line, ScriptAction& action) {
    action = {};
    std::string_view rest = line;
    const std::string_view verb = TakeWord(rest);
    if (verb.empty() || verb[0] == '#') return {};
    action.Verb = VerbOf(verb);
    if (action.Verb == ScriptVerb::None) return NoVerb(std::string(verb));
    // Only the entries of a list have a "#" of their own.
    if (action.Verb != ScriptVerb::Select) rest = Stripped(rest.substr(0, rest.find('#')));
    if (action.Verb == ScriptVerb::Tab) return ParseTab(rest, action);
    if (std::string wrong = ParseControl(TakeWord(rest), action); !wrong.empty()) return wrong;
    if (action.Verb == ScriptVerb::Select) return ParseSelect(rest, action);
    if (action.Verb == ScriptVerb::Check) return ParseCheck(rest, action);
    action.Text = std::string(rest);
    return action.Verb == ScriptVerb::Click && !rest.empty() ? "usage: click CONTROL" : "";
}

std::vector<std::string> TextCandidates(std::string_view text) {
    std::vector<std::string> candidates;
    for (std::string_view part = Stripped(text); !part.empty();) {
        candidates.emplace_back(part);
        const std::size_t comment = part.rfind('#');
        part = comment == std::string_view::npos ? std::string_view() : Stripped(part.substr(0, comment));
    }
    return candidates;
}

std::string ControlLabel(const std::string& name, int index) {
    return index < 0 ? name : name + "[" + std::to_string(index) + "]";
}

}  // namespace counter

// read, reset, remote: one press of a button of the Commands panel.
#include <algorithm>
#include <span>

#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/link_session.h"
#include "cli/offline_session.h"
#include "cli/suggest.h"
#include "commands/commands_view.h"
#include "commands/remote_display.h"
#include "link/link_error.h"
#include "link/waits.h"
#include "meter/text.h"

namespace counter {

namespace {

// A word of the command line and the button that it presses.
struct ButtonWord {
    std::string_view Word;
    const char* Button;
    std::vector<const char*> Fields = {};  // that show what comes
};

// clang-format off
const std::vector<ButtonWord>& ReadWords() {
    static const std::vector<ButtonWord> words = {
        {"item1",  "cmdItem1",    {"picItem1"}},
        {"item2",  "cmdItem2",    {"picItem2"}},
        {"item3",  "cmdItem3",    {"picItem3"}},
        {"peak",   "cmdPeakRd",   {"picPeak"}},
        {"valley", "cmdValleyRd", {"picValley"}},
        {"all",    "cmdActive",   {"picItem1", "picItem2", "picItem3"}},
        {"all+",   "cmdActiveP",  {"picItem1", "picItem2", "picItem3", "picPeak", "picValley"}},
    };
    return words;
}

const std::vector<ButtonWord>& ResetWords() {
    static const std::vector<ButtonWord> words = {
        {"meter", "cmdMRst"}, {"function", "cmdFRst"}, {"alarms",  "cmdLARst"},
        {"peak",  "cmdPeak"}, {"valley",   "cmdValley"}, {"display", "cmdRmtDspy"},
    };
    return words;
}

const std::vector<ButtonWord>& RemoteWords() {
    static const std::vector<ButtonWord> words = {
        {"display", "cmdDspyOnly"}, {"item3", "cmdItm3Only"}, {"both", "cmdBoth"}, {"c", "cmdC"},
    };
    return words;
}
// clang-format on

const ButtonWord* FindWord(std::span<const ButtonWord> words, const std::string& word) {
    const auto found = std::find_if(words.begin(), words.end(),
                                    [&](const ButtonWord& candidate) { return candidate.Word == word; });
    return found == words.end() ? nullptr : &*found;
}

int RefuseWord(const CommandCall& call, std::span<const ButtonWord> words) {
    std::string legal;
    std::vector<std::string> names;
    for (const ButtonWord& word : words) {
        legal += (legal.empty() ? "" : "|") + std::string(word.Word);
        names.emplace_back(word.Word);
    }
    return RefuseCall(call, "'" + call.Words[0] + "' is none of " + legal + DidYouMean(call.Words[0], names));
}

void TypeValue(const CommandCall& call, CommandsView& view) {
    if (call.Words.size() > 1) view.Controls.Type(view.txtRmtDspy, call.Words[1]);
}

// What the panel refuses whatever the meter would say, found by a press on a line that leads nowhere: wrong
// usage is told as such also where the port can't be opened. Empty: nothing.
std::string WhyNot(const CommandCall& call, const ButtonWord& word) {
    OfflineSession offline(call);
    offline.Program().LinkState.ModbusLink = StoredSettings(call).ModbusLink;
    CommandsView view(offline.Program());
    view.Load();
    Control& button = *view.Controls.Find(word.Button);
    if (view.Controls.Reach(button) != Refusal::None)
        return "'" + call.Words[0] + "' does not exist over Modbus";
    if (call.Words.size() < 2) return {};
    TypeValue(call, view);
    view.Controls.Click(button);
    return view.WhyNotSent;
}

// The panel on the line of one call.
class Panel {
  public:
    explicit Panel(const CommandCall& call) : call_(call), link_(call), view_(link_.Program()) {}

    // Opens the link and presses the button. Returns 0, or the exit status with its line written.
    int Press(const ButtonWord& word) {
        if (const int status = link_.Begin(); status != kDone) return status;
        view_.Load();
        TypeValue(call_, view_);
        view_.Controls.Click(*view_.Controls.Find(word.Button));
        return kDone;
    }

    int EndReading(const ButtonWord& word) {
        LinkState& state = link_.Program().LinkState;
        // A node's connection that breaks during the wait leaves LinkError at 0.
        if (link_.Program().Node.Lost()) state.LinkError = LinkErrors::kPortFault;
        const bool good = state.LinkError == 0;
        ActionEnd end{view_.lblErrText.Caption, good ? Lines(word) : "", {{"values", Json::array()}}};
        if (good) {
            for (const char* field : word.Fields) end.More["values"].push_back(Utf8(TextOf(field)));
        }
        return End(end);
    }

    // Nothing answers, so the line itself is the only proof that it went anywhere.
    int EndSending(const ButtonWord&) {
        LineHolds(link_.Program().Link);
        return End({view_.lblErrText.Caption, view_.lblErrText.Caption});
    }

  private:
    int End(ActionEnd end) {
        const int error = link_.Program().LinkState.LinkError;
        if (error != 0) end.Status = WithNumber(CommandsView::kCommunicationsFailure, error);
        return link_.EndAction(end);
    }

    const std::string& TextOf(const char* field) { return view_.Controls.Find(field)->Text; }

    // A value alone is a line that a script takes as it is; several have their names in front.
    std::string Lines(const ButtonWord& word) {
        if (word.Fields.size() == 1) return Printable(Trimmed(TextOf(word.Fields[0])));
        std::string text;
        for (const char* field : word.Fields) {
            if (TextOf(field).empty()) continue;
            text += text.empty() ? "" : "\n";
            text += std::string(field).substr(3) + "  " + Printable(Trimmed(TextOf(field)));
        }
        return text;
    }

    const CommandCall& call_;
    LinkSession link_;
    CommandsView view_;
};

using EndOfPress = int (Panel::*)(const ButtonWord& word);

int PressOne(const CommandCall& call, std::span<const ButtonWord> words, EndOfPress end) {
    const ButtonWord* word = FindWord(words, call.Words[0]);
    if (word == nullptr) return RefuseWord(call, words);
    if (const std::string why = WhyNot(call, *word); !why.empty()) return RefuseCall(call, why);
    Panel panel(call);
    if (const int status = panel.Press(*word); status != kDone) return status;
    return (panel.*end)(*word);
}

}  // namespace

int ReadCommand(const CommandCall& call) {
    return PressOne(call, ReadWords(), &Panel::EndReading);
}

int ResetCommand(const CommandCall& call) {
    return PressOne(call, ResetWords(), &Panel::EndSending);
}

// A shell gives UTF-8, the box of the panel holds the meter's characters.
int RemoteCommand(const CommandCall& call) {
    const auto text = FromUtf8(call.Words[1]);
    if (!text) return RefuseCall(call, NoMeterText(call.Words[1]));
    CommandCall typed = call;
    typed.Words[1] = *text;
    return PressOne(typed, RemoteWords(), &Panel::EndSending);
}

}  // namespace counter

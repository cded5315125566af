// read, reset, remote: one press of a button of the Commands panel.
#include <algorithm>
#include <span>

#include "cli/cli.h"
#include "cli/link_session.h"
#include "commands/commands_view.h"
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
    for (const ButtonWord& word : words) legal += (legal.empty() ? "" : "|") + std::string(word.Word);
    return RefuseCall(call, "'" + call.Words[0] + "' is none of " + legal);
}

// The panel on the line of one call.
class Panel {
  public:
    explicit Panel(const CommandCall& call) : call_(call), link_(call), view_(link_.Program()) {}

    // Opens the link and presses the button. Returns 0, or the exit status with its line written.
    int Press(const ButtonWord& word) {
        if (const int status = link_.Begin(); status != kDone) return status;
        view_.Load();
        if (call_.Words.size() > 1) view_.Controls.Type(view_.txtRmtDspy, call_.Words[1]);
        if (view_.Controls.Click(*view_.Controls.Find(word.Button)) != Refusal::None) {
            link_.Finish();
            return RefuseCall(call_, "'" + call_.Words[0] + "' does not exist over Modbus");
        }
        // A value that can't be sent is the only red text that a press leaves while the port is open.
        if (view_.lblErrText.TextColor != ColorRed) return kDone;
        link_.Finish();
        return RefuseCall(call_, view_.lblErrText.Caption);
    }

    int EndReading(const ButtonWord& word) {
        LinkState& state = link_.Program().LinkData;
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
    int EndSending() {
        LineHolds(link_.Program().Line);
        return End({view_.lblErrText.Caption, view_.lblErrText.Caption});
    }

  private:
    int End(ActionEnd end) {
        const int error = link_.Program().LinkData.LinkError;
        if (error != 0) end.Status = WithNumber(CommandsView::kCommunicationsFailure, error);
        return link_.EndAction(end);
    }

    const std::string& TextOf(const char* field) { return view_.Controls.Find(field)->Text; }

    // A value alone is a line that a script takes as it is; several have their names in front.
    std::string Lines(const ButtonWord& word) {
        if (word.Fields.size() == 1) return Utf8(Trimmed(TextOf(word.Fields[0])));
        std::string text;
        for (const char* field : word.Fields) {
            if (TextOf(field).empty()) continue;
            text += text.empty() ? "" : "\n";
            text += std::string(field).substr(3) + "  " + Utf8(Trimmed(TextOf(field)));
        }
        return text;
    }

    const CommandCall& call_;
    LinkSession link_;
    CommandsView view_;
};

int SendCommandOf(const CommandCall& call, std::span<const ButtonWord> words) {
    const ButtonWord* word = FindWord(words, call.Words[0]);
    if (word == nullptr) return RefuseWord(call, words);
    Panel panel(call);
    if (const int status = panel.Press(*word); status != kDone) return status;
    return panel.EndSending();
}

}  // namespace

int ReadCommand(const CommandCall& call) {
    const ButtonWord* word = FindWord(ReadWords(), call.Words[0]);
    if (word == nullptr) return RefuseWord(call, ReadWords());
    Panel panel(call);
    if (const int status = panel.Press(*word); status != kDone) return status;
    return panel.EndReading(*word);
}

int ResetCommand(const CommandCall& call) {
    return SendCommandOf(call, ResetWords());
}

int RemoteCommand(const CommandCall& call) {
    return SendCommandOf(call, RemoteWords());
}

}  // namespace counter

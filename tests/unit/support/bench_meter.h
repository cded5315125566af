// BenchMeter: a session on the virtual clock, wired to a simulated meter. The fixture of most stories.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"
#include "settings/settings_keys.h"
#include "shell/start.h"
#include "support/memory_files.h"
#include "support/meter_line.h"
#include "support/virtual_pump.h"

namespace counter::test {

class RecordedDialogs : public Dialogs {
  public:
    std::vector<Message> Shown;
    std::vector<FileQuestion> Asked;
    std::string Path;     // the answer to a file dialog; empty: cancelled
    bool SaysYes = true;  // to a question
    int Beeps = 0;

    std::function<void(const Message&)> Meanwhile;  // happens while a message is on show; may be empty

    void Show(const Message& message) override {
        Shown.push_back(message);
        if (Meanwhile) Meanwhile(message);
    }
    bool Confirm(const Message& message) override {
        Show(message);
        return SaysYes;
    }
    std::string AskOpenFile(const FileQuestion& question) override {
        Asked.push_back(question);
        return Path;
    }
    std::string AskSaveFile(const FileQuestion& question) override { return AskOpenFile(question); }
    void Beep() override { ++Beeps; }
};

// What lies in Settings.SSS after KEY=VALUE of each word was set in a new file.
inline std::string SettingsOf(const std::vector<std::string>& words) {
    SettingsLines lines = NewSettingsLines();
    for (const std::string& word : words) {
        const std::size_t equals = word.find('=');
        SetSettingsKey(lines, *FindSettingsKey(word.substr(0, equals)), word.substr(equals + 1));
    }
    return FormatSettings(lines);
}

// On the virtual clock, or on the one that carries widgets as well.
template <class PumpType>
struct BenchMeterOf {
    explicit BenchMeterOf(sim::MeterOptions options = {}, const std::vector<std::string>& settings = {})
        : Line(Pump, std::move(options)) {
        Store.Contents["home/Settings.SSS"] = SettingsOf(settings);
    }
    Status SwitchOn() { return Start(Program); }

    PumpType Pump;
    MemoryFiles Store;
    RecordedDialogs Boxes;
    MeterLine Line;
    Session Program{Pump, Line, Boxes, {Store, "home"}};
};

using BenchMeter = BenchMeterOf<VirtualPump>;

}  // namespace counter::test

// settings, settings init, settings set.
#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/cli_output.h"
#include "cli/command_table.h"
#include "cli/suggest.h"
#include "settings/settings.h"
#include "settings/settings_keys.h"

namespace counter {

namespace {

Status ReadLines(const CommandCall& call, SettingsLines& lines) {
    std::string text;
    Status status = call.World.Store.Read(SettingsPath(call), text);
    if (status.Ok()) lines = SplitSettings(text);
    return status;
}

Json SettingsJson(const Settings& settings) {
    Json document = Json::object();
    for (const SettingsKey& key : SettingsKeys()) {
        const auto number = SettingsNumber(settings, key);
        document[std::string(key.Name)] = number ? Json(*number) : Json(Utf8(SettingsText(settings, key)));
    }
    document["SettingsLine1"] = Utf8(settings.FileLines.SettingsLine1);
    document["SettingsLine2"] = Utf8(settings.FileLines.SettingsLine2);
    document["EthernetMode"] = settings.EthernetMode ? 1 : 0;
    return document;
}

std::string SettingsTable(const Settings& settings) {
    std::vector<std::vector<std::string>> lines;
    for (const SettingsKey& key : SettingsKeys()) {
        lines.push_back({std::string(key.Name), Printable(SettingsText(settings, key))});
    }
    lines.push_back({"EthernetMode", std::to_string(settings.EthernetMode)});
    lines.push_back({"SettingsLine1", Printable(settings.FileLines.SettingsLine1)});
    lines.push_back({"SettingsLine2", Printable(settings.FileLines.SettingsLine2)});
    return Columns(lines);
}

int PrintSettings(const CommandCall& call) {
    SettingsLines lines;
    if (Status status = ReadLines(call, lines); !status.Ok()) return RefuseStatus(call, status);
    Settings settings;
    ParseSettings(lines, settings);
    if (call.Json) {
        WriteJson(call, SettingsJson(settings));
    } else {
        call.World.Out << SettingsTable(settings);
    }
    if (settings.BaudIndex < 0 && !settings.EthernetMode)
        Complain(call.World) << OneLine(
                                    Status{StatusKind::Illegal, SettingsPath(call), kBaudDigitReason}.Text())
                             << "; no port can be opened so\n";
    return kDone;
}

std::string NoKey(const std::string& word) {
    std::string text = "no key '" + word + "'; keys are";
    std::vector<std::string> names;
    for (const SettingsKey& legal : SettingsKeys()) names.emplace_back(legal.Name);
    for (const std::string& name : names) text += " " + name;
    return text + DidYouMean(word, names);
}

// Takes over the KEY=VALUE words after the first. Returns one line that says what is legal, or nothing.
std::string Apply(const CommandCall& call, SettingsLines& lines) {
    for (std::size_t i = 1; i < call.Words.size(); ++i) {
        const std::string& word = call.Words[i];
        const std::size_t equals = word.find('=');
        if (equals == std::string::npos) return "'" + word + "' is not KEY=VALUE";
        const SettingsKey* key = FindSettingsKey(word.substr(0, equals));
        if (key == nullptr) return NoKey(word.substr(0, equals));
        if (std::string refusal = SetSettingsKey(lines, *key, word.substr(equals + 1)); !refusal.empty()) {
            return refusal;
        }
    }
    return {};
}

int InitSettings(const CommandCall& call) {
    SettingsLines lines = NewSettingsLines();
    if (const std::string refusal = Apply(call, lines); !refusal.empty()) return RefuseCall(call, refusal);
    if (Status status = call.World.Store.MakeFolder(call.Folder); !status.Ok())
        return RefuseStatus(call, status);
    SettingsTurn turn(call);
    std::unique_ptr<FileLock> lock;
    Status status = LockSettings(FolderOf(call), turn.Wait(), lock);
    if (status.Ok() && call.World.Store.Exists(SettingsPath(call)) && !call.Has("--force"))
        status = {StatusKind::Illegal, SettingsPath(call), "File exists; --force replaces it"};
    if (status.Ok()) status = call.World.Store.Write(SettingsPath(call), FormatSettings(lines));
    return status.Ok() ? kDone : RefuseStatus(call, status);
}

int ChangeSettings(const CommandCall& call) {
    SettingsLines scratch = NewSettingsLines();
    if (call.Words.size() < 2) return RefuseCall(call, "usage: counterctl settings set KEY=VALUE...");
    if (const std::string refusal = Apply(call, scratch); !refusal.empty()) return RefuseCall(call, refusal);
    SettingsTurn turn(call);
    const Status status = ChangeSettings(FolderOf(call), turn.Wait(), [&call](SettingsLines& lines) {
        Apply(call, lines);
        return Status{};
    });
    return status.Ok() ? kDone : RefuseStatus(call, status);
}

}  // namespace

int SettingsCommand(const CommandCall& call) {
    if (call.Words.empty()) return PrintSettings(call);
    if (call.Words[0] == "init") return InitSettings(call);
    if (call.Words[0] == "set") return ChangeSettings(call);
    return RefuseCall(call, "usage: " + UsageOf(*FindCommand("settings")));
}

}  // namespace counter

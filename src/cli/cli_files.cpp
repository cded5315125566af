#include "cli/cli_files.h"

#include <iterator>
#include <utility>

#include "cli/cli_output.h"
#include "shell/setup_files.h"

namespace counter {

Status OutputFailed(const CliWorld& world) {
    const Status status = world.WhyOutFailed ? world.WhyOutFailed() : Status{};
    return status.Ok() ? Status{StatusKind::Other, "standard output", "can't be written"} : status;
}

Status StreamFiles::Read(const std::string& path, std::string& content) const {
    if (path != kStandardStream) return PassingFiles::Read(path, content);
    content.assign(std::istreambuf_iterator<char>(world_.In), {});
    if (content.empty()) return {StatusKind::Illegal, "standard input", "is empty"};
    return {};
}

Status StreamFiles::Write(const std::string& path, std::string_view content) {
    if (path == kStandardStream) return Send(content);
    Status status = PassingFiles::Write(path, content);
    if (status.Ok() && !status.Note.empty()) Complain(world_) << OneLine(status.Note) << std::endl;
    return status;
}

Status StreamFiles::Append(const std::string& path, std::string_view content) {
    return path == kStandardStream ? Send(content) : PassingFiles::Append(path, content);
}

Status StreamFiles::Send(std::string_view content) {
    world_.Out << content << std::flush;
    return world_.Out ? Status{} : OutputFailed(world_);
}

SettingsWait SettingsTurn::Wait() {
    return {[this]() -> counter::Pump& { return Pump(); },
            [this](const std::string& line) { Complain(call_.World) << line << std::endl; }};
}

Pump& SettingsTurn::Pump() {
    machine_ = call_.World.MakeMachine(call_.Folder);
    counter::Pump& pump = machine_->Pump();
    pump.OnInterrupt = [this, &pump] {
        Complain(call_.World) << "interrupted" << std::endl;
        pump.EndProcess(kInterrupted);
    };
    return pump;
}

std::optional<std::string> HeldFiles::Take(const std::string& path) {
    const auto found = held_.find(path);
    if (found == held_.end()) return std::nullopt;
    std::string content = std::move(found->second);
    held_.erase(found);
    return content;
}

Status HeldFiles::Flush() {
    for (const auto& [path, content] : held_) {
        if (Status status = PassingFiles::Write(path, content); !status.Ok()) return status;
    }
    held_.clear();
    return {};
}

Status HeldFiles::Read(const std::string& path, std::string& content) const {
    const auto found = held_.find(path);
    if (found == held_.end()) return PassingFiles::Read(path, content);
    content = found->second;
    return {};
}

Status HeldFiles::Write(const std::string& path, std::string_view content) {
    held_[path] = std::string(content);
    return {};
}

Status LoadToEdit(const CommandCall& call, SetupImage& image) {
    const bool over = call.OutPath() == call.Words[0] && call.Words[0] != kStandardStream;
    return over ? LoadSetupToChange(call.World.Store, call.Words[0], image)
                : LoadSetupFile(call.World.Store, call.Words[0], image);
}

ProgramFolder FolderOf(const CommandCall& call) {
    return {call.World.Store, call.Folder};
}

std::string SettingsPath(const CommandCall& call) {
    return call.Folder + "/" + kSettingsFile;
}

std::optional<Settings> ReadStoredSettings(const CommandCall& call) {
    std::string text;
    if (!call.World.Store.Read(SettingsPath(call), text).Ok()) return std::nullopt;
    Settings settings;
    ParseSettings(SplitSettings(text), settings);
    return settings;
}

Settings StoredSettings(const CommandCall& call) {
    return ReadStoredSettings(call).value_or(Settings());
}

}  // namespace counter

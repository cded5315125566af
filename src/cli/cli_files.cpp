#include "cli/cli_files.h"

#include <cerrno>
#include <iterator>
#include <system_error>

namespace counter {

Status OutputFailed(const CliWorld& world) {
    const std::string reason = world.WhyOutFailed ? world.WhyOutFailed() : std::string();
    return {StatusKind::Other, "standard output", reason.empty() ? "can't be written" : reason};
}

Status StreamFiles::Read(const std::string& path, std::string& content) const {
    if (path != kStandardStream) return PassingFiles::Read(path, content);
    content.assign(std::istreambuf_iterator<char>(world_.In), {});
    if (content.empty()) return {StatusKind::Illegal, "standard input", "is empty"};
    return {};
}

Status StreamFiles::Write(const std::string& path, std::string_view content) {
    return path == kStandardStream ? Send(content) : PassingFiles::Write(path, content);
}

Status StreamFiles::Append(const std::string& path, std::string_view content) {
    return path == kStandardStream ? Send(content) : PassingFiles::Append(path, content);
}

Status StreamFiles::Send(std::string_view content) {
    world_.Out << content << std::flush;
    return world_.Out ? Status{} : OutputFailed(world_);
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

FileOutput::FileOutput(std::FILE* file) : file_(file) {
    setp(waiting_.data(), waiting_.data() + waiting_.size());
}

std::string FileOutput::WhyFailed() const {
    return error_ == 0 ? std::string() : std::generic_category().message(error_);
}

FileOutput::int_type FileOutput::overflow(int_type character) {
    if (!Send()) return traits_type::eof();
    if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
    return sputc(traits_type::to_char_type(character));
}

int FileOutput::sync() {
    return Send() ? 0 : -1;
}

// What could not be written is given up: the stream is bad from then on.
bool FileOutput::Send() {
    const auto size = static_cast<std::size_t>(pptr() - pbase());
    errno = 0;
    const bool sent = std::fwrite(pbase(), 1, size, file_) == size && std::fflush(file_) == 0;
    if (!sent && error_ == 0) error_ = errno == 0 ? EIO : errno;
    setp(waiting_.data(), waiting_.data() + waiting_.size());
    return sent;
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

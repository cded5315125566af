#include "cli/stream_files.h"

#include <iterator>

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

}  // namespace counter

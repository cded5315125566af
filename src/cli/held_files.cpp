#include "cli/held_files.h"

namespace counter {

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

}  // namespace counter

#include "support/memory_files.h"

namespace counter::test {

Status MemoryFiles::Read(const std::string& path, std::string& content) const {
    if (Refused.count(path) > 0) return {StatusKind::NoPermission, path, "Permission denied"};
    const auto found = Contents.find(path);
    if (found == Contents.end()) return {StatusKind::NotFound, path, "No such file or directory"};
    content = found->second;
    return {};
}

Status MemoryFiles::Write(const std::string& path, std::string_view content) {
    if (Refused.count(path) + ReadOnly.count(path) > 0) {
        return {StatusKind::NoPermission, path, "Permission denied"};
    }
    Contents[path] = std::string(content);
    return {};
}

Status MemoryFiles::Append(const std::string& path, std::string_view content) {
    if (content.size() > AppendRoom) return {StatusKind::Other, path, "No space left on device"};
    AppendRoom -= content.size();
    const auto found = Contents.find(path);
    return Write(path, (found == Contents.end() ? std::string() : found->second) + std::string(content));
}

Status MemoryFiles::Remove(const std::string& path) {
    Contents.erase(path);
    return {};
}

Status MemoryFiles::MakeFolder(const std::string& path) {
    Folders.insert(path);
    return {};
}

Status MemoryFiles::List(const std::string& path, std::vector<std::string>& names) const {
    for (const auto& [name, content] : Contents) {
        if (name.compare(0, path.size() + 1, path + "/") == 0) names.push_back(name.substr(path.size() + 1));
    }
    return {};
}

Status MemoryFiles::MakeLink(const std::string& path, const std::string& target) {
    Links[path] = target;
    return {};
}

std::string MemoryFiles::LinkTarget(const std::string& path) const {
    const auto found = Links.find(path);
    return found == Links.end() ? std::string() : found->second;
}

std::string MemoryFiles::FollowLinks(const std::string& path) const {
    const auto found = Links.find(path);
    return found == Links.end() ? path : FollowLinks(found->second);
}

}  // namespace counter::test

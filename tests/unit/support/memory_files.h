// MemoryFiles: files that live in a map, and fail when told to.
#pragma once

#include <map>
#include <set>
#include <string>

#include "platform/files.h"

namespace counter::test {

class MemoryFiles : public Files {
  public:
    std::map<std::string, std::string> Contents;
    std::map<std::string, std::string> Links;
    std::set<std::string> Folders;
    std::set<std::string> Refused;      // paths that can be neither read nor written
    std::set<std::string> ReadOnly;     // paths that can't be written
    std::size_t AppendRoom = 1U << 30;  // characters that can still be added before the disk is full

    Status Read(const std::string& path, std::string& content) const override;
    Status Write(const std::string& path, std::string_view content) override;
    Status Append(const std::string& path, std::string_view content) override;
    bool Exists(const std::string& path) const override {
        return Contents.count(path) + Folders.count(path) > 0;
    }
    Status Remove(const std::string& path) override;
    Status MakeFolder(const std::string& path) override;
    Status List(const std::string& path, std::vector<std::string>& names) const override;
    Status MakeLink(const std::string& path, const std::string& target) override;
    std::string LinkTarget(const std::string& path) const override;
    std::string FollowLinks(const std::string& path) const override;
};

}  // namespace counter::test

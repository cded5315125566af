// Files: reading and writing files whole, and adding to those that grow while they are written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace counter {

// For those who only read. What is no more than a store of contents has Read alone: no folders, no links.
class FileReader {
  public:
    virtual ~FileReader() = default;

    // The whole file, byte for byte.
    virtual Status Read(const std::string& path, std::string& content) const = 0;
    virtual bool Exists(const std::string& path) const {
        std::string ignored;
        return Read(path, ignored).Ok();
    }
    // Names in the folder, sorted, without "." and "..".
    virtual Status List(const std::string&, std::vector<std::string>& names) const {
        names.clear();
        return {};
    }
    // What the symbolic link `path` names; empty where there is none.
    virtual std::string LinkTarget(const std::string&) const { return {}; }
    // The path at the end of all links, absolute where it exists. A link whose target is missing gives the
    // path of what is missing; links that go round in a circle give `path` itself.
    virtual std::string FollowLinks(const std::string& path) const { return path; }
    // The path from the root, without "." and ".."; links in it stay.
    virtual std::string Absolute(const std::string& path) const { return path; }
};

class Files : public FileReader {
  public:
    // Whole or not at all: at any moment, kill and power cut included, either the old or the new content
    // is under `path`. A failed write leaves the old file and says why.
    virtual Status Write(const std::string& path, std::string_view content) = 0;
    // Adds to the end of the file, which is made where there is none; who reads it sees the addition at once.
    // A failed one leaves the file as it was.
    virtual Status Append(const std::string& path, std::string_view content) = 0;
    virtual Status Remove(const std::string& path) = 0;
    // With all folders above it; one that is there is fine.
    virtual Status MakeFolder(const std::string& path) = 0;
    // Makes `path` a symbolic link to `target`, replacing a link that is there.
    virtual Status MakeLink(const std::string& path, const std::string& target) = 0;
};

}  // namespace counter

// Files: reading and writing files whole, and adding to those that grow while they are written.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
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
    // One file under two names, by links of either kind or two spellings; a device or pipe is none, as it has
    // nothing that could be written over.
    virtual bool SameFile(const std::string& a, const std::string& b) const {
        return FollowLinks(Absolute(a)) == FollowLinks(Absolute(b));
    }
    // The path from the root, without "." and ".."; links in it stay.
    virtual std::string Absolute(const std::string& path) const { return path; }
};

// Something that one program at a time has, until the object goes.
class FileLock {
  public:
    FileLock() = default;
    virtual ~FileLock() = default;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
};

// A file that is open and grows; it is closed with the object.
class GrowingFile {
  public:
    GrowingFile() = default;
    virtual ~GrowingFile() = default;
    GrowingFile(const GrowingFile&) = delete;
    GrowingFile& operator=(const GrowingFile&) = delete;
    // Adds to its end, the whole or nothing; who reads the file sees it at once.
    virtual Status Add(std::string_view content) = 0;
};

class Files : public FileReader {
  public:
    // The lock under which `path` is read and written again, whether or not the file is there. Busy, at once,
    // while another has it. Where there are no locks, `lock` is left empty.
    virtual Status Lock(const std::string&, std::unique_ptr<FileLock>& lock) {
        lock.reset();
        return {};
    }
    // Whole or not at all: at any moment, kill and power cut included, either the old or the new content
    // is under `path`. A failed write leaves the old file and says why.
    virtual Status Write(const std::string& path, std::string_view content) = 0;
    // Adds to the end of the file, which is made where there is none; who reads it sees the addition at once.
    // A failed one leaves the file as it was.
    virtual Status Append(const std::string& path, std::string_view content) = 0;
    // For who adds often: opens the file, or makes it, once. A file that is renamed meanwhile is followed,
    // not its name. Where nothing stays open, each addition is an Append.
    virtual Status Grow(const std::string& path, std::unique_ptr<GrowingFile>& file);
    virtual Status Remove(const std::string& path) = 0;
    // With all folders above it; one that is there is fine.
    virtual Status MakeFolder(const std::string& path) = 0;
    // Makes `path` a symbolic link to `target`, replacing a link that is there.
    virtual Status MakeLink(const std::string& path, const std::string& target) = 0;
};

inline Status Files::Grow(const std::string& path, std::unique_ptr<GrowingFile>& file) {
    struct Appended : GrowingFile {
        Appended(Files& files, std::string name) : Store(files), Path(std::move(name)) {}
        Status Add(std::string_view content) override { return Store.Append(Path, content); }
        Files& Store;
        std::string Path;
    };
    file = std::make_unique<Appended>(*this, path);
    return {};
}

}  // namespace counter

// DiskFiles: files of the system, written whole or not at all.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "system/patience.h"

namespace counter {

// Reasons are the system's bare texts, such as "No such file or directory"; the path is given beside them.
class DiskFiles : public Files {
  public:
    // `patience` waits for the other end of a named pipe, and for a device that takes nothing now.
    explicit DiskFiles(Patience& patience) : patience_(patience) {}
    DiskFiles() : DiskFiles(own_) {}

    Status Read(const std::string& path, std::string& content) const override;
    // A temporary beside the file, flushed to disk and renamed over it. A symbolic link stays: what it names
    // is replaced. A device or pipe (/dev/stdout) has no old content to keep and is written directly, at its
    // end.
    Status Write(const std::string& path, std::string_view content) override;
    // The folder of the file carries it, since the file is another one after each write: flock, so that it
    // goes with the program, killed or not. A network that can't lock a folder has no locks.
    Status Lock(const std::string& path, std::unique_ptr<FileLock>& lock) override;
    Status Append(const std::string& path, std::string_view content) override;
    Status Grow(const std::string& path, std::unique_ptr<GrowingFile>& file) override;
    bool Exists(const std::string& path) const override;
    // A link goes, not what it names; a folder is refused.
    Status Remove(const std::string& path) override;
    Status MakeFolder(const std::string& path) override;
    Status List(const std::string& path, std::vector<std::string>& names) const override;
    // At any moment the old or the new link is there. Anything but a link is left and refused.
    Status MakeLink(const std::string& path, const std::string& target) override;
    std::string LinkTarget(const std::string& path) const override;
    bool SameFile(const std::string& a, const std::string& b) const override;
    std::string FollowLinks(const std::string& path) const override;
    std::string Absolute(const std::string& path) const override;

  private:
    Patience own_;
    Patience& patience_;
};

}  // namespace counter

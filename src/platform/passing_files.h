// PassingFiles: files in front of others, to which everything goes through. Who changes one thing overrides
// it.
#pragma once

#include "platform/files.h"

namespace counter {

class PassingFiles : public Files {
  public:
    // `behind` must outlive it.
    explicit PassingFiles(Files& behind) : behind_(behind) {}

    Status Read(const std::string& path, std::string& content) const override {
        return behind_.Read(path, content);
    }
    Status Write(const std::string& path, std::string_view content) override {
        return behind_.Write(path, content);
    }
    Status Append(const std::string& path, std::string_view content) override {
        return behind_.Append(path, content);
    }
    Status Grow(const std::string& path, std::unique_ptr<GrowingFile>& file) override {
        return behind_.Grow(path, file);
    }
    Status Lock(const std::string& path, std::unique_ptr<FileLock>& lock) override {
        return behind_.Lock(path, lock);
    }
    bool Exists(const std::string& path) const override { return behind_.Exists(path); }
    Status Remove(const std::string& path) override { return behind_.Remove(path); }
    Status MakeFolder(const std::string& path) override { return behind_.MakeFolder(path); }
    Status List(const std::string& path, std::vector<std::string>& names) const override {
        return behind_.List(path, names);
    }
    Status MakeLink(const std::string& path, const std::string& target) override {
        return behind_.MakeLink(path, target);
    }
    std::string LinkTarget(const std::string& path) const override { return behind_.LinkTarget(path); }
    std::string FollowLinks(const std::string& path) const override { return behind_.FollowLinks(path); }
    bool SameFile(const std::string& a, const std::string& b) const override {
        return behind_.SameFile(a, b);
    }
    std::string Absolute(const std::string& path) const override { return behind_.Absolute(path); }

  private:
    Files& behind_;
};

}  // namespace counter

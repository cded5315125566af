// HeldFiles: files whose writes wait until the whole run is known to be good.
#pragma once

#include <map>
#include <string>

#include "platform/files.h"

namespace counter {

// Reads see what was written and is still held. Everything else goes through at once.
class HeldFiles : public Files {
  public:
    explicit HeldFiles(Files& inner) : inner_(inner) {}

    // Writes what is held, each file whole or not at all; the first that fails ends it.
    Status Flush();

    Status Read(const std::string& path, std::string& content) const override;
    Status Write(const std::string& path, std::string_view content) override;
    Status Append(const std::string& path, std::string_view content) override {
        return inner_.Append(path, content);
    }
    bool Exists(const std::string& path) const override {
        return held_.count(path) > 0 || inner_.Exists(path);
    }
    Status Remove(const std::string& path) override { return inner_.Remove(path); }
    Status MakeFolder(const std::string& path) override { return inner_.MakeFolder(path); }
    Status List(const std::string& path, std::vector<std::string>& names) const override {
        return inner_.List(path, names);
    }
    Status MakeLink(const std::string& path, const std::string& target) override {
        return inner_.MakeLink(path, target);
    }
    std::string LinkTarget(const std::string& path) const override { return inner_.LinkTarget(path); }

  private:
    Files& inner_;
    std::map<std::string, std::string> held_;
};

}  // namespace counter

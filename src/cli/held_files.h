// HeldFiles: files whose writes wait until the whole run is known to be good.
#pragma once

#include <map>
#include <string>

#include "platform/passing_files.h"

namespace counter {

// Reads see what was written and is still held. Everything else goes through at once.
class HeldFiles : public PassingFiles {
  public:
    explicit HeldFiles(Files& behind) : PassingFiles(behind) {}

    // Writes what is held, each file whole or not at all; the first that fails ends it.
    Status Flush();

    Status Read(const std::string& path, std::string& content) const override;
    Status Write(const std::string& path, std::string_view content) override;
    bool Exists(const std::string& path) const override {
        return held_.count(path) > 0 || PassingFiles::Exists(path);
    }

  private:
    std::map<std::string, std::string> held_;
};

}  // namespace counter

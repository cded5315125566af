// SettingsAlone: a program folder in which there are these settings and nothing else, for a session that
// tries a link or a setup. What is written there is dropped.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"
#include "settings/settings.h"

namespace counter {

class SettingsAlone : public Files {
  public:
    explicit SettingsAlone(const SettingsLines& lines) : text_(FormatSettings(lines)) {}
    Status Read(const std::string& path, std::string& content) const override {
        if (!path.ends_with(kSettingsFile)) return {StatusKind::NotFound, path, "No such file or directory"};
        content = text_;
        return {};
    }
    Status Write(const std::string&, std::string_view) override { return {}; }
    Status Append(const std::string&, std::string_view) override { return {}; }
    Status Remove(const std::string&) override { return {}; }
    Status MakeFolder(const std::string&) override { return {}; }
    Status MakeLink(const std::string&, const std::string&) override { return {}; }

  private:
    const std::string text_;
};

}  // namespace counter

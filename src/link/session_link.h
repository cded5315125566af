// SessionLink: Settings.SSS as this run of the program sees it, where its user has switched the link for the
// run alone.
//
// All who read and write the settings do so through it and need not know: what it gives to read has the
// chosen link in it, and of what is written the link becomes the choice, as after a Put that gave the meter
// another address, while the file keeps its own.
#pragma once

#include <optional>
#include <string>

#include "link/change_settings.h"
#include "platform/passing_files.h"
#include "settings/settings.h"

namespace counter {

// The link is all that line 1 says of meter and line; reserved characters, the kind of program and the node
// are the file's. A file that names a node, or is empty, is given as it is.
class SessionLink : public PassingFiles {
  public:
    // `settings` is the path under which all name the file; `files` must outlive it.
    SessionLink(Files& files, std::string settings) : PassingFiles(files), settings_(std::move(settings)) {}

    Status Read(const std::string& path, std::string& content) const override;
    Status Write(const std::string& path, std::string_view content) override;

    // Line 1 with the link of this run; nothing: the file's holds.
    const std::optional<std::string>& Choice() const { return choice_; }
    // Takes effect where the settings are read next. The link of the file is no choice.
    void Choose(std::optional<std::string> line1);
    // Once there has been a choice in this run.
    bool Switched() const { return switched_; }
    // Writes the choice into the file, whose link it is from then on. A failure leaves it the choice.
    Status Keep(const SettingsWait& wait);

    // Line 1 of the file itself as it was read or written last, normalised.
    const std::string& FileLine1() const { return fileLine1_; }

  private:
    bool Covers(const std::string& path, const SettingsLines& lines) const;

    const std::string settings_;
    std::optional<std::string> choice_;
    bool switched_ = false;
    mutable std::string fileLine1_;
};

}  // namespace counter

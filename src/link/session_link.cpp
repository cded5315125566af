#include "link/session_link.h"

#include <utility>

namespace counter {

namespace {

// Positions of line 1 that tell the link: kind of meter, speed, port, protocol and parity; then addresses,
// wake-up, version and whether the line echoes.
constexpr std::pair<int, int> kLinkParts[] = {{1, 6}, {8, 9}};

std::string WithLinkOf(std::string line1, const std::string& link) {
    for (const auto& [from, length] : kLinkParts) {
        const auto start = static_cast<std::size_t>(from - 1);
        if (link.size() > start)
            SettingsPut(line1, from, link.substr(start, static_cast<std::size_t>(length)));
    }
    return line1;
}

bool NamesNode(const SettingsLines& lines) {
    Settings settings;
    ParseSettings(lines, settings);
    return settings.EthernetMode;
}

}  // namespace

bool SessionLink::Covers(const std::string& path, const SettingsLines& lines) const {
    return choice_ && path == settings_ && lines != SettingsLines{} && !NamesNode(lines);
}

Status SessionLink::Read(const std::string& path, std::string& content) const {
    Status status = PassingFiles::Read(path, content);
    if (!status.Ok() || path != settings_) return status;
    SettingsLines lines = SplitSettings(content);
    if (lines == SettingsLines{}) return status;
    fileLine1_ = NormaliseLine1(lines.SettingsLine1);
    if (!Covers(path, lines)) return status;
    lines.SettingsLine1 = WithLinkOf(fileLine1_, *choice_);
    content = FormatSettings(lines);
    return status;
}

// A file that is gone or empty is laid down again with the link that it had.
Status SessionLink::Write(const std::string& path, std::string_view content) {
    SettingsLines lines = SplitSettings(content);
    if (!Covers(path, lines)) return PassingFiles::Write(path, content);
    std::string text;
    const bool there = PassingFiles::Read(path, text).Ok();
    const SettingsLines now = SplitSettings(text);
    if (there && now != SettingsLines{}) fileLine1_ = NormaliseLine1(now.SettingsLine1);
    const std::string link = std::exchange(lines.SettingsLine1, WithLinkOf(lines.SettingsLine1, fileLine1_));
    Status status = there && lines == now ? Status{} : PassingFiles::Write(path, FormatSettings(lines));
    if (status.Ok()) Choose(link);
    return status;
}

void SessionLink::Choose(std::optional<std::string> line1) {
    choice_ = std::move(line1);
    if (choice_ && WithLinkOf(fileLine1_, *choice_) == fileLine1_) choice_.reset();
    switched_ = switched_ || choice_;
}

// What the lock gives to change has the choice in it already.
Status SessionLink::Keep(const SettingsWait& wait) {
    if (!choice_) return {};
    ProgramFolder folder{*this, settings_.substr(0, settings_.rfind('/'))};
    return ChangeSettings(folder, wait, [this](SettingsLines& lines) {
        Status status = PassingFiles::Write(settings_, FormatSettings(lines));
        if (!status.Ok()) return status;
        choice_.reset();
        fileLine1_ = lines.SettingsLine1;
        return status;
    });
}

}  // namespace counter

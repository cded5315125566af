#include "cli/failure_page.h"

#include "cli/cli_output.h"
#include "settings/settings.h"

namespace counter {

std::string FailureSection(int linkError, ErrorSource source) {
    if (linkError >= LinkErrors::kNodeNoReply) return std::to_string(linkError);
    return source == ErrorSource::Refusal ? "the-meter-refused" : "1-to-16";
}

std::string FailureSection(const Status& status) {
    const bool settings = status.Path.ends_with(kSettingsFile);
    switch (status.Kind) {
        case StatusKind::NotFound:
            return settings ? "no-settings" : "no-adaptor-is-listed";
        case StatusKind::NoPermission:
            return settings ? "" : "permission-denied";
        case StatusKind::Busy:
            return settings ? "" : "the-port-is-busy";
        default:
            return "";
    }
}

std::string SeePage(const std::string& section) {
    return "see docs/when-something-fails.md#" + section;
}

void TellPage(const CliWorld& world, const std::string& section) {
    Complain(world) << SeePage(section) << "\n";
}

}  // namespace counter

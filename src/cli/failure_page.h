// The page of the docs about failures: each failed action names its section on standard error.
#pragma once

#include <string>

#include "cli/cli_world.h"
#include "link/link_error.h"
#include "platform/status.h"

namespace counter {

// The section of a number, as the end of a link: "21", "1-to-16", "the-meter-refused".
std::string FailureSection(int linkError, ErrorSource source);
// Of settings or a port that can't be used; empty where the page has none.
std::string FailureSection(const Status& status);

inline constexpr const char* kDoubtSection = "not-all-of-what-came-can-be-right";
inline constexpr const char* kNodeSection = "the-node-does-not-call";

// "see docs/when-something-fails.md#SECTION"
std::string SeePage(const std::string& section);
// The same as a line on standard error.
void TellPage(const CliWorld& world, const std::string& section);

}  // namespace counter

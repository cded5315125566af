// Setup files of commands that only look: what is no setup is shown as far as it goes, and told.
#pragma once

#include <string>

#include "cli/cli.h"
#include "meter/setup_image.h"
#include "platform/status.h"

namespace counter {

// Reads a file into the image as the Setup view would. One that is not 260 hexadecimal digits gets a line on
// standard error that says what is wrong; a file that can't be read leaves the image as it was.
Status LoadAndTell(const CommandCall& call, const std::string& path, SetupImage& image);

}  // namespace counter

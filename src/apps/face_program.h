// counter-face: the window of a simulated meter's face. It shows the lines that come on standard input, one
// for each change, and ends with them:
//
//   DIGITS POINT MINUS ALARMS ITEM REMOTE
//   ..1234 5 0 0100 1 0     six characters with "." for a blank digit; the digit behind which the point is
//   lit,
//                           1 to 6; 1 for a negative value; alarms 1 to 4; the Item that is shown, 0 to 3; 1
//                           for a remote value
#pragma once

#include <optional>
#include <string>

#include "desktop/pages/face_widget.h"

namespace counter {

// Nothing where the line is not of that form.
std::optional<FaceText> ParseFaceLine(const std::string& line);

int RunFaceProgram(int argc, char** argv);

}  // namespace counter

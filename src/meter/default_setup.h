// The setup to start from without a meter or a file: a complete, legal image of a Counter of version 83.
#pragma once

#include "meter/setup_image.h"

namespace counter {

// Replaces the image as a whole, 260 digits.
void BuildDefaultSetup(SetupImage& image);

}  // namespace counter

// An image of zeros with some digits put in, for tests.
#pragma once

#include <string_view>

#include "meter/setup_image.h"

namespace counter {

inline SetupImage With(int pos, std::string_view digits) {
    SetupImage image;
    image.SetupData.replace(static_cast<std::size_t>(pos) - 1, digits.size(), digits);
    return image;
}

}  // namespace counter

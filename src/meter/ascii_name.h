// Names of character codes, for labels beside the fields that hold one.
#pragma once

#include <string>

namespace counter {

// Three characters for the control codes 0..32, trailing blanks included ("cr ", "sp "); from 33 to 255 the
// character itself, one byte; an empty text for any other number.
std::string AsciiName(int code);

}  // namespace counter

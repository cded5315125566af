// The scale that a chart was last run with, kept over the end of the program in a small file of its folder.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/program_folder.h"

namespace counter {

inline constexpr const char* kScalesFile = "chart-scales.txt";

// The three numbers as they were typed: middle, small division, and time or count.
using ScaleTexts = std::array<std::string, 3>;

// Lines of "VIEW<tab>MIDDLE<tab>SMALL<tab>THIRD". Empty texts where there is none, or no such file.
ScaleTexts KeptScale(const ProgramFolder& folder, std::string_view view);
// Keeps those of other views. A folder that can't be written keeps nothing, which is no failure of the run.
void KeepScale(const ProgramFolder& folder, std::string_view view, const ScaleTexts& texts);

}  // namespace counter

// Text in columns, for people.
#pragma once

#include <string>
#include <vector>

namespace counter {

// Lines in columns as wide as their widest cell, two blanks between them.
std::string Columns(const std::vector<std::vector<std::string>>& lines);

}  // namespace counter

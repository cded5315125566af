// Files of counter-sim: image files and the symbolic link. Each returns an empty text, or what failed and the
// system's reason.
#pragma once

#include <string>

namespace sim {

// An image file: one line of 260 hexadecimal digits.
std::string ReadImageFile(const std::string& path, std::string& image);
// Whole or not at all: at any moment the old or the new file is under `path`.
std::string WriteImageFile(const std::string& path, const std::string& image);

// Makes `path` a symbolic link to `target`; replaces a link, never a file.
std::string PointLink(const std::string& path, const std::string& target);
// Removes the link if it still names `target`.
void RemoveLink(const std::string& path, const std::string& target);

}  // namespace sim

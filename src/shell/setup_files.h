// Setup files, extension ".CT2": the image as one line of hexadecimal digits, CR LF. No header, no check.
#pragma once

#include <string>
#include <string_view>

#include "meter/setup_image.h"
#include "platform/files.h"

namespace counter {

// The image that a file's text holds: its first line, filled up with "0" to 260 digits. Longer text stays,
// and so does what is no hexadecimal digit; faults show at field level.
SetupImage ImageOfText(std::string_view text);
std::string TextOfImage(const SetupImage& image);

// A file that can't be read leaves the image as it was.
Status LoadSetupFile(const FileReader& files, const std::string& path, SetupImage& image);
// The same, telling in `whyNoSetup` what keeps the file's line from being a whole setup; empty for one that
// is.
Status LoadSetupFile(const FileReader& files, const std::string& path, SetupImage& image,
                     std::string& whyNoSetup);
// How the reason begins for a file that was refused for what is in it.
inline constexpr const char* kIsNoSetup = "is no setup";

// The same for a setup that is to go into a meter: a file that is not one line of 260 hexadecimal digits is
// Illegal, with what is wrong with it, and `image` stays as it was.
Status LoadWholeSetupFile(const FileReader& files, const std::string& path, SetupImage& image);
// The same for a setup that is to be changed and written: a file that can be no setup at all is Illegal.
Status LoadSetupToChange(const FileReader& files, const std::string& path, SetupImage& image);

Status SaveSetupFile(Files& files, const std::string& path, const SetupImage& image);

}  // namespace counter

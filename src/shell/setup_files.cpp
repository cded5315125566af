#include "shell/setup_files.h"

#include <algorithm>

namespace counter {

SetupImage ImageOfText(std::string_view text) {
    SetupImage image;
    image.SetupData = std::string(text.substr(0, std::min(text.find_first_of("\r\n"), text.size())));
    if (image.SetupData.size() < kImageDigits) image.SetupData.resize(kImageDigits, '0');
    return image;
}

std::string TextOfImage(const SetupImage& image) {
    return image.SetupData + "\r\n";
}

Status LoadSetupFile(const FileReader& files, const std::string& path, SetupImage& image) {
    std::string text;
    Status status = files.Read(path, text);
    if (status.Ok()) image = ImageOfText(text);
    return status;
}

Status SaveSetupFile(Files& files, const std::string& path, const SetupImage& image) {
    return files.Write(path, TextOfImage(image));
}

}  // namespace counter

#include "shell/setup_files.h"

#include <algorithm>

namespace counter {

namespace {

std::string_view FirstLine(std::string_view text) {
    return text.substr(0, std::min(text.find_first_of("\r\n"), text.size()));
}

}  // namespace

SetupImage ImageOfText(std::string_view text) {
    SetupImage image;
    image.SetupData = std::string(FirstLine(text));
    if (image.SetupData.size() < kImageDigits) image.SetupData.resize(kImageDigits, '0');
    return image;
}

std::string TextOfImage(const SetupImage& image) {
    return image.SetupData + "\r\n";
}

Status LoadSetupFile(const FileReader& files, const std::string& path, SetupImage& image,
                     std::string& whyNoSetup) {
    std::string text;
    Status status = files.Read(path, text);
    if (!status.Ok()) return status;
    image = ImageOfText(text);
    whyNoSetup = WhyNoWholeSetup(FirstLine(text));
    return status;
}

Status LoadSetupFile(const FileReader& files, const std::string& path, SetupImage& image) {
    std::string ignored;
    return LoadSetupFile(files, path, image, ignored);
}

Status SaveSetupFile(Files& files, const std::string& path, const SetupImage& image) {
    return files.Write(path, TextOfImage(image));
}

}  // namespace counter

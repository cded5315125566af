#include "shell/setup_files.h"

#include <algorithm>

namespace counter {

namespace {

std::string_view FirstLine(std::string_view text) {
    return text.substr(0, std::min(text.find_first_of("\r\n"), text.size()));
}

Status NoSetup(const std::string& path, const std::string& why) {
    return {StatusKind::Illegal, path, std::string(kIsNoSetup) + ": " + why};
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

Status LoadWholeSetupFile(const FileReader& files, const std::string& path, SetupImage& image) {
    std::string text;
    if (Status status = files.Read(path, text); !status.Ok()) return status;
    std::string why = WhyNoWholeSetup(FirstLine(text));
    if (why.empty() && text.find_first_not_of("\r\n", kImageDigits) != std::string::npos)
        why = "more than one line";
    if (!why.empty()) return NoSetup(path, why);
    image = ImageOfText(text);
    return {};
}

Status LoadSetupToChange(const FileReader& files, const std::string& path, SetupImage& image) {
    std::string text;
    if (Status status = files.Read(path, text); !status.Ok()) return status;
    const std::string_view digits = FirstLine(text);
    if (!CanBeSetup(digits)) return NoSetup(path, WhyNoWholeSetup(digits));
    image = ImageOfText(text);
    return {};
}

Status SaveSetupFile(Files& files, const std::string& path, const SetupImage& image) {
    return files.Write(path, TextOfImage(image));
}

}  // namespace counter

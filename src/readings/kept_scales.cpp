#include "readings/kept_scales.h"

#include <sstream>

#include "meter/text.h"

namespace counter {

namespace {

bool IsOf(const std::string& line, std::string_view view) {
    return line.starts_with(view) && line.substr(view.size(), 1) == "\t";
}

std::string Content(const ProgramFolder& folder) {
    std::string content;
    folder.Store.Read(folder.At(kScalesFile), content);
    return content;
}

}  // namespace

ScaleTexts KeptScale(const ProgramFolder& folder, std::string_view view) {
    ScaleTexts texts;
    std::istringstream lines(Content(folder));
    for (std::string line; std::getline(lines, line);) {
        if (!IsOf(line, view)) continue;
        std::istringstream cells(line.substr(view.size() + 1));
        for (std::string& text : texts) std::getline(cells, text, '\t');
    }
    return texts;
}

void KeepScale(const ProgramFolder& folder, std::string_view view, const ScaleTexts& texts) {
    if (KeptScale(folder, view) == texts) return;
    std::string content;
    std::istringstream lines(Content(folder));
    for (std::string line; std::getline(lines, line);) {
        if (!IsOf(line, view)) content += line + "\n";
    }
    content += view;
    for (const std::string& text : texts) content += "\t" + text;
    folder.Store.Write(folder.At(kScalesFile), content + "\n");
}

}  // namespace counter

// A pair of help files of any bytes: the text that the index names, or none. Two bytes of number, then two of
// the index file's length; the rest is index and text.
#include "fuzz_input.h"
#include "help/help_text.h"
#include "support/memory_files.h"

using namespace counter;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4) return 0;
    const int helpId = data[0] * 256 + data[1];
    const std::string_view rest = fuzz::TextOf(data + 4, size - 4);
    const std::size_t indexSize = std::min<std::size_t>(data[2] * 256U + data[3], rest.size());
    const std::string number = std::to_string(helpId / 100);
    const std::string name = "help/Help" + std::string(number.size() < 2 ? " " : "") + number;
    test::MemoryFiles files;
    files.Contents[name + ".R10"] = rest.substr(0, indexSize);
    files.Contents[name + ".S10"] = rest.substr(indexSize);

    const auto text = ReadHelpText(files, "help", helpId);
    const auto plain = LoadHelpText(files, "help", helpId);
    fuzz::Require(text.has_value() == plain.has_value());
    if (!text) return 0;
    fuzz::Require(rest.substr(indexSize).find(*text) != std::string_view::npos);
    fuzz::Require(plain->size() == text->size() && plain->find('$') == std::string::npos);
    std::string joined;
    for (const HelpSegment& segment : HelpSegments(*text)) joined += segment.Text;
    fuzz::Require(joined.find('$') == std::string::npos && joined.size() <= text->size());
    return 0;
}

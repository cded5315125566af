#include "help/batch_help.h"

#include <string_view>

namespace counter {

namespace {

constexpr std::string_view kMargin = "    ";

std::string WithMargin(std::string_view content, int entries) {
    std::string text;
    for (int i = 0; i < entries && !content.empty(); ++i) {
        const std::string_view line = content.substr(0, content.find('\n'));
        content.remove_prefix(line.size() < content.size() ? line.size() + 1 : line.size());
        text.append(kMargin).append(line).append("\r\n");
    }
    return text;
}

}  // namespace

std::optional<std::string> BatchHelpText(const FileReader& files, const std::vector<std::string>& folders,
                                         BatchHelpKind kind) {
    const bool rate = kind == BatchHelpKind::Rate;
    for (const std::string& folder : folders) {
        std::string content;
        if (!files.Read(folder + (rate ? "/rate_batch.txt" : "/vf_batch.txt"), content).Ok()) continue;
        return WithMargin(content, rate ? kRateBatchEntries : kVFBatchEntries);
    }
    return {};
}

}  // namespace counter

#include "help/help_text.h"

#include <algorithm>
#include <cstdint>

namespace counter {

namespace {

constexpr int kRecordsOfPair = 100;  // 1 to 99 in use
constexpr int kMostHelpId = 9999;    // two characters of n
constexpr std::size_t kRecordBytes = 6;

struct Record {
    std::int32_t Position = 0;  // from 1
    std::int16_t Length = 0;    // characters
};

std::uint32_t ByteAt(const std::string& bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

std::optional<Record> RecordOf(const std::string& index, int number) {
    const std::size_t at = static_cast<std::size_t>(number - 1) * kRecordBytes;
    if (index.size() < at + kRecordBytes) return {};
    const std::uint32_t position = ByteAt(index, at) | ByteAt(index, at + 1) << 8 |
                                   ByteAt(index, at + 2) << 16 | ByteAt(index, at + 3) << 24;
    const std::uint32_t length = ByteAt(index, at + 4) | ByteAt(index, at + 5) << 8;
    return Record{static_cast<std::int32_t>(position), static_cast<std::int16_t>(length)};
}

std::optional<std::string> TextOf(const std::string& texts, const Record& record) {
    if (record.Position < 1 || record.Length < 0) return {};
    const std::size_t start = static_cast<std::size_t>(record.Position) - 1;
    const std::size_t length = static_cast<std::size_t>(record.Length);
    if (start > texts.size() || length > texts.size() - start) return {};
    return texts.substr(start, length);
}

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

std::optional<std::string> ReadHelpText(const FileReader& files, const std::string& folder, int helpId) {
    const int record = helpId % kRecordsOfPair;
    if (helpId < 1 || helpId > kMostHelpId || record == 0) return {};
    const int n = helpId / kRecordsOfPair;
    const std::string pair = folder + (n < 10 ? "/Help " : "/Help") + std::to_string(n);
    std::string index;
    std::string texts;
    if (!files.Read(pair + ".R10", index).Ok() || !files.Read(pair + ".S10", texts).Ok()) return {};
    const std::optional<Record> found = RecordOf(index, record);
    return found ? TextOf(texts, *found) : std::nullopt;
}

std::optional<std::string> FirstHelpText(const FileReader& files, const std::vector<std::string>& folders,
                                         int helpId) {
    for (const std::string& folder : folders) {
        if (std::optional<std::string> text = ReadHelpText(files, folder, helpId)) return text;
    }
    return {};
}

std::optional<std::string> LoadHelpText(const FileReader& files, const std::string& folder, int helpId) {
    std::optional<std::string> text = ReadHelpText(files, folder, helpId);
    if (text) std::replace(text->begin(), text->end(), '$', ' ');
    return text;
}

std::vector<HelpSegment> HelpSegments(std::string_view text) {
    std::vector<HelpSegment> segments;
    auto add = [&segments](std::string_view part, bool emphasised) {
        if (!part.empty()) segments.push_back({std::string(part), emphasised});
    };
    bool emphasised = false;
    for (std::size_t mark; (mark = text.find('$')) != std::string_view::npos; emphasised = !emphasised) {
        add(text.substr(0, mark), emphasised);
        text.remove_prefix(mark + 1);
    }
    add(text, false);
    return segments;
}

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

#include "tools/help/help_pairs.h"

#include <algorithm>

namespace help_tool {

namespace {

constexpr int kRecordsOfPair = 99;
constexpr std::size_t kRecordBytes = 6;
constexpr std::size_t kMostLength = 32767;  // two signed bytes

std::string LittleEndian(std::size_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

std::string Record(std::size_t position, std::size_t length) {
    return LittleEndian(position, 4) + LittleEndian(length, 2);
}

std::string EmptyIndex() {
    std::string index;
    for (int i = 0; i < kRecordsOfPair; ++i) index += Record(1, 0);
    return index;
}

// The text of an entry with the one that follows it.
std::string WholeText(const Entry& entry, const std::vector<Entry>& entries, std::vector<Fault>& faults) {
    if (entry.Follows == 0) return entry.Text;
    for (const Entry& other : entries) {
        const bool meant =
            std::find(other.Numbers.begin(), other.Numbers.end(), entry.Follows) != other.Numbers.end();
        if (meant && other.Follows == 0) return entry.Text + "\r\n\r\n" + other.Text;
    }
    faults.push_back({entry.File, entry.Line, "no text " + std::to_string(entry.Follows) + " can follow"});
    return entry.Text;
}

}  // namespace

std::map<int, Pair> MakePairs(const std::vector<Entry>& entries, std::vector<Fault>& faults) {
    std::map<int, Pair> pairs;
    std::map<int, const Entry*> owners;
    for (const Entry& entry : entries) {
        const std::string text = WholeText(entry, entries, faults);
        if (text.size() > kMostLength) {
            faults.push_back({entry.File, entry.Line, "a text of more than 32767 characters"});
            continue;
        }
        std::map<int, std::size_t> positions;  // by n: a text stands once in each pair that shows it
        for (int number : entry.Numbers) {
            const auto [owner, isNew] = owners.emplace(number, &entry);
            if (!isNew) {
                faults.push_back({entry.File, entry.Line,
                                  std::to_string(number) + " stands already in " + owner->second->File + ":" +
                                      std::to_string(owner->second->Line)});
                continue;
            }
            Pair& pair = pairs[number / 100];
            if (pair.Index.empty()) pair.Index = EmptyIndex();
            const auto [position, isFirst] = positions.emplace(number / 100, pair.Texts.size() + 1);
            if (isFirst) pair.Texts += text;
            const std::size_t record = static_cast<std::size_t>(number % 100 - 1);
            pair.Index.replace(record * kRecordBytes, kRecordBytes, Record(position->second, text.size()));
        }
    }
    return pairs;
}

std::string PairName(int n) {
    return (n < 10 ? "Help " : "Help") + std::to_string(n);
}

}  // namespace help_tool

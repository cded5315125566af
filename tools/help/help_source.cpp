#include "tools/help/help_source.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace help_tool {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr int kMostNumber = 9999;  // two digits name the pair of files, two the record
constexpr int kRecords = 100;      // record 0 doesn't exist

struct Heading {
    std::vector<int> Numbers;
    int Follows = 0;
    bool Fixed = false;
    bool Plain = false;
    std::string Title;
};

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// 0 for anything but the number of a record.
int HelpNumber(std::string_view word) {
    int number = 0;
    const char* end = word.data() + word.size();
    const auto [rest, error] = std::from_chars(word.data(), end, number);
    const bool legal = error == std::errc() && rest == end && number > 0 && number <= kMostNumber;
    return legal && number % kRecords != 0 ? number : 0;
}

class Reader {
  public:
    Reader(const std::string& file, std::vector<Entry>& entries, std::vector<Fault>& faults)
        : file_(file), entries_(entries), faults_(faults) {}

    void Line(std::string_view line) {
        ++line_;
        if (!line.empty() && line.front() == '#') return;
        if (std::any_of(line.begin(), line.end(), [](char c) { return c < ' ' || c > '~'; })) {
            Refuse(line_, "a character that is not printable ASCII");
        } else if (!line.empty() && line.front() == '[') {
            Open(line);
        } else if (entries_.size() == before_) {
            if (!Trim(line).empty()) Refuse(line_, "text in front of the first heading");
        } else if (fixed_) {
            lines_.push_back(std::string(line));
        } else {
            Flow(line);
        }
    }

    void Close() {
        if (entries_.size() == before_) return;
        EndBlock();
        while (!lines_.empty() && Trim(lines_.back()).empty()) lines_.pop_back();
        if (lines_.empty()) Refuse(entries_.back().Line, "an entry without text");
        for (const std::string& line : lines_) entries_.back().Text.append(kLineEnd).append(line);
        lines_.clear();
    }

  private:
    void Refuse(int line, std::string reason) { faults_.push_back({file_, line, std::move(reason)}); }

    void Open(std::string_view line) {
        Close();
        Heading heading = HeadingOf(line);
        fixed_ = heading.Fixed;
        plain_ = heading.Plain;
        std::string title = fixed_ || plain_ ? heading.Title : "$" + heading.Title + "$";
        entries_.push_back(
            {std::move(heading.Numbers), file_, line_, title.append(kLineEnd), heading.Follows});
    }

    Heading HeadingOf(std::string_view line) {
        Heading heading;
        const std::size_t end = std::min(line.find(']'), line.size());
        std::string_view words = line.substr(1, end - 1);
        while (!(words = Trim(words)).empty()) {
            const std::string_view word = words.substr(0, words.find(' '));
            words.remove_prefix(word.size());
            if (!Takes(heading, word)) Refuse(line_, "\"" + std::string(word) + "\" is no help number");
        }
        if (heading.Numbers.empty()) Refuse(line_, "a heading without a number");
        heading.Title = Trim(line.substr(std::min(end + 1, line.size())));
        if (heading.Title.empty() || heading.Title.find_first_of("*$") != std::string::npos) {
            Refuse(line_, "a heading needs a title without \"*\" and \"$\"");
        }
        return heading;
    }

    // A word between the brackets; false: it means nothing.
    static bool Takes(Heading& heading, std::string_view word) {
        if (word == "fixed") return heading.Fixed = true;
        if (word == "plain") return heading.Plain = true;
        if (word.starts_with('+')) return (heading.Follows = HelpNumber(word.substr(1))) > 0;
        const int number = HelpNumber(word);
        if (number > 0) heading.Numbers.push_back(number);
        return number > 0;
    }

    void Flow(std::string_view line) {
        const std::string_view words = Trim(line);
        if (words.empty()) {
            EndBlock();
            if (!lines_.empty() && !lines_.back().empty()) lines_.emplace_back();
            return;
        }
        if (words.starts_with("- ")) EndBlock();
        if (block_.empty()) blockLine_ = line_;
        block_.append(block_.empty() ? "" : " ").append(words);
    }

    void EndBlock() {
        if (block_.empty()) return;
        lines_.push_back(Marked());
        block_.clear();
    }

    // The block with marks of emphasis for its asterisks.
    std::string Marked() {
        std::string text;
        bool emphasised = false;
        for (std::size_t i = 0; i < block_.size(); ++i) {
            if (block_[i] == '$') Refuse(blockLine_, "\"$\" is the mark of emphasis");
            if (block_.compare(i, 2, "\\*") == 0) {
                text += block_[++i];
            } else if (block_[i] == '*') {
                if (plain_) Refuse(blockLine_, "emphasis in a plain text");
                text += '$';
                emphasised = !emphasised;
            } else {
                text += block_[i];
            }
        }
        if (emphasised) Refuse(blockLine_, "unpaired emphasis");
        return text;
    }

    const std::string& file_;
    std::vector<Entry>& entries_;
    std::vector<Fault>& faults_;
    const std::size_t before_ = entries_.size();

    int line_ = 0;
    bool fixed_ = false;
    bool plain_ = false;
    std::vector<std::string> lines_;  // of the entry in hand
    std::string block_;               // paragraph or item in hand
    int blockLine_ = 0;
};

}  // namespace

void ReadHelpSource(const std::string& file, std::string_view content, std::vector<Entry>& entries,
                    std::vector<Fault>& faults) {
    Reader reader(file, entries, faults);
    while (!content.empty()) {
        const std::size_t end = std::min(content.find('\n'), content.size());
        reader.Line(content.substr(0, end));
        content.remove_prefix(std::min(end + 1, content.size()));
    }
    reader.Close();
}

}  // namespace help_tool

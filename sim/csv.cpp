#include "sim/csv.h"

#include <utility>

namespace sim {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Takes the text apart, row by row.
class CsvText {
  public:
    explicit CsvText(std::string_view text) : text_(text) {
        if (text_.starts_with(kByteOrderMark)) text_.remove_prefix(kByteOrderMark.size());
        mark_ = text_.substr(0, text_.find('\n')).find(';') != std::string_view::npos ? ';' : ',';
    }

    bool AtEnd() const { return at_ >= text_.size(); }

    // Empty, or what is wrong.
    std::string TakeRow(CsvRow& row) {
        row.Line = line_;
        do {
            std::string cell;
            const int line = line_;
            if (!(Next() == '"' ? TakeQuoted(cell) : TakePlain(cell)))
                return CsvPlace(line, row.Cells.size() + 1) + ": a quote that nothing ends, or text after it";
            row.Cells.push_back(std::move(cell));
        } while (Skip(mark_));
        Skip('\r');
        if (Skip('\n')) ++line_;
        return "";
    }

  private:
    char Next() const { return AtEnd() ? '\n' : text_[at_]; }
    bool Skip(char c) {
        const bool there = !AtEnd() && text_[at_] == c;
        at_ += there ? 1 : 0;
        return there;
    }
    bool EndsCell() const { return Next() == mark_ || Next() == '\n' || Next() == '\r'; }

    bool TakePlain(std::string& cell) {
        while (!EndsCell()) cell += text_[at_++];
        return true;
    }

    bool TakeQuoted(std::string& cell) {
        ++at_;
        for (; !AtEnd(); ++at_) {
            if (text_[at_] == '"' && text_.substr(at_ + 1, 1) != "\"") {
                ++at_;
                return EndsCell();
            }
            if (text_[at_] == '"') ++at_;
            if (text_[at_] == '\n') ++line_;
            cell += text_[at_];
        }
        return false;
    }

    std::string_view text_;
    char mark_ = ',';
    std::size_t at_ = 0;
    int line_ = 1;
};

}  // namespace

std::string CsvPlace(int line, std::size_t column) {
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

std::string ReadCsv(std::string_view text, std::vector<CsvRow>& rows) {
    CsvText csv(text);
    while (!csv.AtEnd()) {
        CsvRow row;
        if (auto wrong = csv.TakeRow(row); !wrong.empty()) return wrong;
        if (row.Cells.size() > 1 || !row.Cells.front().empty()) rows.push_back(std::move(row));
    }
    return "";
}

}  // namespace sim

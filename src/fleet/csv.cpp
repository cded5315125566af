#include "fleet/csv.h"

#include <algorithm>

namespace counter {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Quoted separators of the heading count for none.
char SeparatorOf(std::string_view text) {
    int commas = 0, semicolons = 0;
    bool quoted = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        if (quoted) continue;
        if (c == '\n') break;
        commas += c == ',' ? 1 : 0;
        semicolons += c == ';' ? 1 : 0;
    }
    return semicolons > commas ? ';' : ',';
}

class CsvReader {
  public:
    explicit CsvReader(std::string_view text) : rest_(text) { table_.Separator = SeparatorOf(text); }

    CsvTable Read() {
        while (!rest_.empty() && table_.Fault.empty()) {
            table_.Rows.emplace_back();
            while (TakeCell()) {
            }
        }
        return std::move(table_);
    }

  private:
    bool AtEndOfRow() const { return rest_.empty() || rest_[0] == '\n' || rest_.starts_with("\r\n"); }

    bool Refuse(const std::string& fault) {
        table_.Fault = fault;
        table_.FaultRow = static_cast<int>(table_.Rows.size());
        return false;
    }

    // Takes a cell and what ends it; false behind the last one of a row.
    bool TakeCell() {
        std::string cell;
        if (!(rest_.starts_with('"') ? TakeQuoted(cell) : TakePlain(cell))) return false;
        table_.Rows.back().push_back(std::move(cell));
        if (AtEndOfRow()) {
            rest_.remove_prefix(rest_.empty() ? 0 : rest_[0] == '\r' ? 2 : 1);
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    bool TakePlain(std::string& cell) {
        while (!AtEndOfRow() && rest_[0] != table_.Separator) {
            if (rest_[0] == '"')
                return Refuse("a quote within a cell: the whole cell goes into quotes, the quote doubled");
            cell += rest_[0];
            rest_.remove_prefix(1);
        }
        return true;
    }

    bool TakeQuoted(std::string& cell) {
        for (rest_.remove_prefix(1); !rest_.empty(); rest_.remove_prefix(1)) {
            if (rest_[0] == '"') {
                rest_.remove_prefix(1);
                if (AtEndOfRow() || rest_[0] == table_.Separator) return true;
                if (rest_[0] != '"') return Refuse("text behind the quote that closes a cell");
            }
            cell += rest_[0];
        }
        return Refuse("a quote is not closed");
    }

    std::string_view rest_;
    CsvTable table_;
};

// How many bytes go on from the first one of a character, and the least and most that the next may be: no
// character has two spellings, none is half of a pair, none lies above U+10FFFF.
struct Utf8Form {
    int More = -1;
    unsigned char Least = 0x80, Most = 0xBF;
};

Utf8Form FormOf(unsigned char first) {
    if (first < 0x80) return {0};
    if (first < 0xC2) return {};
    if (first < 0xE0) return {1};
    if (first == 0xE0) return {2, 0xA0, 0xBF};
    if (first == 0xED) return {2, 0x80, 0x9F};
    if (first < 0xF0) return {2};
    if (first == 0xF0) return {3, 0x90, 0xBF};
    if (first < 0xF4) return {3};
    if (first == 0xF4) return {3, 0x80, 0x8F};
    return {};
}

// The length of the part that is UTF-8.
std::size_t Utf8Length(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
        const Utf8Form form = FormOf(static_cast<unsigned char>(text[i]));
        if (form.More < 0 || i + static_cast<std::size_t>(form.More) >= text.size()) return i;
        for (int k = 1; k <= form.More; ++k) {
            const auto next = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
            if (next < (k == 1 ? form.Least : 0x80) || next > (k == 1 ? form.Most : 0xBF)) return i;
        }
        i += static_cast<std::size_t>(form.More) + 1;
    }
    return i;
}

int RowAt(std::string_view text, std::size_t place) {
    return 1 + static_cast<int>(
                   std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
}

}  // namespace

CsvTable ReadCsv(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    const std::size_t good = std::min(Utf8Length(text), text.find('\0'));
    if (good >= text.size()) return CsvReader(text).Read();
    CsvTable table;
    table.Fault = "is not UTF-8; spreadsheets save it as \"CSV UTF-8\"";
    table.FaultRow = RowAt(text, good);
    return table;
}

}  // namespace counter

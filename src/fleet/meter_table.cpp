#include "fleet/meter_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>

#include "fleet/csv.h"
#include "meter/field_table.h"
#include "meter/meter_words.h"
#include "meter/text.h"
#include "settings/settings.h"

namespace counter {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t kLongestName = 100;  // with ".CT2" behind it a file name of any system

namespace Place {
enum Code : int { Name, Line, Protocol, Baud, Address, Setup, Echo, Version, Count };
}
constexpr std::array<std::string_view, Place::Count> kColumnNames = {
    "name", "line", "protocol", "baud", "address", "setup", "echo", "version"};
constexpr int kNoColumn = -1;

std::optional<int> WholeNumberOf(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<int> ProtocolOf(const std::string& text) {
    constexpr std::array<std::string_view, 3> kShort = {"ascii", "rtu", "modbus-ascii"};
    const auto& entries = RowOf(Field::SerialProtocol).Entries;
    for (std::size_t i = 0; i < kShort.size(); ++i) {
        if (SmallLetters(text) == kShort[i] || SmallLetters(text) == SmallLetters(Trimmed(entries[i])))
            return static_cast<int>(i);
    }
    return std::nullopt;
}

std::optional<int> BaudIndexOf(const std::string& text) {
    const auto found = std::find(BaudTable.begin(), BaudTable.end() - 1, text);
    if (found == BaudTable.end() - 1) return std::nullopt;
    return static_cast<int>(found - BaudTable.begin());
}

// It becomes the name of a folder and of a file.
std::string WhyNoMeterName(const std::string& name) {
    if (name.empty()) return "is empty";
    if (name.size() > kLongestName) return "is longer than 100 bytes";
    const bool control = std::any_of(
        name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
    if (control || name[0] == '.' || name.find('/') != std::string::npos)
        return "\"" + name +
               "\" can't be the name of a file: no / and no control character, no point in front";
    return {};
}

// Where the cells have semicolons between them, a spreadsheet writes numbers with a comma.
std::string WithPoint(std::string text) {
    const std::size_t comma = text.find(',');
    const bool number = comma != std::string::npos &&
                        text.find_first_not_of("0123456789", comma + 1) == std::string::npos &&
                        text.find_first_not_of("+-0123456789") == comma;
    if (number) text[comma] = '.';
    return text;
}

class TableReader {
  public:
    TableReader(std::string folder, const FileReader& files) : folder_(std::move(folder)), files_(files) {
        places_.fill(kNoColumn);
    }

    MeterTable Read(const CsvTable& csv, const WhyNoField& whyNoField) {
        if (!csv.Fault.empty()) Tell(csv.FaultRow, "", csv.Fault);
        if (csv.Rows.empty() && csv.Fault.empty()) Tell(0, "", "is empty");
        if (table_.Faults.empty()) TakeHeading(csv.Rows[0], whyNoField);
        separator_ = csv.Separator;
        for (std::size_t i = 1; i < csv.Rows.size() && whole_; ++i)
            TakeRow(static_cast<int>(i) + 1, csv.Rows[i]);
        if (table_.Faults.empty() && table_.Meters.empty()) Tell(0, "", "has no meter below its heading");
        return std::move(table_);
    }

  private:
    void Tell(int row, const std::string& column, const std::string& text) {
        table_.Faults.push_back({row, column, text});
    }

    void TakeHeading(const std::vector<std::string>& cells, const WhyNoField& whyNoField) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            TakeColumn(static_cast<int>(i), std::string(Trimmed(cells[i], kBlanks)), whyNoField);
        whole_ = true;
        for (int column = 0; column < Place::Count; ++column) {
            if (column >= Place::Echo || places_[static_cast<std::size_t>(column)] != kNoColumn) continue;
            Tell(1, "",
                 "has no column \"" + std::string(kColumnNames[static_cast<std::size_t>(column)]) + "\"");
            whole_ = false;
        }
    }

    void TakeColumn(int place, const std::string& name, const WhyNoField& whyNoField) {
        const std::string small = SmallLetters(name);
        heading_.push_back(name);
        isValue_.push_back(false);
        const auto found = std::find(kColumnNames.begin(), kColumnNames.end(), small);
        if (found != kColumnNames.end()) {
            int& own = places_[static_cast<std::size_t>(found - kColumnNames.begin())];
            if (own == kNoColumn) {
                own = place;
                return;
            }
        }
        const std::string why = name.empty() ? "has no name" : whyNoField(name);
        const bool again =
            std::any_of(table_.ValueColumns.begin(), table_.ValueColumns.end(),
                        [&](const std::string& other) { return SmallLetters(other) == small; });
        if (!why.empty() || again) {
            Tell(1, name.empty() ? std::to_string(place + 1) : name, again ? "is there twice" : why);
            return;
        }
        isValue_.back() = true;
        table_.ValueColumns.push_back(name);
    }

    std::string Cell(const std::vector<std::string>& cells, Place::Code column) const {
        const int place = places_[column];
        return place == kNoColumn ? std::string()
                                  : std::string(Trimmed(cells[static_cast<std::size_t>(place)], kBlanks));
    }

    void TakeRow(int row, const std::vector<std::string>& cells) {
        if (std::all_of(cells.begin(), cells.end(),
                        [](const auto& cell) { return Trimmed(cell, kBlanks).empty(); }))
            return;
        if (cells.size() != heading_.size()) {
            return Tell(row, "",
                        "has " + std::to_string(cells.size()) + " cells, the heading has " +
                            std::to_string(heading_.size()));
        }
        const std::size_t before = table_.Faults.size();
        TableMeter meter;
        meter.Row = row;
        TakeName(meter, Cell(cells, Place::Name));
        if (const std::string why = ReadTableLine(Cell(cells, Place::Line), folder_, files_, meter.Line);
            !why.empty())
            Tell(row, "line", why);
        TakePlace(meter, cells);
        meter.SetupText = Cell(cells, Place::Setup);
        const bool inFolder =
            !meter.SetupText.empty() && !meter.SetupText.starts_with('/') && !folder_.empty();
        meter.SetupPath = inFolder ? folder_ + "/" + meter.SetupText : meter.SetupText;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const std::string text(Trimmed(cells[i], kBlanks));
            if (isValue_[i] && !text.empty())
                meter.Values.push_back({heading_[i], separator_ == ';' ? WithPoint(text) : text});
        }
        if (table_.Faults.size() == before) table_.Meters.push_back(std::move(meter));
    }

    void TakeName(TableMeter& meter, const std::string& name) {
        meter.Name = name;
        const std::string why = WhyNoMeterName(name);
        if (!why.empty()) return Tell(meter.Row, "name", why);
        const auto [other, isNew] = names_.try_emplace(SmallLetters(name), meter.Row);
        if (!isNew)
            Tell(meter.Row, "name", "\"" + name + "\" is the name of row " + std::to_string(other->second));
    }

    void TakePlace(TableMeter& meter, const std::vector<std::string>& cells) {
        const std::string protocol = Cell(cells, Place::Protocol), baud = Cell(cells, Place::Baud),
                          echo = Cell(cells, Place::Echo);
        const auto code = ProtocolOf(protocol);
        if (!code)
            Tell(meter.Row, "protocol",
                 "\"" + protocol + "\" is none of Custom ASCII, Modbus RTU, Modbus ASCII");
        const auto index = BaudIndexOf(baud);
        const bool atFarEnd = baud.empty() && meter.Line.IsTcp();
        if (!index && !atFarEnd)
            Tell(meter.Row, "baud", "\"" + baud + "\" is none of 300, 600, 1200, 2400, 4800, 9600, 19200");
        if (!echo.empty() && echo != "0" && echo != "1")
            Tell(meter.Row, "echo", "\"" + echo + "\" is not 0 or 1");
        const std::string version = Cell(cells, Place::Version);
        meter.Version = WholeNumberOf(version);
        if (!version.empty() && (!meter.Version || *meter.Version < 0 || *meter.Version > 255))
            Tell(meter.Row, "version", "\"" + version + "\" is none of 0 to 255");
        meter.Protocol = code.value_or(Protocol::CustomAscii);
        meter.BaudIndex = index;
        meter.Echo = echo == "1";
        const std::string address = Cell(cells, Place::Address);
        const bool ascii = meter.Protocol == Protocol::CustomAscii;
        const int least = ascii ? 0 : 1, most = ascii ? 31 : 255;
        const auto number = WholeNumberOf(address);
        if (!number || *number < least || *number > most) {
            Tell(meter.Row, "address",
                 "\"" + address + "\" is none of " + std::to_string(least) + " to " + std::to_string(most) +
                     (ascii ? ", the addresses of Custom ASCII" : ", the addresses of Modbus"));
        }
        meter.Address = number.value_or(0);
    }

    std::string folder_;
    const FileReader& files_;
    MeterTable table_;
    std::array<int, Place::Count> places_;
    std::vector<std::string> heading_;
    std::vector<bool> isValue_;
    std::map<std::string, int> names_;  // in small letters, with their rows
    char separator_ = ',';
    bool whole_ = false;  // the heading names all that a row needs
};

}  // namespace

std::string TableFault::Words() const {
    if (Row == 0) return Text;
    return "row " + std::to_string(Row) + (Column.empty() ? "" : ", column " + Column) + ": " + Text;
}

MeterTable ReadMeterTable(std::string_view text, const std::string& folder, const FileReader& files,
                          const WhyNoField& whyNoField) {
    return TableReader(folder, files).Read(ReadCsv(text), whyNoField);
}

}  // namespace counter

#include "sim/fault.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "sim/hex.h"

namespace sim {

namespace {

struct FaultRow {
    FaultKind Kind;
    std::string_view Name;
    std::string_view Values;  // "=" and its numbers, which are Value and Value2; empty where it has none
    std::string_view What;
    void (*Add)(const Fault& fault, Strike& strike);

    bool HasTwo() const { return Values.find(',') != std::string_view::npos; }
    std::string Spelling() const { return std::string(Name).append(Values); }
};

// In the order of FaultKind. The last five are faults of an Ethernet node.
// clang-format off
constexpr FaultRow kFaults[] = {
    {FaultKind::NoReply, "noreply", "", "the command is carried out, nothing answers",
     [](const Fault&, Strike& strike) { strike.NoReply = true; }},
    {FaultKind::Cut, "cut", "=N", "the reply ends after N bytes",
     [](const Fault& fault, Strike& strike) { strike.Cut = fault.Value; }},
    {FaultKind::Extra, "extra", "", "one byte more at the end of the data, the check field fits it",
     [](const Fault&, Strike& strike) { strike.Extra = true; }},
    {FaultKind::Garbage, "garbage", "", "as many bytes as the reply has, none of them right",
     [](const Fault&, Strike& strike) { strike.Garbage = true; }},
    {FaultKind::BadCheck, "badcheck", "", "wrong CRC or LRC; Custom ASCII has none and stays good",
     [](const Fault&, Strike& strike) { strike.BadCheck = true; }},
    {FaultKind::Exception, "exception", "=CODE", "Modbus: that exception instead of the action; nothing in Custom ASCII",
     [](const Fault& fault, Strike& strike) { strike.Exception = fault.Value; }},
    {FaultKind::Late, "late", "=MS", "the reply starts MS milliseconds later",
     [](const Fault& fault, Strike& strike) { strike.LateMs += fault.Value; }},
    {FaultKind::Pause, "pause", "=AT,MS", "MS milliseconds of silence after AT bytes of the reply",
     [](const Fault& fault, Strike& strike) { strike.PauseAt = fault.Value, strike.PauseMs = fault.Value2; }},
    {FaultKind::Paced, "paced", "", "byte by byte at the speed of the line instead of all at once",
     [](const Fault&, Strike& strike) { strike.Paced = true; }},
    {FaultKind::Echo, "echo", "", "the line gives back what was sent, as half duplex adapters do",
     [](const Fault&, Strike& strike) { strike.Echo = true; }},
    {FaultKind::BadEcho, "badecho", "", "the same with one character wrong",
     [](const Fault&, Strike& strike) { strike.BadEcho = true; }},
    {FaultKind::Gone, "gone", "=N", "the line goes away after N bytes of the reply",
     [](const Fault& fault, Strike& strike) { strike.Gone = fault.Value; }},
    {FaultKind::Byte, "byte", "=AT,VALUE", "VALUE is byte AT of the reply, address and function being 0 and 1; the check field fits it",
     [](const Fault& fault, Strike& strike) { strike.ByteAt = fault.Value, strike.ByteValue = fault.Value2; }},
    {FaultKind::Alias, "alias", "=ADDRESS", "a command to that address is taken and answered as well",
     [](const Fault&, Strike&) {}},
    {FaultKind::WrongId, "wrongid", "", "node: the reply carries another transaction",
     [](const Fault&, Strike& strike) { strike.WrongId = true; }},
    {FaultKind::Pieces, "pieces", "=AT,MS", "node: the reply goes out after AT bytes and MS milliseconds later",
     [](const Fault& fault, Strike& strike) { strike.PiecesAt = fault.Value, strike.PiecesMs = fault.Value2; }},
    {FaultKind::Close, "close", "=N", "node: the connection ends after N bytes of the reply",
     [](const Fault& fault, Strike& strike) { strike.Close = fault.Value; }},
    {FaultKind::Status, "status", "", "node: a status frame in front of the reply",
     [](const Fault&, Strike& strike) { strike.Status = true; }},
    {FaultKind::Twice, "twice", "", "node: the command login is answered by two calls",
     [](const Fault&, Strike& strike) { strike.Twice = true; }},
};
// clang-format on
constexpr std::span<const FaultRow> kLineFaults(kFaults, 14);
constexpr std::span<const FaultRow> kNodeFaults = std::span(kFaults).subspan(kLineFaults.size());

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < std::size(kFaults); ++i) {
        if (kFaults[i].Kind != static_cast<FaultKind>(i)) return false;
    }
    return true;
}
static_assert(IsInOrder(), "a kind is its row's number");

const FaultRow& RowOf(FaultKind kind) {
    return kFaults[static_cast<std::size_t>(kind)];
}

// "noreply, cut=N, extra" with `last` before the last one.
std::string Spellings(std::span<const FaultRow> rows, std::string_view last) {
    std::string text = rows.front().Spelling();
    for (const FaultRow& row : rows.subspan(1))
        text.append(&row == &rows.back() ? last : ", ").append(row.Spelling());
    return text;
}

std::string Objection(std::string_view text) {
    return "illegal fault \"" + std::string(text) +
           "\": COMMAND[#N]:KIND, where COMMAND is the beginning of a command or *, and KIND is " +
           Spellings(kLineFaults, " or ") + "; in a node also " +
           Spellings(kNodeFaults, " and, of the command login, ");
}

bool ParseKind(std::string_view text, Fault& fault) {
    const bool hasValue = text.find('=') != std::string_view::npos;
    const std::string_view name = CutAt(text, '=');
    const auto* row = std::find_if(std::begin(kFaults), std::end(kFaults),
                                   [&](const FaultRow& known) { return known.Name == name; });
    if (row == std::end(kFaults) || hasValue == row->Values.empty()) return false;
    fault.Kind = row->Kind;
    if (row->HasTwo() && !ParseNumber(CutAt(text, ','), fault.Value)) return false;
    return row->Values.empty() || ParseNumber(text, row->HasTwo() ? fault.Value2 : fault.Value);
}

}  // namespace

std::string ParseFault(std::string_view text, Fault& out) {
    Fault fault;
    std::string_view kind = text;
    std::string_view time = CutAt(kind, ':');
    const bool hasTime = time.find('#') != std::string_view::npos;
    fault.Command = CutAt(time, '#');
    const bool timeGood = !hasTime || (ParseNumber(time, fault.Time) && fault.Time > 0);
    if (fault.Command.empty() || !timeGood || !ParseKind(kind, fault)) return Objection(text);
    out = fault;
    return "";
}

std::string FaultHelp() {
    constexpr std::size_t kColumn = 16;
    std::string text;
    for (const FaultRow& row : kFaults) {
        std::string line = "  " + row.Spelling();
        line.resize(std::max(line.size() + 1, kColumn), ' ');
        text += line.append(row.What) + "\n";
    }
    return text;
}

FaultList::FaultList(std::vector<Fault> faults) {
    for (Fault& fault : faults) faults_.push_back({std::move(fault), 0});
}

bool FaultList::Struck(Counted& fault, std::string_view command) {
    if (fault.What.Command != "*" && !command.starts_with(fault.What.Command)) return false;
    ++fault.Seen;
    return fault.What.Time == 0 || fault.What.Time == fault.Seen;
}

Strike FaultList::Next(std::string_view command) {
    Strike strike;
    for (Counted& fault : faults_) {
        if (fault.What.Kind != FaultKind::Alias && Struck(fault, command))
            RowOf(fault.What.Kind).Add(fault.What, strike);
    }
    return strike;
}

bool FaultList::Takes(int address, std::string_view command) {
    bool taken = false;
    for (Counted& fault : faults_) {
        if (fault.What.Kind == FaultKind::Alias && fault.What.Value == address)
            taken = Struck(fault, command) || taken;
    }
    return taken;
}

}  // namespace sim

// The fault campaign: every command of counterctl that talks, over every path to the meter, with every fault
// at each of its frames, one at a time. What comes of it is a table to be read, fault_campaign.golden; what
// has to hold whatever the table says is asserted for each case.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "campaign_case.h"
#include "link/link_error.h"

namespace counter::test {
namespace {

using enum sim::FaultKind;

// clang-format off
constexpr Road kRoads[] = {
    {'a', "Custom ASCII", 0}, {'e', "Custom ASCII on an adapter that echoes", 0, false, true},
    {'r', "Modbus RTU", 1}, {'m', "Modbus ASCII", 2},
    {'n', "Custom ASCII through the node", 0, true}, {'t', "Modbus through the node", 1, true},
};

// Demanded waits of a command beside those of its frames: together, and how many, since each is a second longer
// through the node. Custom ASCII and Modbus.
struct Pauses { double Ms; int Count; };
struct Action { const char* On; Words Line; Pauses Ascii, Modbus; };
const Action kActions[] = {
    {"aermnt", {"get", "/x.CT2"},                                     {705, 4},   {6205, 8}},
    {"aen",    {"put", "/new.CT2"},                                   {5000, 5},  {}},
    {"arnt",   {"put", "/moved.CT2"},                                 {5000, 5},  {7200, 8}},
    {"armnt",  {"put", "/new.CT2", "--backup", "/x.CT2", "--verify"}, {6010, 11}, {19210, 22}},
    {"a",      {"verify", "/same.CT2"},                               {705, 4},   {}},
    {"armnt",  {"read", "item1"},                                     {400, 1},   {200, 1}},
    {"an",     {"read", "all+"},                                      {200, 1},   {}},
    {"at",     {"reset", "peak"},                                     {200, 1},   {200, 1}},
    {"at",     {"remote", "both", "5"},                               {200, 1},   {200, 1}},
    {"a",      {"stream", "--count", "3", "--csv", "/x.csv"},         {1100, 1},  {}},
    {"an",     {"curve", "/c.PRM"},                                   {200, 1},   {}},
    {"an",     {"calibrate", "1000"},                                 {12100, 1}, {}},
};

// Values that depend on the length of the reply.
constexpr int kHalf = -1, kButOne = -2;
struct FaultRow { const char* Name; sim::FaultKind Kind; int Value, Value2; const char* On; bool WithoutReply = false; };
constexpr FaultRow kFaults[] = {
    {"noreply",  NoReply, 0, 0,       "aermnt"}, {"cut1",      Cut, 1, 0,        "armnt"},  {"cut/2",   Cut, kHalf, 0,     "aermnt"},
    {"cut-1",    Cut, kButOne, 0,     "armnt"},  {"extra",     Extra, 0, 0,      "armnt"},  {"garbage", Garbage, 0, 0,     "armnt"},
    {"badcheck", BadCheck, 0, 0,      "rmt"},    {"exc2",      Exception, 2, 0,  "rmt"},    {"exc16",   Exception, 16, 0,  "rmt"},
    {"late2900", Late, 2900, 0,       "aermnt"}, {"late5000",  Late, 5000, 0,    "aermnt"}, {"pause40", Pause, kHalf, 40,  "arm"},
    {"pause500", Pause, kHalf, 500,   "arm"},    {"paced",     Paced, 0, 0,      "armnt"},  {"echo",    Echo, 0, 0,        "armnt", true},
    {"badecho",  BadEcho, 0, 0,       "aermnt", true}, {"gone0", Gone, 0, 0,     "aerm", true}, {"gone/2", Gone, kHalf, 0, "aerm"},
    {"address9", Byte, 0, 9,          "rmt"},    {"function1", Byte, 1, 1,       "rmt"},    {"third9",  Byte, 2, 9,        "rmt"},
    {"wrongid",  WrongId, 0, 0,       "t"},      {"pieces1",   Pieces, 1, 30,    "nt"},     {"pieces/2", Pieces, kHalf, 30, "nt"},
    {"close0",   Close, 0, 0,         "nt"},     {"close/2",   Close, kHalf, 0,  "nt"},     {"status",  sim::FaultKind::Status, 0, 0, "nt"},
};
// clang-format on

bool On(const char* keys, const Road& road) {
    return std::string(keys).find(road.Key) != std::string::npos;
}

std::string Joined(const Words& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() || word.empty() ? "" : " ") + word;
    return text;
}

std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

// What strikes the meter's line behind a node counts in its frames: two bytes of check instead of six of
// header.
sim::Fault FaultAt(const Road& road, const FaultRow& row, int frame, int replyBytes) {
    const bool onLine = row.Kind == Cut || row.Kind == Pause;
    const int bytes = replyBytes - (onLine && road.Node && road.Protocol != 0 ? 4 : 0);
    const int value = row.Value == kHalf ? bytes / 2 : row.Value == kButOne ? bytes - 1 : row.Value;
    return {"*", frame, row.Kind, value, row.Value2};
}

// What a command finds.
Contents FilesFor(const Road& road) {
    const Contents got = RunCase(road, {"get", "/same.CT2"}, {}, {}).Files;
    return {{"home/Settings.SSS", got.at("home/Settings.SSS")},
            {"/same.CT2", got.at("/same.CT2")},
            {"/new.CT2", OtherSetup(road, 1)},
            {"/moved.CT2", OtherSetup(road, 2)},
            {"/x.CT2", "what was there"},
            {"/x.csv", "what was there"},
            {"/c.PRM", std::string(84, '5') + "\n" + std::string(84, 'A') + "\n"}};
}

// The number in brackets at the end of a failure; -1 where there is none.
int LinkErrorOf(const CaseResult& result) {
    const std::size_t bracket = result.Err.rfind('(');
    return bracket == std::string::npos ? -1 : std::atoi(result.Err.c_str() + bracket + 1);
}

// Whether a line says what the number means, whatever was being done.
bool IsMeaning(const std::string& line, int number) {
    for (int source = 0; source <= static_cast<int>(ErrorSource::Curve); ++source) {
        if (line == "counterctl: " + LinkErrorMeaning(number, static_cast<ErrorSource>(source))) return true;
    }
    return false;
}

// What is said beyond the number's own meaning.
std::string Says(const CaseResult& result, const CaseResult& clean) {
    if (result.Status == 0) {
        if (result.Out == clean.Out) return "";
        return "prints \"" + std::regex_replace(result.Out, std::regex("\n"), "/") + "\"; ";
    }
    const std::string said = std::regex_replace(result.Err, std::regex("counterctl: see docs/.*\n"), "");
    const std::string first = said.substr(0, said.find('\n'));
    return IsMeaning(first, LinkErrorOf(result)) ? "" : "\"" + first.substr(0, 90) + "\"; ";
}

bool IsWholeFile(const std::string& path, const std::string& content) {
    if (path.ends_with(".csv")) return content.starts_with("time,item1\n") && content.ends_with('\n');
    return content.size() == 262 && content.find_first_not_of("0123456789ABCDEF") == 260;
}

// Files that a command writes: "old" or "new" as without a fault, "whole" for a setup of another moment.
std::string FilesOf(const Contents& before, const CaseResult& result, const CaseResult& clean) {
    std::set<std::string> paths, kinds;
    for (const Contents* contents : {&before, &result.Files, &clean.Files})
        for (const auto& [path, content] : *contents) paths.insert(path);
    for (const std::string& path : paths) {
        const auto in = [&](const Contents& contents) {
            const auto found = contents.find(path);
            return found == contents.end() ? std::string() : found->second;
        };
        const std::string now = in(result.Files);
        if (now == in(before) && now == in(clean.Files)) continue;
        const bool whole = IsWholeFile(path, now);
        kinds.insert(now == in(before) ? "old" : now == in(clean.Files) ? "new" : whole ? "whole" : "HALF");
    }
    return kinds.empty() ? "none" : Joined({kinds.begin(), kinds.end()});
}

// A word of the meter by its position in the setup, or by its address where it is not in the setup.
std::string WordName(int address) {
    constexpr int kStretches[][3] = {
        {0x1A, 0x00, 1}, {0x32, 0x1B, 109}, {0x74, 0x6A, 205}, {0x35, 0x33, 249}};
    for (const auto& [highest, lowest, position] : kStretches)
        if (address <= highest && address >= lowest)
            return "@" + std::to_string(position + 4 * (highest - address));
    std::ostringstream text;
    text << std::hex << std::uppercase << address << "h";
    return text.str();
}

std::string MeterOf(const std::string& before, const CaseResult& result, const CaseResult& clean) {
    Words taken, wrong;
    bool old = false;
    for (std::size_t at = 0; at < before.size(); at += 4) {
        const auto word = [at](const std::string& memory) { return memory.substr(at, 4); };
        const std::string now = word(result.Memory);
        if (now == word(before)) {
            old |= now != word(clean.Memory);
            continue;
        }
        (now == word(clean.Memory) ? taken : wrong).push_back(WordName(0xFF - static_cast<int>(at) / 4));
    }
    const auto list = [](const char* label, Words words) {
        if (words.size() > 8) words = {words.front(), "to", words.back()};
        return words.empty() ? "" : label + Joined(words);
    };
    std::string text = wrong.empty() && taken.empty() ? "as before"
                       : wrong.empty() && !old        ? "all new"
                                                      : Joined({list("new ", taken), list("WRONG ", wrong)});
    return text + (result.Streaming ? " TRANSMITS" : "");
}

std::string Seconds(double ms) {
    char text[40];
    std::snprintf(text, sizeof text, "%.1f", ms / 1000);
    return text;
}

// A line of the table: what comes of a fault at each frame, and of others that end alike.
struct Row {
    std::string Names;
    Words Cells = {};
    double LeastMs = 1e12, MostMs = 0;
};

// The table of one command over one path.
class Block {
  public:
    Block(const Road& road, const Action& action)
        : road_(road),
          action_(action),
          files_(FilesFor(road)),
          frames_(FramesOf(road, action.Line, files_)),
          clean_(RunCase(road, action.Line, files_, {})),
          memory_(RunCase(road, {"reset", "peak"}, files_, {}).Memory) {
        Strike({"no fault"}, {{}}, 0);
        for (const FaultRow& fault : kFaults)
            if (On(fault.On, road_)) StrikeFrames(fault);
        if (road_.Node && action_.Line[0] == "get") StrikeLogins();
    }
    std::string Text() const {
        std::string text = "\n" + std::string(road_.Name) + ": " + Joined(action_.Line) + "\n ";
        for (const Frame& frame : frames_)
            text += " " + Padded(frame.Name, &frame == &frames_.back() ? 0 : 6);
        for (const Row& row : rows_) {
            text += "\n ";
            for (const std::string& cell : row.Cells) text += " " + Padded(cell, 6);
            const std::string least = Seconds(row.LeastMs), most = Seconds(row.MostMs);
            text += " " + Padded(least == most ? least : least + "-" + most, 9) + "  " + row.Names;
        }
        text += "\n  ok: " + StateOf(clean_) + "\n";
        for (std::size_t i = 0; i < states_.size(); ++i)
            text += std::string("  ") + static_cast<char>('a' + i) + ": " + states_[i] + "\n";
        return text;
    }

  private:
    using Faults = std::vector<sim::Fault>;

    // `faultMs`: what a fault may add to the demanded waits, a first character awaited in vain and its own
    // delay.
    void StrikeFrames(const FaultRow& fault) {
        std::vector<Faults> cases;
        for (const Frame& frame : frames_) {
            const bool heard = frame.Name != "|**|";  // a wake-up is no command
            const bool here = frame.ReplyBytes > 0 || (fault.WithoutReply && heard);
            cases.push_back(
                here ? Faults{FaultAt(road_, fault, static_cast<int>(cases.size()) + 1, frame.ReplyBytes)}
                     : Faults{});
        }
        if (std::all_of(cases.begin(), cases.end(), [](const Faults& faults) { return faults.empty(); }))
            return;
        Strike(Row{fault.Name}, cases, 3000 + std::max(fault.Value2, fault.Kind == Late ? fault.Value : 0));
    }
    void StrikeLogins() {
        Faults all;
        for (int i = 1; i <= 10; ++i) all.push_back({"login", i, NoReply});
        Strike({"login noreply"}, {{all[0]}}, 4000);
        Strike({"login noreply, ten times"}, {all}, 40000);
        Strike({"login late3900"}, {{{"login", 1, Late, 3900}}}, 3900);
        Strike({"login late4100"}, {{{"login", 1, Late, 4100}}}, 8000);
        Strike({"login twice"}, {{{"login", 1, Twice}}}, 0);
    }
    void Strike(Row row, const std::vector<Faults>& cases, double faultMs) {
        for (const Faults& faults : cases) {
            if (faults.empty() && cases.size() > 1) {
                row.Cells.emplace_back("-");
                continue;
            }
            SCOPED_TRACE(std::string(road_.Name) + ": " + Joined(action_.Line) + ", " + row.Names +
                         ", frame " + std::to_string(row.Cells.size() + 1));
            const CaseResult result = RunCase(road_, action_.Line, files_, faults);
            Judge(result, faults);
            EXPECT_LE(result.Ms, DemandedMs(result.FramesSent) + faultMs);
            row.Cells.push_back(CellOf(result));
            row.LeastMs = std::min(row.LeastMs, result.Ms);
            row.MostMs = std::max(row.MostMs, result.Ms);
        }
        const auto same =
            std::find_if(rows_.begin(), rows_.end(), [&](const Row& r) { return r.Cells == row.Cells; });
        if (same == rows_.end()) return rows_.push_back(row);
        same->Names += " " + row.Names;
        same->LeastMs = std::min(same->LeastMs, row.LeastMs);
        same->MostMs = std::max(same->MostMs, row.MostMs);
    }

    std::string CellOf(const CaseResult& result) {
        const std::string state = StateOf(result);
        const int number = LinkErrorOf(result);
        const std::string cell = result.Status == 0 ? "ok" : number < 0 ? "3" : std::to_string(number);
        if (result.Status == 0 && state == StateOf(clean_)) return cell;
        const auto known = std::find(states_.begin(), states_.end(), state);
        const char letter = static_cast<char>('a' + (known - states_.begin()));
        if (known == states_.end()) states_.push_back(state);
        return cell + letter;
    }
    std::string StateOf(const CaseResult& result) const {
        return Says(result, clean_) + "files " + FilesOf(files_, result, clean_) + "; meter " +
               MeterOf(memory_, result, clean_) + (result.NextGet == 0 ? "" : "; the next get FAILS");
    }

    // Before each frame 300 ms, a second more through the node; after each reply 200 ms, the silence of 62
    // ms that ends it and at most 120 ms in which it comes; and the pauses of the action.
    double DemandedMs(std::size_t framesSent) const {
        const Pauses& pauses = road_.Protocol == 0 ? action_.Ascii : action_.Modbus;
        double ms = pauses.Ms + (road_.Node ? 1000 * pauses.Count : 0);
        for (std::size_t i = 0; i < std::max(framesSent, frames_.size()); ++i) {
            const bool answered = i >= frames_.size() || frames_[i].ReplyBytes > 0;
            ms += (road_.Node ? 1300 : 300) + (answered ? 200 + 62 + 120 : 0);
        }
        return ms;
    }

    // What holds whatever the table says.
    void Judge(const CaseResult& result, const Faults& faults) const {
        const std::string &verb = action_.Line[0], files = FilesOf(files_, result, clean_);
        EXPECT_EQ(files.find("HALF"), std::string::npos) << "a file is whole or not there";
        EXPECT_FALSE(result.Streaming);
        const bool moves = action_.Line.back() == "/moved.CT2";  // the tool follows only what succeeds
        EXPECT_TRUE(result.NextGet == 0 || (moves && result.Status != 0)) << "nothing stays stuck";
        if (result.Status != 0) {
            EXPECT_TRUE(result.Status == 3 && !result.Err.empty()) << result.Status << result.Err;
            EXPECT_TRUE(verb != "get" || result.Files == files_) << files;
        } else if (verb != "read" && verb != "calibrate") {  // whose values nothing proves
            EXPECT_TRUE(files == "new" || files == "none") << files;
            EXPECT_EQ(result.Memory, clean_.Memory);
        }
        // Modbus proves each reply that is awaited; that of the board check only warns.
        const std::set<sim::FaultKind> visible = {NoReply,   Cut,  Garbage, BadCheck,
                                                  Exception, Gone, WrongId, Close};
        if (road_.Protocol == 0 || faults.size() != 1 || faults[0].Command != "*" ||
            !visible.contains(faults[0].Kind))
            return;
        const bool boardCheck = frames_[static_cast<std::size_t>(faults[0].Time) - 1].Name == "030045";
        EXPECT_TRUE(result.Status != 0 || boardCheck || verb == "reset" || verb == "remote");
    }

    const Road& road_;
    const Action& action_;
    const Contents files_;
    const std::vector<Frame> frames_;
    const CaseResult clean_;
    const std::string memory_;  // of the meter, before
    std::vector<Row> rows_;
    Words states_;  // by letter
};

std::string Preface() {
    std::string text =
        "Columns are the frames of a command, each struck alone by the faults behind the line (sim/fault.h "
        "tells them;\n"
        "/2: after half of the reply, -1: one byte short). ok: exit status 0 and all as without a fault, or "
        "but for what\n"
        "its letter says; a number: exit status 3 with it; -: no reply to strike. Seconds are virtual. Words "
        "of the\n"
        "meter: @ position in the setup, or address with h. Files: old, new as without a fault, or whole of "
        "another moment.\n";
    for (int number = 20; number <= 27; ++number)
        text += "  " + std::to_string(number) + "  " + LinkErrorMeaning(number) + "\n";
    return text +
           "  others: a reply of the wrong length at that step, or the low digit of an exception over Modbus "
           "RTU\n";
}

// Another table is left in the working folder, to be reviewed.
void ExpectGolden(const std::string& actual) {
    std::ifstream file(TEST_FOLDER "/fault_campaign.golden");
    std::istringstream lines(actual);
    std::string wanted, got;
    for (int line = 1, told = 0; told < 10; ++line) {
        const bool more = !std::getline(file, wanted).fail();
        if (std::getline(lines, got).fail() && !more) return;
        if (more && lines && wanted == got) continue;
        if (++told == 1) std::ofstream("fault_campaign.actual") << actual;
        ADD_FAILURE() << "line " << line << "\n- " << (more ? wanted : "") << "\n+ " << (lines ? got : "");
    }
}

TEST(FaultCampaign, EndsAsTheTableSays) {
    std::string table = Preface();
    for (const Road& road : kRoads)
        for (const Action& action : kActions)
            if (On(action.On, road)) table += Block(road, action).Text();
    ExpectGolden(table);
}

}  // namespace
}  // namespace counter::test

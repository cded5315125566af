// fleet: the meters of a table, checked, written, saved or read.
#include <algorithm>
#include <array>

#include "cli/command_table.h"
#include "cli/exact_number.h"
#include "cli/field_names.h"
#include "cli/fleet.h"
#include "cli/fleet_setups.h"
#include "cli/suggest.h"
#include "platform/utc_time.h"

namespace counter {

namespace {

constexpr std::array<std::string_view, 4> kActions = {"check", "put", "get", "read"};
constexpr int kManyLines = 1000;
constexpr const char* kAnyItem[] = {"item1", "item2", "item3", "peak", "valley", "all", "all+"};

// "" for the current folder.
std::string FolderOfPath(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return {};
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string WhyNoSuchField(const std::string& name) {
    if (FieldNamed(name)) return {};
    const std::vector<std::string> names = FieldNames();
    return "no field '" + name + "'" + DidYouMean(name, names);
}

// Empty, or what is wrong with the call.
std::string ReadOrder(const CommandCall& call, FleetOrder& order) {
    order.Action = call.Words[0];
    if (std::find(kActions.begin(), kActions.end(), order.Action) == kActions.end()) {
        const std::vector<std::string> names(kActions.begin(), kActions.end());
        return "'" + order.Action + "' is none of check|put|get|read" + DidYouMean(order.Action, names);
    }
    const bool more = call.Words.size() > 2;
    if (call.Words.size() < 2 || (order.Action == "get" && !more) ||
        ((order.Action == "check" || order.Action == "put") && more))
        return "usage: " + UsageOf(*FindCommand("fleet"));
    order.More = more ? call.Words[2] : order.Action == "read" ? "item1" : "-";
    if (order.Action == "read" &&
        std::find(std::begin(kAnyItem), std::end(kAnyItem), order.More) == std::end(kAnyItem))
        return "'" + order.More + "' is none of item1|item2|item3|peak|valley|all|all+";
    order.MostAtOnce = kManyLines;
    if (call.Has("--jobs")) order.MostAtOnce = ExactNumber<int>(call.Options.at("--jobs")).value_or(0);
    if (order.MostAtOnce < 1) return "--jobs is a whole number above 0";
    const std::string folder = call.FolderNamed ? call.Folder : FolderOfPath(call.Words[1]);
    order.Folder = folder.empty() ? "fleet" : folder + "/fleet";
    return {};
}

int TellFaults(const CommandCall& call, const std::vector<TableFault>& faults) {
    const std::string name = call.Words[1] == kStandardStream ? "standard input" : call.Words[1];
    for (const TableFault& fault : faults)
        Complain(call.World) << OneLine(name + ": " + fault.Words()) << "\n";
    return kUsage;
}

// A report that could not be written is found before the work, not after it.
Status ReportFolders(const CommandCall& call) {
    for (const char* option : {"--junit", "--html"}) {
        if (!call.Has(option) || call.Options.at(option) == kStandardStream) continue;
        std::string folder = FolderOfPath(call.Options.at(option));
        std::vector<std::string> ignored;
        if (folder.empty()) folder = ".";
        if (Status status = call.World.Store.List(folder, ignored); !status.Ok()) return status;
    }
    return {};
}

FleetReport EmptyReport(const CommandCall& call, const FleetOrder& order,
                        const std::vector<PlannedMeter>& meters) {
    FleetReport report;
    report.Action = order.Action;
    report.Table = call.Words[1] == kStandardStream ? "standard input" : call.Words[1];
    report.By = call.World.User ? call.World.User() : "";
    for (const PlannedMeter& planned : meters) {
        MeterReport meter;
        meter.Row = planned.Meter.Row;
        meter.Name = planned.Meter.Name;
        meter.Line = planned.Meter.Line.Text;
        meter.Place = PlaceWords(PlacesOf(planned)[0]);
        meter.Setup = planned.Meter.SetupText;
        meter.Consequences = planned.Consequences;
        meter.Words = "not reached";
        report.Meters.push_back(std::move(meter));
    }
    return report;
}

// The fields of the columns, which are reported whether or not they differ.
std::vector<Field> ColumnFields(const std::vector<std::string>& columns) {
    std::vector<Field> fields;
    for (const std::string& column : columns) {
        if (const auto field = FieldNamed(column)) fields.push_back(*field);
    }
    return fields;
}

int WriteReports(const CommandCall& call, const FleetReport& report) {
    const std::pair<const char*, std::string (*)(const FleetReport&)> kinds[] = {{"--junit", JunitReport},
                                                                                 {"--html", HtmlReport}};
    int status = kDone;
    for (const auto& [option, text] : kinds) {
        if (!call.Has(option)) continue;
        const Status written = call.World.Store.Write(call.Options.at(option), text(report));
        if (!written.Ok()) status = RefuseStatus(call, written);
    }
    if (call.Json) WriteJson(call, FleetJson(report));
    return status;
}

int RunAndTell(const CommandCall& call, const FleetOrder& order, const MeterTable& table,
               const std::vector<PlannedMeter>& meters) {
    Files& files = call.World.Store;
    std::unique_ptr<FileLock> lock;
    Status status = ReportFolders(call);
    if (status.Ok() && order.Action == "get") status = files.MakeFolder(order.More);
    if (status.Ok()) status = files.MakeFolder(order.Folder);
    if (status.Ok()) status = files.Lock(order.Folder + "/meters", lock);
    if (!status.Ok()) return RefuseStatus(call, status);

    const std::unique_ptr<Machine> machine = call.World.MakeMachine(order.Folder);
    Pump& pump = machine->Pump();
    FleetReport report = EmptyReport(call, order, meters);
    report.Started = IsoTime(pump.LocalTime());
    const double begunMs = pump.NowMs();
    const std::vector<Field> columns = ColumnFields(table.ValueColumns);
    FleetBar bar(call.World.Err, call.World.ErrIsTerminal && !call.Trace, meters.size());
    std::ostream& out = call.Json ? call.World.Err : call.Text();
    std::size_t done = 0;
    bar.Show(done);
    const auto ended = [&](const MeterReport& settled) {
        const auto index = static_cast<std::size_t>(&settled - report.Meters.data());
        MeterReport& meter = report.Meters[index];
        if (meters[index].HasSetup)
            meter.Fields = ReportedFields(meter.Wanted.value_or(meters[index].Wanted), meter.Images, columns);
        bar.Hide();
        out << FleetLines(meter, order.Action) << std::flush;
        bar.Show(++done);
    };
    RunFleet(call, *machine, order, meters, report, ended);
    bar.Hide();
    report.Seconds = (pump.NowMs() - begunMs) / 1000;
    report.Ended = IsoTime(pump.LocalTime());
    out << SummaryOf(report) << "\n" << std::flush;
    if (report.Interrupted) Complain(call.World) << "interrupted\n";
    const int written = WriteReports(call, report);
    const int worst = FleetStatus(report);
    return written == kDone || worst == kInterrupted ? worst : written;
}

}  // namespace

int FleetCommand(const CommandCall& call) {
    if (call.Words[0] == "line") return FleetLine(call);
    FleetOrder order;
    if (const std::string wrong = ReadOrder(call, order); !wrong.empty()) return RefuseCall(call, wrong);
    std::string text;
    if (Status status = call.World.Store.Read(call.Words[1], text); !status.Ok())
        return RefuseStatus(call, status);
    const MeterTable table =
        ReadMeterTable(text, FolderOfPath(call.Words[1]), call.World.Store, WhyNoSuchField);
    const bool needed = order.Action == "check" || order.Action == "put";
    const auto tell = [&](const std::vector<TableFault>& faults) {
        std::vector<TableFault> all = table.Faults;
        all.insert(all.end(), faults.begin(), faults.end());
        std::stable_sort(all.begin(), all.end(),
                         [](const TableFault& a, const TableFault& b) { return a.Row < b.Row; });
        TellFaults(call, all);
        return all.empty();
    };
    const FleetSetups setups = WorkOutSetups(call, table.Meters, needed, tell);
    if (!tell(setups.Faults)) return kUsage;
    return RunAndTell(call, order, table, setups.Meters);
}

}  // namespace counter

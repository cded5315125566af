// readings: the runs of a store, or one of them as a table or as lines of JSON.
#include <algorithm>

#include "cli/cli_output.h"
#include "cli/exact_number.h"
#include "cli/readings_csv.h"
#include "cli/readings_json.h"
#include "platform/utc_time.h"
#include "record_cli/record_cli.h"
#include "recording/reading_store.h"

namespace counter {

namespace {

constexpr int kAtOnce = 10'000;

std::string TimeOf(const StoredRun& run, std::int64_t ms) {
    return IsoTime(WallTimeAt(ms, run.MinutesEast));
}

Json TextOrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

int ListRuns(const CommandCall& call, const std::vector<StoredRun>& runs) {
    Json list = Json::array();
    std::vector<std::vector<std::string>> lines = {
        {"Run", "Meter", "Readings", "Start", "Last reading", "Note"}};
    for (const StoredRun& run : runs) {
        const std::string start = TimeOf(run, run.StartMs), last = TimeOf(run, run.LastMs);
        list.push_back({{"run", run.Id},
                        {"meter", run.Meter},
                        {"address", run.Address},
                        {"baud", run.Baud},
                        {"setup", TextOrNull(run.Setup)},
                        {"start", start},
                        {"last", last},
                        {"readings", run.Readings},
                        {"note", TextOrNull(run.Note)}});
        lines.push_back(
            {std::to_string(run.Id), run.Meter, std::to_string(run.Readings), start, last, run.Note});
    }
    if (call.Json) {
        WriteJson(call, list);
    } else {
        call.World.Out << Columns(lines);
    }
    return kDone;
}

// A run on its way out.
class Export {
  public:
    virtual ~Export() = default;
    virtual void Add(const std::string& time, const StoredReading& reading) = 0;
    virtual Status Flush() = 0;
    virtual Status End() = 0;
};

std::vector<std::string> NumbersOf(const StoredReading& reading) {
    std::vector<std::string> numbers;
    for (const ReadingItem& item : reading.Items) numbers.push_back(item.Number);
    return numbers;
}

class CsvExport : public Export {
  public:
    CsvExport(Files& store, const std::string& path) : csv_(store, path) {}
    void Add(const std::string& time, const StoredReading& reading) override {
        csv_.Add(time, NumbersOf(reading));
    }
    Status Flush() override { return csv_.Flush(); }
    Status End() override { return csv_.End(); }

  private:
    ReadingsCsv csv_;
};

class LinesExport : public Export {
  public:
    LinesExport(Files& store, std::string path) : store_(store), path_(std::move(path)) {}
    void Add(const std::string& time, const StoredReading& reading) override {
        std::string text;
        for (const ReadingItem& item : reading.Items) text += item.Sent;
        waiting_ += ReadingJson(time, text, NumbersOf(reading)) + "\n";
    }
    Status Flush() override { return waiting_.empty() ? Status{} : Write(); }
    Status End() override { return file_ ? Flush() : Write(); }

  private:
    Status Write() {
        const std::string lines = std::exchange(waiting_, {});
        if (file_) return file_->Add(lines);
        const Status status = store_.Write(path_, lines);
        return status.Ok() ? store_.Grow(path_, file_) : status;
    }

    Files& store_;
    std::string path_, waiting_;
    std::unique_ptr<GrowingFile> file_;
};

std::unique_ptr<Export> MakeExport(const CommandCall& call, Files& files) {
    if (call.Has("--ndjson")) return std::make_unique<LinesExport>(files, call.Options.at("--ndjson"));
    if (call.Has("--csv")) return std::make_unique<CsvExport>(files, call.Options.at("--csv"));
    if (call.Json) return std::make_unique<LinesExport>(files, kStandardStream);
    return std::make_unique<CsvExport>(files, kStandardStream);
}

Status ExportRun(ReadingStore& store, const StoredRun& run, Export& to) {
    std::vector<StoredReading> readings;
    std::int64_t next = 1;
    do {
        if (Status status = store.Readings(run.Id, next, kAtOnce, readings); !status.Ok()) return status;
        for (const StoredReading& reading : readings) to.Add(TimeOf(run, reading.TimeMs), reading);
        next += kAtOnce;
        if (Status status = to.Flush(); !status.Ok()) return status;
    } while (!readings.empty());
    return to.End();
}

int ExportNamed(const CommandCall& call, ReadingStore& store, const std::vector<StoredRun>& runs) {
    const auto id = ExactNumber<std::int64_t>(call.Words[0]);
    const auto found =
        std::find_if(runs.begin(), runs.end(), [&](const StoredRun& run) { return run.Id == id; });
    if (found == runs.end())
        return RefuseStatus(call, {StatusKind::NotFound, store.Path(), "has no run " + call.Words[0]});
    const std::unique_ptr<Export> to = MakeExport(call, call.World.Store);
    const Status status = ExportRun(store, *found, *to);
    return status.Ok() ? kDone : RefuseStatus(call, status);
}

}  // namespace

int RunReadings(const CommandCall& call) {
    if (call.Has("--csv") && call.Has("--ndjson"))
        return RefuseCall(call, "a run is exported in one form at a time");
    if (call.Words.empty() && (call.Has("--csv") || call.Has("--ndjson")))
        return RefuseCall(call, "which RUN is to be exported?");
    const std::unique_ptr<Machine> machine = call.World.MakeMachine(call.Folder);  // SQLite's plugin needs it
    std::unique_ptr<ReadingStore> store;
    std::vector<StoredRun> runs;
    Status status = ReadingStore::Open(StorePath(call), ReadingStore::Use::Read, store);
    if (status.Ok()) status = store->Runs(runs);
    if (!status.Ok()) return RefuseStatus(call, status);
    return call.Words.empty() ? ListRuns(call, runs) : ExportNamed(call, *store, runs);
}

}  // namespace counter

// stream: the reading stream, a reading a line, until enough of them, enough time or an interrupt.
#include <utility>

#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/readings_csv.h"
#include "cli/readings_json.h"
#include "cli/stream_run.h"
#include "link/reading_items.h"
#include "platform/utc_time.h"

namespace counter {

namespace {

// Lines on standard output and rows of a table. Those that came together go out together, at once.
class StreamLines : public ReadingSink {
  public:
    StreamLines(const CommandCall& call, std::string csv)
        : call_(call), csv_(call.World.Store, std::move(csv)) {}

    Status Open(LinkSession& link) override {
        pump_ = &link.Program().Pump;
        return csv_.Try();
    }
    void GiveUp() override { csv_.GiveUp(); }
    Status Take(const std::string& text) override;
    Status PassDone() override;
    Status End() override;

  private:
    const CommandCall& call_;
    ReadingsCsv csv_;
    const Pump* pump_ = nullptr;
};

Status StreamLines::Take(const std::string& text) {
    const std::string time = IsoTime(pump_->LocalTime());
    const std::vector<std::string> items = ItemsOf(text);
    csv_.Add(time, items);
    if (call_.Json) {
        call_.World.Out << ReadingJson(time, text, items) << '\n';
    } else if (!call_.OutIsFile) {
        call_.World.Out << Printable(text) << '\n';
    }
    return {};
}

Status StreamLines::PassDone() {
    if (Status status = csv_.Flush(); !status.Ok()) return status;
    call_.World.Out << std::flush;
    return call_.World.Out ? Status{} : OutputFailed(call_.World);
}

Status StreamLines::End() {
    return csv_.End();
}

}  // namespace

int StreamCommand(const CommandCall& call) {
    StreamLimits limits;
    if (const std::string legal = ReadLimits(call, limits); !legal.empty()) return RefuseCall(call, legal);
    StreamLines lines(call, call.Has("--csv") ? call.Options.at("--csv") : std::string());
    return RunStream(call, limits, lines);
}

int RecordCommand(const CommandCall& call) {
    return call.World.Recording.Record(call);
}

int ReadingsCommand(const CommandCall& call) {
    return call.World.Recording.Readings(call);
}

}  // namespace counter

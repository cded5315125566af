// stream: the reading stream, a reading a line, until enough of them, enough time or an interrupt.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/exact_number.h"
#include "cli/link_session.h"
#include "link/link_error.h"
#include "link/list_cutter.h"
#include "link/prepare_readings.h"
#include "link/reading_stream.h"
#include "link/waits.h"

namespace counter {

namespace {

struct Limits {
    long long Count = 0;         // readings; 0 without a limit
    double Ms = Pump::kForever;  // from the command that starts the stream on
    std::string Csv;             // the file; empty for none
};

// Empty, or what is legal.
std::string ReadLimits(const CommandCall& call, Limits& limits) {
    if (call.Has("--count")) {
        limits.Count = ExactNumber<long long>(call.Options.at("--count")).value_or(0);
        if (limits.Count <= 0) return "--count is a whole number above 0";
    }
    if (call.Has("--seconds")) {
        const double seconds = ExactNumber<double>(call.Options.at("--seconds")).value_or(0);
        if (!std::isfinite(seconds) || seconds <= 0) return "--seconds is a number above 0";
        limits.Ms = seconds * 1000;
    }
    if (call.Has("--csv")) limits.Csv = call.Options.at("--csv");
    return {};
}

std::string IsoTime(const WallTime& time) {
    char text[80];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03d", time.Year, time.Month, time.Day,
                  time.Hour, time.Minute, time.Second, time.Millisecond);
    return text;
}

// Without blanks and control characters at both ends.
std::string Stripped(const std::string& text) {
    const auto shown = [](char c) { return static_cast<unsigned char>(c) > ' '; };
    const auto first = std::find_if(text.begin(), text.end(), shown);
    return {first, std::find_if(text.rbegin(), std::make_reverse_iterator(first), shown).base()};
}

// The number that a reading shows, with the meter's own decimals, as every reader of CSV takes it: no blanks
// after the sign, no "+", a digit to either side of the point or no point. Empty where it shows none.
std::string NumberText(std::string reading) {
    std::erase(reading, ' ');
    reading.erase(0, std::min(reading.find_first_of("+-.0123456789"), reading.size()));
    const std::string sign = reading.starts_with('-') ? "-" : "";
    if (reading.starts_with('-') || reading.starts_with('+')) reading.erase(0, 1);
    const auto digits = [&](std::size_t from) {
        return reading.substr(from,
                              std::min(reading.find_first_not_of("0123456789", from), reading.size()) - from);
    };
    const std::string whole = digits(0);
    const bool point = reading.size() > whole.size() && reading[whole.size()] == '.';
    const std::string decimals = point ? digits(whole.size() + 1) : "";
    if (whole.empty() && decimals.empty()) return {};
    return sign + (whole.empty() ? "0" : whole) + (decimals.empty() ? "" : "." + decimals);
}

bool HasStream(const CommandCall& call) {
    const Settings settings = StoredSettings(call);
    return !settings.ModbusLink && !settings.EthernetMode;
}

class StreamRun {
  public:
    StreamRun(const CommandCall& call, LinkSession& link, const Limits& limits)
        : call_(call), link_(link), program_(link.Program()), limits_(limits) {}
    // The exit status.
    int Run();

  private:
    void Stream();
    void Take(const std::string& text);
    void WriteLine(const std::string& text);
    bool Over() const;
    int Report();

    const CommandCall& call_;
    LinkSession& link_;
    Session& program_;
    const Limits& limits_;
    long long taken_ = 0;
    bool interrupted_ = false;
    Status written_;  // of the first output that failed
    Json list_ = Json::array();
};

int StreamRun::Run() {
    Files& store = call_.World.Store;
    const bool fresh = !store.Exists(limits_.Csv);
    if (!limits_.Csv.empty()) written_ = store.Append(limits_.Csv, "");  // refused before anything is sent
    if (written_.Ok()) {
        program_.Pump.OnInterrupt = [this] { interrupted_ = true; };
        program_.LinkState.LinkError =
            PrepareReadings(program_.Link, program_.Identity.FirmwareVersion, program_.Frames);
        if (program_.LinkState.LinkError == LinkErrors::kGood && !interrupted_)
            Stream();
        else if (fresh && !limits_.Csv.empty())
            store.Remove(limits_.Csv);
    }
    link_.Finish();
    return Report();
}

// What a file held is given up only here, for a meter that answers. However it ends, the meter is told to
// stop.
void StreamRun::Stream() {
    if (!limits_.Csv.empty()) written_ = call_.World.Store.Write(limits_.Csv, "time,reading\n");
    ReadingStream stream(program_.Link, std::make_unique<ListCutter>(program_.Frames));
    stream.TakeFrame = [this](const Frame& frame) {
        if (!frame.OnlySizes && !Over()) Take(Stripped(frame.Text));
    };
    const double deadline = program_.Pump.NowMs() + limits_.Ms;
    StreamStart(program_.Link);
    stream.Attach();
    program_.Pump.WaitUntil(
        deadline, [this] { return Over(); }, "readings");
    SerialLineHolds(program_.Link);
    stream.Detach();
    StreamStop(program_.Link);
}

bool StreamRun::Over() const {
    return interrupted_ || !written_.Ok() || program_.Port.Faulted() ||
           (limits_.Count > 0 && taken_ >= limits_.Count);
}

void StreamRun::Take(const std::string& text) {
    if (text.empty()) return;
    ++taken_;
    const std::string time = IsoTime(program_.Pump.LocalTime());
    if (!limits_.Csv.empty())
        written_ = call_.World.Store.Append(limits_.Csv, time + "," + NumberText(text) + "\n");
    if (call_.Json) {
        list_.push_back({{"time", time}, {"reading", Utf8(text)}});
    } else if (written_.Ok() && !call_.OutIsFile) {
        WriteLine(Utf8(text));
    }
}

void StreamRun::WriteLine(const std::string& text) {
    call_.World.Out << text << "\n" << std::flush;
    if (!call_.World.Out) written_ = OutputFailed(call_.World);
}

int StreamRun::Report() {
    if (call_.Json && written_.Ok()) WriteLine(list_.dump(2));
    const bool givenUp = interrupted_ && written_.Kind == StatusKind::Interrupted;
    if (!written_.Ok() && !givenUp) return RefuseStatus(call_, written_);
    const int error = program_.LinkState.LinkError;
    if (error == LinkErrors::kGood || (interrupted_ && error != LinkErrors::kPortFault)) return kDone;
    Complain(call_.World) << program_.LinkState.ErrorMeaning()
                          << "\nFailed to read the stream, check connections, then try again.      ( "
                          << error << ")\n";
    return kLinkFailed;
}

}  // namespace

int StreamCommand(const CommandCall& call) {
    Limits limits;
    if (const std::string legal = ReadLimits(call, limits); !legal.empty()) return RefuseCall(call, legal);
    if (!HasStream(call))
        return RefuseCall(call, "the reading stream exists only in Custom ASCII over a serial line");
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    StreamRun run(call, link, limits);
    return run.Run();
}

}  // namespace counter

// stream: the reading stream, a reading a line, until enough of them, enough time or an interrupt.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/exact_number.h"
#include "cli/failure_page.h"
#include "cli/link_session.h"
#include "cli/readings_csv.h"
#include "link/exchange.h"
#include "link/link_error.h"
#include "link/list_cutter.h"
#include "link/prepare_readings.h"
#include "link/reading_items.h"
#include "link/reading_stream.h"
#include "link/waits.h"
#include "meter/leading_number.h"

namespace counter {

namespace {

// A meter with a longer gate time is told of as well, which does it no harm.
constexpr double kSilentMs = 10'000;

struct Limits {
    long long Count = 0;         // readings; 0 without a limit
    double Ms = Pump::kForever;  // from the first moment at which a reading can come
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

// With the zone: a file is also read where clocks go another way, and after they were put back.
std::string IsoTime(const WallTime& time) {
    char text[100];
    const int offset = std::abs(time.MinutesEast);
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03d%c%02d:%02d", time.Year, time.Month,
                  time.Day, time.Hour, time.Minute, time.Second, time.Millisecond,
                  time.MinutesEast < 0 ? '-' : '+', offset / 60, offset % 60);
    return text;
}

// Without blanks and control characters at both ends.
std::string Stripped(const std::string& text) {
    const auto shown = [](char c) { return static_cast<unsigned char>(c) > ' '; };
    const auto first = std::find_if(text.begin(), text.end(), shown);
    return {first, std::find_if(text.rbegin(), std::make_reverse_iterator(first), shown).base()};
}

Json ItemsJson(const std::vector<std::string>& items) {
    Json list = Json::array();
    for (const std::string& item : items) list.push_back(item.empty() ? Json() : Json(LeadingNumber(item)));
    return list;
}

bool HasStream(const CommandCall& call) {
    const Settings settings = StoredSettings(call);
    return !settings.ModbusLink && !settings.EthernetMode;
}

class StreamRun {
  public:
    StreamRun(const CommandCall& call, LinkSession& link, const Limits& limits)
        : call_(call),
          link_(link),
          program_(link.Program()),
          limits_(limits),
          csv_(call.World.Store, limits.Csv) {}
    // The exit status.
    int Run();

  private:
    void Stream();
    bool StartSilent();
    bool IsEcho(const std::string& text);
    void WaitForReadings();
    void Take(const std::string& text);
    void WriteLine(const std::string& text);
    bool Over() const;
    int Report();

    const CommandCall& call_;
    LinkSession& link_;
    Session& program_;
    const Limits& limits_;
    ReadingsCsv csv_;
    long long taken_ = 0;
    double lastMs_ = 0;  // of the newest reading, or of the start
    std::string echo_;   // of the command, which the first frame may be
    bool interrupted_ = false;
    Status written_;  // of the first output that failed
};

int StreamRun::Run() {
    written_ = csv_.Try();
    if (written_.Ok()) {
        program_.Pump.OnInterrupt = [this] { interrupted_ = true; };
        program_.LinkState.LinkError =
            PrepareReadings(program_.Link, program_.Identity.FirmwareVersion, program_.Frames);
        if (program_.LinkState.LinkError == LinkErrors::kGood && !interrupted_)
            Stream();
        else
            csv_.GiveUp();
    }
    link_.Finish();
    return Report();
}

// However it ends, the meter is told to stop. What a file held is given up only here, for a meter that
// answers.
void StreamRun::Stream() {
    auto cutter = std::make_unique<ListCutter>(program_.Frames);
    ListCutter& frames = *cutter;
    ReadingStream stream(program_.Link, std::move(cutter));
    stream.TakeFrame = [this](const Frame& frame) {
        if (!Over() && !IsEcho(frame.Text)) Take(Stripped(frame.Text));
    };
    const bool whole = StartSilent();
    const std::string& sent = program_.LinkState.CommandText;
    echo_ = sent.substr(0, sent.find('\r'));
    lastMs_ = program_.Pump.NowMs();
    stream.AttachKeeping();
    if (whole) frames.BeginWithFrame();
    stream.PumpInput();
    WaitForReadings();
    SerialLineHolds(program_.Link);
    stream.Detach();
    StreamStop(program_.Link);
    program_.Port.SetRtsEnable(false);
    if (written_.Ok()) written_ = csv_.End();
}

// True where the line was silent before the command went out and nothing echoes it: then what comes is whole
// frames from its first byte on. Otherwise the first end ends a frame that began earlier, or the echo.
bool StreamRun::StartSilent() {
    LinkState& state = program_.LinkState;
    state.RawReply.clear();  // takes what the line had before a send
    SendAscii(program_.Link, "A0");
    return state.RawReply.empty() && !state.EchoMode;
}

// An adaptor may give the command back though the settings say nothing of it. A lead character of the frames
// takes its first character away.
bool StreamRun::IsEcho(const std::string& text) {
    const std::string echo = std::exchange(echo_, {});
    return !echo.empty() && (text.starts_with('*') || text == echo.substr(1));
}

// The time counts from here, the first moment at which a reading can come.
void StreamRun::WaitForReadings() {
    const double deadline = program_.Pump.NowMs() + limits_.Ms;
    const auto over = [this] { return Over(); };
    while (program_.Pump.NowMs() < lastMs_ + kSilentMs) {
        const double until = std::min(deadline, lastMs_ + kSilentMs);
        if (program_.Pump.WaitUntil(until, over, "readings") || program_.Pump.NowMs() >= deadline) return;
    }
    Complain(call_.World)
        << "no reading for 10 seconds; waiting on. Where none comes within the meter's gate "
           "time, check connections\n"
        << std::flush;
    program_.Pump.WaitUntil(deadline, over, "readings");
}

bool StreamRun::Over() const {
    return interrupted_ || !written_.Ok() || program_.Port.Faulted() ||
           (limits_.Count > 0 && taken_ >= limits_.Count);
}

void StreamRun::Take(const std::string& text) {
    if (text.empty()) return;
    ++taken_;
    lastMs_ = program_.Pump.NowMs();
    const std::string time = IsoTime(program_.Pump.LocalTime());
    const std::vector<std::string> items = ItemsOf(text);
    written_ = csv_.Add(time, items);
    if (!written_.Ok()) return;
    if (call_.Json) {
        WriteLine(Json{{"time", time}, {"reading", Utf8(text)}, {"items", ItemsJson(items)}}.dump());
    } else if (!call_.OutIsFile) {
        WriteLine(Printable(text));
    }
}

void StreamRun::WriteLine(const std::string& text) {
    call_.World.Out << text << "\n" << std::flush;
    if (!call_.World.Out) written_ = OutputFailed(call_.World);
}

int StreamRun::Report() {
    const bool givenUp = interrupted_ && written_.Kind == StatusKind::Interrupted;
    if (!written_.Ok() && !givenUp) return RefuseStatus(call_, written_);
    const int error = program_.LinkState.LinkError;
    if (error == LinkErrors::kGood || (interrupted_ && error != LinkErrors::kPortFault)) return kDone;
    Complain(call_.World) << program_.LinkState.ErrorMeaning() << "\n";
    TellPage(call_.World, FailureSection(error, program_.LinkState.FailedIn));
    call_.World.Err << "Failed to read the stream, check connections, then try again.      ( " << error
                    << ")\n";
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

#include "cli/stream_run.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "cli/cli_files.h"
#include "cli/cli_output.h"
#include "cli/exact_number.h"
#include "cli/failure_page.h"
#include "link/exchange.h"
#include "link/link_error.h"
#include "link/list_cutter.h"
#include "link/prepare_readings.h"
#include "link/reading_items.h"
#include "link/reading_stream.h"
#include "link/waits.h"

namespace counter {

namespace {

// A meter with a longer gate time is told of as well, which does it no harm.
constexpr double kSilentMs = 10'000;

bool HasStream(const CommandCall& call) {
    const Settings settings = StoredSettings(call);
    return !settings.ModbusLink && !settings.EthernetMode;
}

// Readings that come faster than this one after another are taken some at a time, since being woken costs
// more than a reading does.
constexpr double kTogetherMs = 10;

class StreamRun {
  public:
    StreamRun(const CommandCall& call, LinkSession& link, const StreamLimits& limits, ReadingSink& sink)
        : call_(call), link_(link), program_(link.Program()), limits_(limits), sink_(sink) {}
    // The exit status.
    int Run();

  private:
    void Prepare();
    void Stream();
    bool StartSilent();
    bool IsEcho(const std::string& text);
    void WaitForReadings();
    void Take(const std::string& text);
    void EndPass();
    bool Over() const;
    int Report();

    const CommandCall& call_;
    LinkSession& link_;
    Session& program_;
    const StreamLimits& limits_;
    ReadingSink& sink_;
    long long taken_ = 0;
    double lastMs_ = 0;  // of the newest reading, or of the start
    double passMs_ = 0;  // of the last pass's end
    std::string echo_;   // of the command, which the first frame may be
    bool interrupted_ = false;
    Status written_;  // of the first output that failed
};

int StreamRun::Run() {
    written_ = sink_.Open(link_);
    if (written_.Ok()) {
        program_.Pump.OnInterrupt = [this] { interrupted_ = true; };
        Prepare();
        if (program_.LinkState.LinkError == LinkErrors::kGood && !interrupted_ && written_.Ok())
            Stream();
        else
            sink_.GiveUp();
    }
    link_.Finish();
    return Report();
}

void StreamRun::Prepare() {
    int& error = program_.LinkState.LinkError;
    error = PrepareReadings(program_.Link, program_.Identity.FirmwareVersion, program_.Frames);
    if (error == LinkErrors::kGood && !interrupted_) written_ = sink_.Begin(link_);
}

// However it ends, the meter is told to stop. What a file held is given up only here, for a meter that
// answers.
void StreamRun::Stream() {
    auto cutter = std::make_unique<ListCutter>(program_.Frames);
    ListCutter& frames = *cutter;
    ReadingStream stream(program_.Link, std::move(cutter));
    stream.TakeFrame = [this](const Frame& frame) {
        if (!Over() && !IsEcho(frame.Text)) Take(std::string(Stripped(frame.Text)));
    };
    stream.PassDone = [this] { EndPass(); };
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
    const Status ended = sink_.End();
    if (written_.Ok()) written_ = ended;
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
    written_ = sink_.Take(text);
}

void StreamRun::EndPass() {
    if (written_.Ok()) written_ = sink_.PassDone();
    const double sinceMs = program_.Pump.NowMs() - passMs_;
    if (sinceMs < kTogetherMs && !Over()) program_.Pump.Rest(kTogetherMs - sinceMs);
    passMs_ = program_.Pump.NowMs();
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

std::string ReadLimits(const CommandCall& call, StreamLimits& limits) {
    if (call.Has("--count")) {
        limits.Count = ExactNumber<long long>(call.Options.at("--count")).value_or(0);
        if (limits.Count <= 0) return "--count is a whole number above 0";
    }
    if (call.Has("--seconds")) {
        const double seconds = ExactNumber<double>(call.Options.at("--seconds")).value_or(0);
        if (!std::isfinite(seconds) || seconds <= 0) return "--seconds is a number above 0";
        limits.Ms = seconds * 1000;
    }
    return {};
}

int RunStream(const CommandCall& call, const StreamLimits& limits, ReadingSink& sink) {
    if (!HasStream(call))
        return RefuseCall(call, "the reading stream exists only in Custom ASCII over a serial line");
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    StreamRun run(call, link, limits, sink);
    return run.Run();
}

}  // namespace counter

#include "cli/link_session.h"

#include <utility>

#include "cli/failure_page.h"
#include "link/port_setup.h"
#include "shell/backups.h"
#include "shell/get_action.h"
#include "shell/put_action.h"
#include "shell/start.h"

namespace counter {

namespace {

constexpr int kBarCharacters = 40;

auto LineTo(std::ostream& err) {
    return [&err](const std::string& line) { err << line << std::endl; };
}

std::unique_ptr<TracePort> MakeTrace(const CommandCall& call, Machine& machine) {
    if (!call.Trace) return nullptr;
    return std::make_unique<TracePort>(machine.Port(), machine.Pump(), LineTo(call.World.Err));
}

std::unique_ptr<TraceSockets> MakeNetTrace(const CommandCall& call, Machine& machine) {
    if (!call.Trace) return nullptr;
    return std::make_unique<TraceSockets>(machine.Sockets(), machine.Pump(), LineTo(call.World.Err));
}

SerialPort& PortOf(TracePort* trace, Machine& machine) {
    if (trace != nullptr) return *trace;
    return machine.Port();
}

}  // namespace

std::string WithNumber(const std::string& text, int linkError) {
    return text + " (" + std::to_string(linkError) + ")";
}

void LineDialogs::Show(const Message& message) {
    shown_.push_back(message);
    if (BeforeLine) BeforeLine();
    std::string line = message.Title.empty() ? message.Text : message.Title + " " + message.Text;
    for (char& c : line) c = c == '\r' || c == '\n' ? ' ' : c;
    err_ << line << std::endl;
}

Json LineDialogs::Messages() const {
    Json list = Json::array();
    for (const Message& message : shown_) list.push_back({{"title", message.Title}, {"text", message.Text}});
    return list;
}

LinkSession::LinkSession(const CommandCall& call)
    : call_(call),
      machine_(call.World.MakeMachine(call.Folder)),
      dialogs_(call.World.Err),
      trace_(MakeTrace(call, *machine_)),
      netTrace_(MakeNetTrace(call, *machine_)),
      session_(machine_->Pump(), PortOf(trace_.get(), *machine_), dialogs_, {call.World.Store, call.Folder},
               netTrace_ ? netTrace_->Both() : machine_->Sockets()) {
    machine_->Pump().OnInterrupt = [this] { OnInterrupt(); };
    dialogs_.BeforeLine = [this] { EndBar(); };
    if (call.World.ErrIsTerminal && !call.Trace) session_.Home.Changed = [this] { ShowProgress(); };
}

LinkSession::~LinkSession() {
    machine_->Pump().OnInterrupt = nullptr;
}

int LinkSession::Begin() {
    const Status status = Start(session_);
    if (const std::string section = FailureSection(status); !section.empty()) TellPage(call_.World, section);
    if (!status.Ok()) return RefuseStatus(call_, status);
    if (session_.LinkState.EthernetMode) return LogIn();
    if (session_.Settings.CommsEnabled > 0) return kDone;
    return RefuseStatus(
        call_, {StatusKind::Illegal, session_.Folder.At(kSettingsFile),
                "there is no serial link (CommsEnabled is 0); counterctl settings set CommsEnabled=1"});
}

// A node that does not call is told by the text of the desktop's message box.
int LinkSession::LogIn() {
    session_.Node.TryBegins = [this](int tryNumber) {
        session_.Home.ProgressTo(100 * tryNumber / NodeClient::kLoginTries);
        session_.Home.ShowProgress(tryNumber > 1);
    };
    const Status ports = LogIntoNode(session_);
    session_.Home.ProgressVisible = false;
    if (!ports.Ok()) return RefuseStatus(call_, ports);
    if (session_.Node.Connected()) return TellStranger();
    Tell(SeePage(kNodeSection));
    dialogs_.Show({"", kNoNodeCall, BoxIcon::None});
    Finish();
    if (call_.Json)
        WriteJson(call_, {{"status", kNoNodeCall}, {"LinkError", 0}, {"messages", dialogs_.Messages()}});
    return kLinkFailed;
}

// Any caller is taken for the node; one from elsewhere deserves a word.
int LinkSession::TellStranger() {
    const std::string caller = session_.Node.Caller(), &node = session_.Settings.NodeIp;
    if (!caller.empty() && caller != node) {
        EndBar();
        Complain(call_.World) << "the call came from " << caller << ", not from the node's address, " << node
                              << "\n";
    }
    return kDone;
}

int LinkSession::Get() {
    GetSetup(session_);
    if (session_.LinkState.LinkError != 0) return kLinkFailed;
    if (!session_.Home.SetupDoubt.empty()) return kLinkFailed;
    if (const std::string words = NoBackupWords(session_.Home.Backup); !words.empty()) Tell(words);
    return kDone;
}

Status LinkSession::Put() {
    WillPut();
    return PutSetup(session_);
}

void LinkSession::EndBar() {
    if (std::exchange(barOnScreen_, false)) call_.World.Err << "\n";
}

void LinkSession::Finish() {
    if (std::exchange(finished_, true)) return;
    ClosePort(session_.Link);
    session_.Node.Close();
    session_.Home.Changed = nullptr;
    EndBar();
}

int LinkSession::End(const Json& more) {
    const std::string& status = session_.Home.StatusText;
    return EndAction({status, status, more});
}

int LinkSession::EndAction(const ActionEnd& end) {
    const int error = session_.LinkState.LinkError;
    const std::string& doubt = session_.Home.SetupDoubt;
    const bool failed = end.Failed || error != 0 || !doubt.empty();
    Finish();
    if (call_.Json) {
        Json document = {{"status", Utf8(end.Status)}, {"LinkError", error}};
        if (error != 0) document["LinkErrorText"] = session_.LinkState.ErrorMeaning();
        if (!doubt.empty()) document["doubt"] = doubt;
        document.update(end.More);
        document["messages"] = dialogs_.Messages();
        WriteJson(call_, document);
    } else if (!failed) {
        call_.Text() << end.Plain << "\n";
    }
    if (error != 0) {
        Complain(call_.World) << session_.LinkState.ErrorMeaning() << "\n";
        TellPage(call_.World, FailureSection(error, session_.LinkState.FailedIn));
    } else if (!doubt.empty()) {
        Complain(call_.World) << doubt << "\n";
        TellPage(call_.World, kDoubtSection);
    }
    if (failed) call_.World.Err << end.Status << "\n";
    return failed ? kLinkFailed : kDone;
}

void LinkSession::ShowProgress() {
    if (!session_.Home.ProgressVisible) return;
    const int filled = session_.Home.ProgressPercent * kBarCharacters / 100;
    call_.World.Err << "\r[" << std::string(static_cast<std::size_t>(filled), '#')
                    << std::string(static_cast<std::size_t>(kBarCharacters - filled), ' ') << "] "
                    << session_.Home.ProgressPercent << " %" << std::flush;
    barOnScreen_ = true;
}

void LinkSession::OnInterrupt() {
    if (trace_) trace_->Flush();
    session_.Port.Close();
    session_.Node.Close();
    EndBar();
    Complain(call_.World) << "interrupted" << SentSoFar() << "\n" << std::flush;
    if (Interrupted) Interrupted();
    call_.World.Out << std::flush;
    machine_->Pump().EndProcess(kInterrupted);
}

void LinkSession::Tell(const std::string& line) {
    EndBar();
    Complain(call_.World) << line << "\n";
}

void LinkSession::TellSent() {
    Tell("not put whole" + SentSoFar());
}

std::string LinkSession::SentSoFar() const {
    if (!putting_) return {};
    if (session_.LinkState.FramesWritten.empty()) return "; nothing was written";
    std::string text = "; sent so far:";
    for (const std::string& frame : session_.LinkState.FramesWritten) text += " " + frame;
    return text;
}

}  // namespace counter

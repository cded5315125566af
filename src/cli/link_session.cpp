#include "cli/link_session.h"

#include <utility>

#include "link/link_error.h"
#include "link/port_setup.h"
#include "shell/get_action.h"
#include "shell/put_action.h"
#include "shell/start.h"

namespace counter {

namespace {

constexpr int kBarCharacters = 40;

std::unique_ptr<TracePort> MakeTrace(const CommandCall& call, Machine& machine) {
    if (!call.Trace) return nullptr;
    std::ostream& err = call.World.Err;
    return std::make_unique<TracePort>(machine.Port(), machine.Waits(),
                                       [&err](const std::string& line) { err << line << std::endl; });
}

SerialPort& PortOf(TracePort* trace, Machine& machine) {
    if (trace != nullptr) return *trace;
    return machine.Port();
}

}  // namespace

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
      session_(machine_->Waits(), PortOf(trace_.get(), *machine_), dialogs_,
               {call.World.Store, call.Folder}) {
    machine_->Waits().OnInterrupt = [this] { OnInterrupt(); };
    dialogs_.BeforeLine = [this] { EndBar(); };
    if (call.World.ErrIsTerminal && !call.Trace) session_.Home.Changed = [this] { ShowProgress(); };
}

LinkSession::~LinkSession() {
    machine_->Waits().OnInterrupt = nullptr;
}

int LinkSession::Begin() {
    const Status status = Start(session_);
    if (!status.Ok()) return RefuseStatus(call_, status);
    if (session_.LinkData.EthernetMode == 1)
        return RefuseCall(call_, "meters behind a node are not there yet");
    if (session_.Stored.CommsEnabled > 0) return kDone;
    return RefuseStatus(
        call_, {StatusKind::Illegal, session_.Folder.At(kSettingsFile),
                "there is no serial link (CommsEnabled is 0); counterctl settings set CommsEnabled=1"});
}

int LinkSession::Get() {
    GetSetup(session_);
    if (session_.LinkData.LinkError != 0) return kLinkFailed;
    const Status& kept = session_.Home.Backup;
    if (!kept.Ok()) {
        EndBar();
        call_.World.Err << "counterctl: no backup: " << kept.Text() << "\n";
    }
    return kDone;
}

Status LinkSession::Put() {
    putting_ = true;
    return PutSetup(session_);
}

void LinkSession::EndBar() {
    if (std::exchange(barOnScreen_, false)) call_.World.Err << "\n";
}

void LinkSession::Finish() {
    if (std::exchange(finished_, true)) return;
    ClosePort(session_.Line);
    session_.Home.Changed = nullptr;
    EndBar();
}

int LinkSession::End(const Json& more) {
    const int error = session_.LinkData.LinkError;
    const std::string& status = session_.Home.StatusText;
    Finish();
    if (call_.Json) {
        Json document = {{"status", status}, {"LinkError", error}};
        document.update(more);
        document["messages"] = dialogs_.Messages();
        WriteJson(call_, document);
    } else if (error == 0) {
        call_.World.Out << status << "\n";
    }
    if (error == 0) return kDone;
    call_.World.Err << "counterctl: " << LinkErrorMeaning(error) << "\n" << status << "\n";
    return kLinkFailed;
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
    EndBar();
    call_.World.Err << "counterctl: interrupted" << WrittenSoFar() << "\n" << std::flush;
    call_.World.Out << std::flush;
    machine_->Waits().EndProcess(kInterrupted);
}

std::string LinkSession::WrittenSoFar() const {
    if (!putting_) return {};
    if (session_.LinkData.FramesWritten.empty()) return "; nothing was written";
    std::string text = "; written so far:";
    for (const std::string& frame : session_.LinkData.FramesWritten) text += " " + frame;
    return text;
}

}  // namespace counter

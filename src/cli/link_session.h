// LinkSession: a session for one command that talks to the meter.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "cli/cli.h"
#include "cli/cli_output.h"
#include "platform/trace.h"
#include "session/session.h"

namespace counter {

// Message boxes as lines on standard error, kept for the JSON document.
class LineDialogs : public Dialogs {
  public:
    explicit LineDialogs(std::ostream& err) : err_(err) {}
    void Show(const Message& message) override;
    Json Messages() const;
    std::function<void()> BeforeLine;  // may be empty

  private:
    std::ostream& err_;
    std::vector<Message> shown_;
};

// The text of a failure with its number in brackets after it.
std::string WithNumber(const std::string& text, int linkError);

// How an action ended whose status line is not the home view's.
struct ActionEnd {
    std::string Status;  // the line; of a failure with the number in brackets
    std::string Plain;   // what is printed of a good end without --json
    Json More = Json::object();
    bool Failed = false;  // whatever LinkError says
};

class LinkSession {
  public:
    explicit LinkSession(const CommandCall& call);
    ~LinkSession();
    LinkSession(const LinkSession&) = delete;
    LinkSession& operator=(const LinkSession&) = delete;

    // Reads the settings and opens the port, or has the node call back. Returns 0, or the exit status with
    // its line written.
    int Begin();
    // Get Setup. Returns 0, or 3 for a failure that End tells.
    int Get();
    // From now on an interrupt says what of a Put has gone out, be it nothing.
    void WillPut() { putting_ = true; }
    // A line on standard error, after the bar.
    void Tell(const std::string& line);
    // Put Setup of the session's image. The status is of settings and port, which follow it.
    Status Put();
    // Which frames of a Put that failed have gone out: the meter may hold what was in them.
    void TellSent();
    // Closes the port and the progress bar; again is nothing.
    void Finish();
    // Finishes and tells how the action ended: the status line, with --json as a document that `more` adds
    // to, a failure on standard error. Returns 0 or 3.
    int End(const Json& more);
    int EndAction(const ActionEnd& end);

    Session& Program() { return session_; }
    // Before an interrupt ends the process; may be empty.
    std::function<void()> Interrupted;

  private:
    int LogIn();
    int TellStranger();
    void ShowProgress();
    void EndBar();
    void OnInterrupt();
    std::string SentSoFar() const;  // the frames of a Put that did not end

    const CommandCall& call_;
    std::unique_ptr<Machine> machine_;
    LineDialogs dialogs_;
    std::unique_ptr<TracePort> trace_;
    std::unique_ptr<TraceSockets> netTrace_;
    Session session_;
    bool barOnScreen_ = false;
    bool putting_ = false;
    bool finished_ = false;
};

}  // namespace counter

// EditConsole: a user at a terminal who works the Setup view line by line.
//
//   edit> select cboBaudRate 19200
//     cboBaudRate  9600 -> 19200
//   edit> enter txtSetpt 1
//   no control 'txtSetpt'; there is txtSetpt[1] txtSetpt[2] txtSetpt[3] txtSetpt[4]
//
// Lines are the actions of a script, and the words help, list, show, undo and quit. What can't be done is
// told and changes nothing. All of the conversation goes to standard error: standard output is for documents.
#pragma once

#include <string>
#include <vector>

#include "cli/setup_run.h"

namespace counter {

class EditConsole : public Player {
  public:
    explicit EditConsole(const CliWorld& world) : world_(world) {}

    // Asks for a line and does it. False at the end of input and at "quit".
    bool Step(SetupRun& run) override;
    // The user wants nothing written.
    bool Quit() const { return quit_; }

  private:
    // What a user sees of a control.
    struct Seen {
        bool Reachable = false;
        std::string Value;
    };
    using Picture = std::vector<Seen>;  // of all controls, in the form's order

    static Picture PictureOf(SetupRun& run);
    bool Word(SetupRun& run, const std::string& word, const std::string& rest);
    void Act(SetupRun& run, const std::string& line);
    void Undo(SetupRun& run);
    void TellChanges(SetupRun& run, const Picture& before);
    void List(SetupRun& run, const std::string& filter);
    void Show(SetupRun& run, const std::string& name);
    void Say(const std::string& text) { world_.Err << text << "\n"; }

    const CliWorld& world_;
    std::vector<SetupImage> undo_;
    bool quit_ = false;
};

}  // namespace counter

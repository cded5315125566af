// Dialogs: what must stop the user, and what asks.
#pragma once

#include <string>

namespace counter {

enum class BoxIcon { None, Stop };

struct Message {
    std::string Title;
    std::string Text;
    BoxIcon Icon = BoxIcon::None;
    std::string About = {};  // what the text is about, such as a file, beside it; empty for nothing
    std::string Yes = {};    // of a question that may lose something: its answers in words, in place of OK
    std::string No = {};     // and Cancel; Enter is then No
};

struct FileQuestion {
    std::string Title;
    std::string Filter;         // "Setup files (*.CT2)|*.CT2": what the user reads, then the pattern
    bool AskToReplace = false;  // saving: an existing file is only replaced when the user says so
    std::string Proposed = {};  // the name that is in the box at first; may be empty
};

// Where nobody sits at a screen, questions are cancelled and a beep is silent.
class Dialogs {
  public:
    virtual ~Dialogs() = default;
    // Shows a message box and returns when the user has closed it.
    virtual void Show(const Message& message) = 0;
    // A box with OK and Cancel; true for OK.
    virtual bool Confirm(const Message&) { return false; }
    // The path that the user chose; empty where the dialog was cancelled. A name without the ending of the
    // pattern gets it: when saving always, when opening where only such a file is there.
    virtual std::string AskOpenFile(const FileQuestion&) { return {}; }
    virtual std::string AskSaveFile(const FileQuestion&) { return {}; }
    virtual void Beep() {}
};

}  // namespace counter

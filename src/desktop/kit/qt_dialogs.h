// QtDialogs: message boxes and file dialogs over the program's window.
#pragma once

#include <QPointer>
#include <QWidget>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "platform/pump.h"

class QDialog;

namespace counter {

// A box is waited for by the pump's own wait, so that a message box is one reason on its stack like any
// other.
class QtDialogs : public Dialogs {
  public:
    // File dialogs begin in `folder`, later where the user was last.
    QtDialogs(Pump& pump, std::string folder) : pump_(pump), folder_(std::move(folder)) {}

    // The window that boxes open over; null: none yet.
    void SetParent(QWidget* parent) { parent_ = parent; }

    void Show(const Message& message) override;
    bool Confirm(const Message& message) override;
    std::string AskOpenFile(const FileQuestion& question) override;
    std::string AskSaveFile(const FileQuestion& question) override;
    void Beep() override;

    // A question with two answers of its own; true for the first.
    bool Choose(const Message& message, const std::string& yes, const std::string& no);
    // The same with any number of answers: the place of the one that was picked, of the last where the box
    // was closed.
    int ChooseOf(const Message& message, const std::vector<std::string>& answers);

  private:
    // Shows it over the window and waits until it is closed; its result.
    int RunDialog(QDialog& dialog, const char* reason);
    std::string AskFile(const FileQuestion& question, bool save);

    Pump& pump_;
    std::string folder_;
    QPointer<QWidget> parent_;
};

}  // namespace counter

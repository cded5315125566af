// SendCurveView: the dialog that sends a .PRM file to the meter.
//
// It keeps nothing but the folder: every Go begins with the explanation. Of a transfer whose first item is
// out both go out whatever is pressed meanwhile, since half a curve helps nobody; Cancel stops it before that
// or after, and what the meter was left with is told. After the dialog was left it writes nothing more into
// it. A program that is to end does so when both items have gone out, and says that they were not verified.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/page_builder.h"
#include "curve/curve_transfer.h"
#include "session/session.h"

namespace counter {

class SendCurveView {
  public:
    static constexpr const char* kTitle = "Send PRM";

    explicit SendCurveView(Session& session);

    // The dialog opens, fresh and with the explanation, in the folder of the last file that it found; the
    // first time in the program folder.
    void Load();
    // The dialog is left, whatever it waits for.
    void Unload();

    // Writes the explanation for the meter at hand and settles which boards are offered.
    void Explain();

    // Escape: cancels what is under way. False where nothing is.
    bool Cancel();

    // Closes the dialog; may be empty.
    std::function<void()> CloseDialog;

  private:
    static constexpr int kHelpNumber = 3119;

  public:
    Session& Program;
    Form Controls;
    PageBuilder Build{Controls, kEveryTab, [](std::string_view) { return kHelpNumber; }};

    // clang-format off
    Control& picSend     = Build.Add(ControlKind::Picture, nullptr, "picSend");
    Control& fraVF       = Build.Add(ControlKind::Frame,   nullptr, "fraVF", "Send .PRM File To");
    Control& optMainBd   = Build.Add(ControlKind::Option,  &fraVF,  "optVF", "Computer Board Curve #1", 0);
    Control& optVFBd     = Build.Add(ControlKind::Option,  &fraVF,  "optVF", " VF Board    Curve #2", 1);
    Control& lblPath     = Build.Add(ControlKind::Label,   nullptr, "lblPath", "Directory path of .PRM file");
    Control& txtPath     = Build.Add(ControlKind::Entry,   nullptr, "txtPath");
    Control& lblFileName = Build.Add(ControlKind::Label,   nullptr, "lblFileName", "Name of .PRM file to be sent");
    Control& txtFileName = Build.Add(ControlKind::Entry,   nullptr, "txtFileName");
    Control& cmdGo       = Build.Add(ControlKind::Button,  nullptr, "cmdGo", "Go");
    Control& cmdCancel   = Build.Add(ControlKind::Button,  nullptr, "cmdCancel", "Cancel");
    Control& cmdDone     = Build.Add(ControlKind::Button,  nullptr, "cmdDone", "Done");
    // clang-format on

  private:
    void Go();
    void Send(const CurveItems& items);
    bool AcceptsName(std::string_view name);
    // As typed, or under whatever letters, large or small, the folder has the name: such files come from a
    // system that makes no difference.
    std::string PathOf(std::string_view name) const;
    CurveBoard Target() const;
    void Write(const std::string& text);
    void Tell(const char* title, const char* text);

    int sending_ = 0;        // under way, one in a wait of the other
    int begun_ = 0;          // since the program began
    int cancelledUpTo_ = 0;  // those up to this number stop
    std::string folder_;     // as it was typed for the last file that was found
    int opening_ = 0;        // counts how often the dialog was left
};

}  // namespace counter

// SetupDesk: a second Setup view beside the program's own, on a copy of the setup.
//
// It has no line, no screen and no time: all that the view does is done at once, and nothing of it reaches
// meter, files or the program's session.
#pragma once

#include <functional>
#include <string>

#include "offline/no_machine.h"
#include "offline/view_user.h"
#include "platform/dialogs.h"
#include "session/session.h"

namespace counter {

class SetupDesk {
  public:
    // With the settings, meter and derived values of a session.
    explicit SetupDesk(const Session& like);
    SetupDesk(const SetupDesk&) = delete;
    SetupDesk& operator=(const SetupDesk&) = delete;

    // Opens the view on a setup. False, as below.
    bool Open(const SetupImage& image);
    // Lets `act` act on the view. False where that would have ended the program: the view is of no use any
    // more, and WhyEnded tells what its last message said.
    bool Do(const std::function<void()>& act);
    const std::string& WhyEnded() const { return boxes_.Last; }

    Session& Program() { return session_; }
    SetupView& View() { return view_; }
    ViewUser& User() { return user_; }

  private:
    struct LastMessage : Dialogs {
        void Show(const Message& message) override { Last = message.Text; }
        std::string Last;
    };

    JumpingPump pump_;
    ClosedPort port_;
    LastMessage boxes_;
    Session session_;
    SetupView view_;
    ViewUser user_;
};

}  // namespace counter

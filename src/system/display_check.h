// DisplayCheck: a program with windows that is started where no display is ends with a line and a status of
// its own, not with an abort of the toolkit.
#pragma once

namespace counter {

// Exit status of a desktop program that has no display.
inline constexpr int kNoDisplayExit = 4;

// Lives while the application object is made, and no longer: what the toolkit can't go on after in that time
// is that no display can be opened. Its other messages are dropped meanwhile.
class DisplayCheck {
  public:
    DisplayCheck();
    ~DisplayCheck();
    DisplayCheck(const DisplayCheck&) = delete;
    DisplayCheck& operator=(const DisplayCheck&) = delete;
};

}  // namespace counter

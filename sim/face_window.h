// FaceWindow: the meter's face in a window of its own, which is another program.
#pragma once

#include <sys/types.h>
#include <string>

#include "sim/face.h"

namespace sim {

// One face as a line for counter-face: six characters with "." for a blank digit, the digit after which the
// point is lit, 1 for minus, alarms 1 to 4, the Item, 1 for a remote value.
std::string FaceLine(const FaceState& face);

class FaceWindow {
  public:
    FaceWindow() = default;
    ~FaceWindow();
    FaceWindow(const FaceWindow&) = delete;
    FaceWindow& operator=(const FaceWindow&) = delete;

    // Starts counter-face, which is beside this program, and waits for its window. Empty, or why it can't be
    // started.
    std::string Open();
    // False where counter-face has ended without a window, and said why.
    bool Shown() const { return shown_; }
    // A window that was closed meanwhile is no failure: the meter goes on without its face.
    void Show(const FaceState& face);

  private:
    int pipe_ = -1;
    pid_t program_ = -1;
    bool shown_ = false;
};

}  // namespace sim

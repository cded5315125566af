// LineEnd: the far end of a pseudo terminal, played by a process of its own, so that what it costs is not
// counted.
#pragma once

#include <sys/types.h>
#include <string>

// How many frames to send, and how often; 0 ms is as fast as the line takes them.
struct Order {
    int Frames = 0;
    double EveryMs = 0;
};

class LineEnd {
  public:
    LineEnd();
    ~LineEnd();
    LineEnd(const LineEnd&) = delete;
    LineEnd& operator=(const LineEnd&) = delete;

    // The device of the near end.
    const std::string& Device() const { return device_; }
    // Begins at once; the order before must be done.
    void Send(Order order) const;
    // When the last frame was given to the line, in ms of the steady clock.
    double LastSentMs() const { return *lastSentMs_; }

  private:
    std::string device_;
    int orders_ = -1;
    volatile double* lastSentMs_ = nullptr;
    pid_t process_ = -1;
};

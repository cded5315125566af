// ReadingStream: the readings that the meter sends by itself, from command A0 until command A1.
//
// There is no loop: arriving input drives PumpInput, one pass of receive, cut and hand on. The stream has no
// request, no deadline and no error report; a meter that falls silent, or a line that goes away, just sends
// no more. It exists only in Custom ASCII over a serial line.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "link/frame_cutter.h"
#include "link/link.h"

namespace counter {

// Makes the meter send its readings, and throws away what has arrived by then. Takes 300 ms, in which events
// run.
void StreamStart(Link& link);
// Makes it stop. Takes 300 ms, in which events run.
void StreamStop(Link& link);

class ReadingStream {
  public:
    using Taker = std::function<void(const Frame&)>;

    ReadingStream(Link& link, std::unique_ptr<FrameCutter> cutter)
        : link_(link), cutter_(std::move(cutter)) {}
    ~ReadingStream() { Detach(); }
    ReadingStream(const ReadingStream&) = delete;
    ReadingStream& operator=(const ReadingStream&) = delete;

    // 1: input is thrown away as it arrives, so the first end after a pause only ends a partial frame.
    // Nothing is sent to the meter. Written by Pause and Resume.
    int ReadingPaused = 0;
    void Pause();
    void Resume();

    // From now on arriving input is taken, beginning within a frame. One stream at a time has the port: the
    // last one attached.
    void Attach();
    // The same, but what has arrived by now stays for the next pass.
    void AttachKeeping();
    // No arriving byte is taken any more; again is nothing.
    void Detach();
    bool Attached() const;

    // Whoever keeps the readings gets every frame, also one that the view's cutter drops. From the next
    // whole frame on; a paused stream has none for him either. No cutter: nobody keeps them any more.
    void KeepAll(std::unique_ptr<FrameCutter> cutter, Taker taker);

    // One pass: what has arrived is received, cut and handed on. A taker that pauses or detaches the stream
    // gets no further frame.
    void PumpInput();
    // Throws away what has arrived, here and at the port.
    void DrainInput();

    Taker TakeFrame;                 // gets each frame; may be empty
    std::function<void()> PassDone;  // told after a pass that handed something on; may be empty

  private:
    struct Listener {
        ReadingStream* Of;
        void operator()() const { Of->PumpInput(); }
    };

    void HandToKeeper(const std::string& bytes);
    void Restart();

    Link& link_;
    std::unique_ptr<FrameCutter> cutter_;
    std::unique_ptr<FrameCutter> keepersCutter_;
    Taker keep_;
};

}  // namespace counter

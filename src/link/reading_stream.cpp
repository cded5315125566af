#include "link/reading_stream.h"

#include "link/exchange.h"

namespace counter {

void StreamStart(Link& link) {
    SendAscii(link, "A0");
    link.Port.Input();
}

void StreamStop(Link& link) {
    SendAscii(link, "A1");
}

void ReadingStream::Pause() {
    ReadingPaused = 1;
    DrainInput();
}

void ReadingStream::Resume() {
    DrainInput();
    ReadingPaused = 0;
}

void ReadingStream::Attach() {
    AttachKeeping();
    DrainInput();
}

void ReadingStream::AttachKeeping() {
    link_.Port.Arrived = Listener{this};
}

void ReadingStream::Detach() {
    if (Attached()) link_.Port.Arrived = nullptr;
    cutter_->Restart();
}

bool ReadingStream::Attached() const {
    const Listener* listener = link_.Port.Arrived.target<Listener>();
    return listener && listener->Of == this;
}

void ReadingStream::PumpInput() {
    if (ReadingPaused != 0) {
        DrainInput();
        return;
    }
    cutter_->Receive(link_.Port.Input());
    Frame frame;
    bool handedOn = false;
    while (Attached() && ReadingPaused == 0 && cutter_->Next(frame)) {
        if (TakeFrame) TakeFrame(frame);
        handedOn = true;
    }
    if (handedOn && PassDone) PassDone();
}

void ReadingStream::DrainInput() {
    if (Attached()) link_.Port.Input();
    cutter_->Restart();
}

}  // namespace counter

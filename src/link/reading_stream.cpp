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
    Restart();
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
    const std::string bytes = link_.Port.Input();
    HandToKeeper(bytes);
    cutter_->Receive(bytes);
    Frame frame;
    bool handedOn = false;
    while (Attached() && ReadingPaused == 0 && cutter_->Next(frame)) {
        if (TakeFrame) TakeFrame(frame);
        handedOn = true;
    }
    if (handedOn && PassDone) PassDone();
}

void ReadingStream::KeepAll(std::unique_ptr<FrameCutter> cutter, Taker taker) {
    keepersCutter_ = std::move(cutter);
    keep_ = std::move(taker);
}

void ReadingStream::HandToKeeper(const std::string& bytes) {
    if (!keepersCutter_) return;
    keepersCutter_->Receive(bytes);
    Frame frame;
    while (keepersCutter_->Next(frame)) keep_(frame);
}

void ReadingStream::Restart() {
    cutter_->Restart();
    if (keepersCutter_) keepersCutter_->Restart();
}

void ReadingStream::DrainInput() {
    if (Attached()) link_.Port.Input();
    Restart();
}

}  // namespace counter

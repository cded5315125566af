// AwaitedReply: a reply that is being taken in.
//
// A press in one of its waits may send a command of its own. Before that goes out, this reply is taken in to
// its end by whoever sends, and its own taker finds it done: exchanges never overlap on the line, and none
// takes the reply of another.
#pragma once

#include <string>

#include "link/link.h"

namespace counter {

class AwaitedReply {
  public:
    // Awaited from now on until it goes out of scope; a reply that has not begun `longestMs` from now is
    // none.
    AwaitedReply(Link& link, double longestMs);
    ~AwaitedReply();
    AwaitedReply(const AwaitedReply&) = delete;
    AwaitedReply& operator=(const AwaitedReply&) = delete;

    std::string Bytes;
    int LinkError = 0;  // serial: no reply, or the port failed

    // Returns when the reply is in. Serial: 200 ms after its first character for its first part, then until
    // none comes for ten characters' time and 50 ms. Through the node it comes in one piece.
    void TakeIn();

  private:
    void TakeFromNode();
    bool FirstCharacterCame();
    void TakeUntilSilence();
    bool Stirs() const;
    void End(int linkError);

    Link& link_;
    AwaitedReply* const outer_;
    const double firstBeforeMs_;
    bool done_ = false;
};

}  // namespace counter

// FrameCutter: cuts the bytes of the reading stream into frames. It takes bytes and never waits.
//
// There are two flavours. The List wants every reading as the meter writes it; Plot and Graph want the latest
// one and no backlog. Both throw away what comes before the first FrameEndChar after a start or a pause,
// since it may be the rest of a frame, and both skip an empty frame.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace counter {

struct Frame {
    std::string Text;
    // Plot and Graph: the frame as the meter sent it, of which Text is the part that is parsed. Empty: Text
    // is all.
    std::string Whole;
    bool OnlySizes = false;  // List: the first whole frame after a start; it sizes the grid and isn't listed
};

class FrameCutter {
  public:
    virtual ~FrameCutter() = default;
    // Empties the buffer; what is received next begins within a frame.
    virtual void Restart() = 0;
    // What arrived together.
    virtual void Receive(std::string_view bytes) = 0;
    // The next frame; false: none before more is received.
    virtual bool Next(Frame& frame) = 0;
};

// No frame is nearly as long: a stream in which no end comes is noise, or was prepared for by wrong rules,
// and must not fill the memory.
inline constexpr std::size_t kLongestFrame = 4096;

}  // namespace counter

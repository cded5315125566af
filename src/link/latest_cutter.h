// LatestCutter: the readings of the stream for those who must keep up with the meter.
#pragma once

#include "link/frame_cutter.h"
#include "link/frame_rules.h"
#include "link/reading_buffer.h"

namespace counter {

// One frame an arrival at most. Frames are taken to be of equal length: of those that are in the buffer the
// oldest is used and the others vanish. The text is cleaned, see CleanReading, and a frame with nothing left
// is skipped.
class LatestCutter : public FrameCutter {
  public:
    explicit LatestCutter(const FrameRules& rules) : rules_(rules) {}
    void Restart() override;
    void Receive(std::string_view bytes) override;
    bool Next(Frame& frame) override;

  private:
    const FrameRules& rules_;
    ReadingBuffer buffer_;
    int frameState_ = 1;  // 1: up to the first end all is thrown away; 0: frames are good
    bool arrived_ = false;
};

// What can be parsed of a frame: from its first blank, sign, point or digit on, at most 8 characters.
std::string_view CleanReading(std::string_view frame);

}  // namespace counter

// ListCutter: every reading of the stream as the meter writes it.
#pragma once

#include "link/frame_cutter.h"
#include "link/frame_rules.h"
#include "link/reading_buffer.h"

namespace counter {

// However the bytes are split into arrivals, the frames are the same. A leading FrameEndChar is dropped by
// itself. The first cut takes the rest of a frame and one character more where a line feed follows; the frame
// after it only sizes the grid.
class ListCutter : public FrameCutter {
  public:
    // `rules` are read at each cut, so they may be prepared later.
    explicit ListCutter(const FrameRules& rules) : rules_(rules) {}
    void Restart() override;
    // What is received next begins with a whole frame: the meter was silent before.
    void BeginWithFrame() { frameState_ = 2; }
    void Receive(std::string_view bytes) override { buffer_.Append(bytes); }
    bool Next(Frame& frame) override;

  private:
    std::string CutText(std::size_t pos);
    void DropPast(std::size_t pos);
    bool IsNoise(std::size_t pos) const;
    void DropNoise();

    const FrameRules& rules_;
    ReadingBuffer buffer_;
    int frameState_ = 1;  // 1: up to the first end all is thrown away; 2: the next frame only sizes; 0: good
};

}  // namespace counter

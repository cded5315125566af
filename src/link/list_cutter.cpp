#include "link/list_cutter.h"

namespace counter {

void ListCutter::Restart() {
    buffer_.Clear();
    frameState_ = 1;
}

bool ListCutter::Next(Frame& frame) {
    for (;;) {
        while (buffer_.BeginsWith(rules_.FrameEndChar)) buffer_.Drop(1);
        const std::size_t pos = buffer_.Find(rules_.FrameEndChar);
        if (IsNoise(pos)) {
            DropNoise();
            continue;
        }
        if (pos == 0) return false;
        if (frameState_ == 1) {
            DropPast(pos);
            frameState_ = 2;
            continue;
        }
        frame.Text = CutText(pos);
        if (frame.Text.empty()) continue;
        frame.OnlySizes = frameState_ == 2;
        frameState_ = 0;
        return true;
    }
}

// The end at `pos`, a line feed after it, less the step back.
void ListCutter::DropPast(std::size_t pos) {
    buffer_.Drop(pos + static_cast<std::size_t>(rules_.LineFeedFlag) -
                 static_cast<std::size_t>(rules_.FrameBackStep));
}

// An end at the front was dropped before, so there are at least two characters.
std::string ListCutter::CutText(std::size_t pos) {
    const bool lineFeedEnds = rules_.FrameEndChar == kLineFeed;
    // The carriage return before the line feed goes too.
    const std::size_t behind = lineFeedEnds ? 1 : static_cast<std::size_t>(rules_.FrameBackStep);
    std::string text(buffer_.First(pos - 1 - behind));
    if (lineFeedEnds) {
        buffer_.Drop(pos);
    } else {
        DropPast(pos);
    }
    const bool lead = rules_.FrameLeadChar != kNoCharacter || text.starts_with(kLineFeed);
    if (lead && !text.empty()) text.erase(0, 1);
    return text;
}

// More than a frame can have, whether its end has come in the same arrival or not.
bool ListCutter::IsNoise(std::size_t pos) const {
    return (pos == 0 ? buffer_.Size() : pos - 1) > kLongestFrame;
}

void ListCutter::DropNoise() {
    buffer_.Drop(kLongestFrame + 1);
    frameState_ = 1;
}

}  // namespace counter

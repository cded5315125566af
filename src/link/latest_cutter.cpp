#include "link/latest_cutter.h"

#include <utility>

namespace counter {

namespace {

constexpr std::size_t kParsedCharacters = 8;

}  // namespace

std::string_view CleanReading(std::string_view frame) {
    constexpr std::string_view kKept = " +-.0123456789";
    const std::size_t first = frame.find_first_of(kKept);
    if (first == std::string_view::npos) return {};
    return frame.substr(first, kParsedCharacters);
}

void LatestCutter::Restart() {
    buffer_.Clear();
    frameState_ = 1;
    arrived_ = false;
}

void LatestCutter::Receive(std::string_view bytes) {
    buffer_.Append(bytes);
    arrived_ = arrived_ || !bytes.empty();
}

bool LatestCutter::Next(Frame& frame) {
    if (!std::exchange(arrived_, false)) return false;
    // An empty frame says nothing of how long frames are, so it takes none of the others with it.
    while (frameState_ == 0 && buffer_.BeginsWith(rules_.FrameEndChar)) buffer_.Drop(1);
    const std::size_t pos = buffer_.Find(rules_.FrameEndChar);
    if (pos == 0) {
        if (buffer_.Size() > kLongestFrame) Restart();
        return false;
    }
    if (frameState_ == 1) {
        buffer_.Drop(pos);
        frameState_ = 0;
        return false;
    }
    frame.Whole = buffer_.First(pos - 1);
    frame.Text = CleanReading(frame.Whole);
    frame.OnlySizes = false;
    buffer_.Drop(buffer_.Size() / pos * pos);
    return !frame.Text.empty();
}

}  // namespace counter

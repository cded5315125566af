#include "link/reading_buffer.h"

#include <algorithm>

namespace counter {

void ReadingBuffer::Clear() {
    bytes_.clear();
    begin_ = scanned_ = owed_ = 0;
}

void ReadingBuffer::Append(std::string_view bytes) {
    const std::size_t late = std::min(owed_, bytes.size());
    owed_ -= late;
    // What was taken goes once it is the larger part, so that each character moves at most once on average.
    if (begin_ > bytes_.size() / 2) {
        bytes_.erase(0, begin_);
        scanned_ -= std::min(scanned_, begin_);
        begin_ = 0;
    }
    bytes_.append(bytes.substr(late));
}

void ReadingBuffer::Drop(std::size_t count) {
    const std::size_t here = std::min(count, Size());
    begin_ += here;
    owed_ += count - here;
}

std::size_t ReadingBuffer::Find(char end) {
    const std::size_t found = bytes_.find(end, std::max(begin_, scanned_));
    scanned_ = std::min(found, bytes_.size());
    return found == std::string::npos ? 0 : found - begin_ + 1;
}

}  // namespace counter

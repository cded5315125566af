// ReadingBuffer: the characters of the stream that were received and not yet cut.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace counter {

// Taking from the front and looking for an end cost no more than the characters that are new, however long
// the backlog is.
class ReadingBuffer {
  public:
    void Clear();
    void Append(std::string_view bytes);
    // Removes the first `count` characters; those that have not arrived yet are removed when they do.
    void Drop(std::size_t count);
    std::size_t Size() const { return bytes_.size() - begin_; }
    bool BeginsWith(char c) const { return Size() > 0 && bytes_[begin_] == c; }
    std::string_view First(std::size_t count) const { return std::string_view(bytes_).substr(begin_, count); }
    // Place of the first `end`, counted from 1; 0 where there is none. `end` is the same at every call until
    // the buffer is cleared.
    std::size_t Find(char end);

  private:
    std::string bytes_;
    std::size_t begin_ = 0;    // of what is still there
    std::size_t scanned_ = 0;  // no end is before this place
    std::size_t owed_ = 0;     // dropped, but not yet here
};

}  // namespace counter

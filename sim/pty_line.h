// PtyLine: a pseudo terminal with the meter at its inner end and a tool at its outer end.
//
// The outer end is also held open here, so that a tool may close and open it as it likes. What a serial line
// forgets at its last close is therefore cleared by hand: exclusive use, and input that nobody has read.
#pragma once

#include <string>
#include <string_view>

namespace sim {

class PtyLine {
  public:
    PtyLine() = default;
    ~PtyLine() { Close(); }
    PtyLine(const PtyLine&) = delete;
    PtyLine& operator=(const PtyLine&) = delete;

    // A new pseudo terminal, closing an old one. Empty text, or the system's reason.
    std::string Open();
    // A tool that has it open sees the line go away.
    void Close();

    // The device that a tool opens, such as "/dev/pts/4".
    const std::string& Path() const { return path_; }
    // Readable when bytes have arrived.
    int DataHandle() const { return inner_; }
    // Readable when a tool has closed its end: call AfterClose then.
    int CloseHandle() const { return watch_; }
    void AfterClose();

    // What has arrived, without waiting.
    std::string Read();
    // Bytes that find no room because nobody reads them are lost, as on a wire.
    void Write(std::string_view bytes);
    // Waits until the tool has read all that was written, half a second at most: what it has not read is lost
    // when the line goes away.
    void Drain() const;
    // Bits per second that the tool has set, 0 for a speed that the meter does not know.
    int Baud() const;

  private:
    std::string Fail();

    int inner_ = -1, outer_ = -1, watch_ = -1;
    std::string path_;
};

}  // namespace sim

// FileOutput: a stream onto standard output that remembers why the system took no more.
#pragma once

#include <array>
#include <cstdio>
#include <ostream>
#include <streambuf>
#include <string>

namespace counter {

class FileOutput : public std::streambuf {
  public:
    explicit FileOutput(std::FILE* file);

    // The system's words for the first write that failed; empty where none did.
    std::string WhyFailed() const;

  protected:
    int_type overflow(int_type character) override;
    int sync() override;

  private:
    bool Send();

    std::FILE* file_;
    int error_ = 0;
    std::array<char, 1 << 14> waiting_;  // a setup as JSON in few writes
};

}  // namespace counter

// PatientOutput: a stream onto standard output or standard error that waits for its reader with Patience, and
// remembers why the system took no more.
#pragma once

#include <array>
#include <streambuf>
#include <string>

#include "platform/status.h"
#include "system/patience.h"

namespace counter {

class PatientOutput : public std::streambuf {
  public:
    // `patience` must outlive it. `name` is what messages call it, such as "standard output".
    PatientOutput(int descriptor, const Patience& patience, std::string name);
    ~PatientOutput() override;
    PatientOutput(const PatientOutput&) = delete;
    PatientOutput& operator=(const PatientOutput&) = delete;

    // Why the first write that failed did; Interrupted where the wait for the reader was.
    Status Failure() const;

  protected:
    int_type overflow(int_type character) override;
    int sync() override;

  private:
    bool Send();

    int descriptor_;
    int own_ = -1;         // of a terminal: opened once more, so that no write waits
    bool mayWait_ = true;  // for a reader: not where a file or /dev/null takes it
    const Patience& patience_;
    std::string name_, reader_;
    int error_ = 0;
    std::array<char, 1 << 14> waiting_;  // a setup as JSON in few writes
};

}  // namespace counter

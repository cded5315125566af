// ReadingKeeper: where a view of readings has them kept while its user wants so.
#pragma once

#include <string>
#include <string_view>

#include "platform/status.h"

namespace counter {

class ReadingKeeper {
  public:
    virtual ~ReadingKeeper() = default;

    // A run of readings begins, and is whole up to its end whatever becomes of the program.
    virtual Status Begin() = 0;
    // A frame as the meter sent it. Never waits for long.
    virtual void Take(std::string_view frame) = 0;
    // Again is nothing.
    virtual Status End() = 0;
    // How far the run is, and what is wrong; of the last run after its end. Empty before the first.
    virtual std::string Words() const = 0;
};

}  // namespace counter

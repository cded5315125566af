// Reading and writing what is no file: pipes, terminals, devices. Each waits with Patience for the other end.
#pragma once

#include <string>
#include <string_view>

#include "system/patience.h"

namespace counter {

// 0 or the system's error; EINTR where the wait was ended. The descriptor may wait in a write or not: no
// piece is larger than what a pipe that says it is ready takes. `reader` is what is waited for.
int WriteStream(int descriptor, std::string_view content, const Patience& patience,
                const std::string& reader);

// The same for what no reader keeps waiting, a file; tells how much was written as well.
int WriteFile(int descriptor, std::string_view content, std::size_t& written);

// Opens a stream for writing at its end; a named pipe waits for a reader. Returns 0 or the system's error.
int OpenToWrite(const std::string& path, const Patience& patience, int& descriptor);

// Reads to the end, at most some more than `most` characters; a named pipe waits for a writer. 0 or the
// system's error.
int ReadStream(int descriptor, std::string& content, std::size_t most, const Patience& patience,
               const std::string& writer);

}  // namespace counter

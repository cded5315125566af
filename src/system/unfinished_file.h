// UnfinishedFile: the temporary in which a file is written before it takes the place of the old one.
//
// Its name is the folder's, not the file's: a run that was killed leaves one at most, and the next file that
// is written there takes its place, whichever that is. A lock tells what is left from what is still being
// written.
#pragma once

#include <string>

namespace counter {

class UnfinishedFile {
  public:
    UnfinishedFile() = default;
    ~UnfinishedFile();  // gone, unless it was renamed
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    // These return 0 or the system's error.
    int Open(const std::string& folder);
    int RenameTo(const std::string& path);

    int Handle() const { return handle_; }

  private:
    int Make();
    bool IsOurs() const;

    int handle_ = -1;
    std::string path_;
};

}  // namespace counter

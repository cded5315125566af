// HomeFacts: what the home view tells of meter, setup, last transfer and backups, in words.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"

namespace counter {

struct HomeFact {
    std::string Name;  // as a reader of the screen says it; in the window the name of its label
    std::string Heading;
    std::string Text;  // some lines
    bool Bad = false;  // something to look at

    bool operator==(const HomeFact&) const = default;
};

// A backup of a Get.
struct BackupFact {
    std::string Path;
    std::string Words;  // "2026-11-24 23:05, address 1"

    bool operator==(const BackupFact&) const = default;
};

// The latest first. Reads the folder.
std::vector<BackupFact> LatestBackups(const ProgramFolder& folder);

class HomeFacts {
  public:
    explicit HomeFacts(const Session& session) : session_(session) {}

    // Works the facts out anew. True: they are others than before.
    bool Follow();

    std::vector<HomeFact> Facts;      // meter, setup, last transfer
    std::vector<BackupFact> Backups;  // read when a transfer has ended

  private:
    const Session& session_;
    bool listed_ = false;
    std::int64_t listedUtcMs_ = 0;
};

}  // namespace counter

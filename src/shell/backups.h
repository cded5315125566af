// Backups: a copy of what every good Get brought, so that what a Put overwrites can be had again.
//
// backups/2026-11-24_23-05-59-123_address-01.CT2 in the program folder; the newest 100 are kept,
// by the order in which they were written as far as names can tell it.
#pragma once

#include <string>
#include <vector>

#include "platform/status.h"
#include "session/session.h"

namespace counter {

inline constexpr int kBackupsKept = 100;

// The name of a backup made now, by the meter's address in the protocol of the link.
std::string BackupName(const Session& session);

// Writes one and removes those that are too many, never the one just written. A failure to write it is the
// status.
Status KeepBackup(Session& session);

// Names of the backups in the program folder, the newest first, `most` at most.
std::vector<std::string> NewestBackups(const ProgramFolder& folder, std::size_t most);
std::string BackupPath(const ProgramFolder& folder, const std::string& name);

// What a user is told of it: "no backup: PATH: REASON"; empty where it was kept.
std::string NoBackupWords(const Status& kept);

}  // namespace counter

// Changing Settings.SSS while other programs may: the desktop tool, counter-link and counterctl.
//
// Nobody writes what he has read some time before. A change is made under a lock, on what the file holds at
// that moment, and touches only its own characters.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/program_folder.h"
#include "platform/pump.h"
#include "platform/status.h"
#include "settings/settings.h"

namespace counter {

// How long another program's change is waited for, in milliseconds. One takes some milliseconds: whoever
// holds the lock for longer is stopped, and the change is given up rather than the user held up.
inline constexpr double kSettingsLockMs = 10000;

// What a wait for another program needs.
struct SettingsWait {
    std::function<counter::Pump&()> Pump;  // called only when there is one to wait for
    // Told once, when it has taken a second; may be empty.
    std::function<void(const std::string& line)> Tell = {};
};

// The wait of a program that has a pump, and shows nothing of it.
SettingsWait WaitOn(Pump& pump);

// Busy when another program kept the lock all the time. Where the file system knows no locks, `lock` is empty
// and all is well.
Status LockSettings(const ProgramFolder& folder, const SettingsWait& wait, std::unique_ptr<FileLock>& lock);

// Reads the file under the lock, has `change` change its lines (the first is normalised) and writes what
// differs. `change` may refuse: then nothing is written and its status comes back.
Status ChangeSettings(const ProgramFolder& folder, const SettingsWait& wait,
                      const std::function<Status(SettingsLines& lines)>& change);

// What this program has made of `read` becomes `wanted`, in the file too: its characters alone go over what
// the file holds now. A file that is gone or empty is laid down again. Afterwards `wanted` is what the file
// holds.
Status SaveSettings(const ProgramFolder& folder, const SettingsWait& wait, const SettingsLines& read,
                    SettingsLines& wanted);

}  // namespace counter

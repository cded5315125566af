#include "link/change_settings.h"

namespace counter {

namespace {

constexpr double kNextTryMs = 20;
constexpr double kTellAfterMs = 1000;

bool HeldByAnother(const Status& status) {
    return status.Kind == StatusKind::Busy;
}

SettingsLines Normalised(SettingsLines lines) {
    lines.SettingsLine1 = NormaliseLine1(lines.SettingsLine1);
    return lines;
}

Status ChangeLocked(const ProgramFolder& folder, const std::function<Status(SettingsLines& lines)>& change) {
    const std::string path = folder.At(kSettingsFile);
    std::string text;
    if (Status status = folder.Store.Read(path, text); !status.Ok()) return status;
    SettingsLines lines = Normalised(SplitSettings(text));
    if (Status status = change(lines); !status.Ok()) return status;
    const std::string changed = FormatSettings(lines);
    return changed == text ? Status{} : folder.Store.Write(path, changed);
}

}  // namespace

SettingsWait WaitOn(Pump& pump) {
    return {[&pump]() -> Pump& { return pump; }};
}

Status LockSettings(const ProgramFolder& folder, const SettingsWait& wait, std::unique_ptr<FileLock>& lock) {
    const std::string path = folder.At(kSettingsFile);
    Status status = folder.Store.Lock(path, lock);
    if (!HeldByAnother(status)) return status;
    Pump& pump = wait.Pump();
    const double startMs = pump.NowMs();
    bool told = !wait.Tell;
    while (HeldByAnother(status) && pump.NowMs() < startMs + kSettingsLockMs) {
        pump.WaitUntil(
            pump.NowMs() + kNextTryMs, [] { return false; }, "another program's change of the settings");
        status = folder.Store.Lock(path, lock);
        if (told || !HeldByAnother(status) || pump.NowMs() < startMs + kTellAfterMs) continue;
        wait.Tell("waiting for another program that is changing " + path);
        told = true;
    }
    return status;
}

Status ChangeSettings(const ProgramFolder& folder, const SettingsWait& wait,
                      const std::function<Status(SettingsLines& lines)>& change) {
    std::unique_ptr<FileLock> lock;
    if (Status status = LockSettings(folder, wait, lock); !status.Ok()) return status;
    return ChangeLocked(folder, change);
}

Status SaveSettings(const ProgramFolder& folder, const SettingsWait& wait, const SettingsLines& read,
                    SettingsLines& wanted) {
    std::unique_ptr<FileLock> lock;
    if (Status status = LockSettings(folder, wait, lock); !status.Ok()) return status;
    const Status status = ChangeLocked(folder, [&](SettingsLines& lines) {
        if (lines == Normalised({})) lines = Normalised(read);  // an empty file
        lines = wanted = WithChanges(Normalised(read), wanted, lines);
        return Status{};
    });
    if (status.Kind != StatusKind::NotFound) return status;
    return folder.Store.Write(folder.At(kSettingsFile), FormatSettings(wanted));
}

}  // namespace counter

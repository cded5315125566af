// What the home view shows, whatever shows it: a window, or the last lines of a terminal.
#pragma once

#include <functional>
#include <string>

#include "controls/colors.h"
#include "platform/status.h"

namespace counter {

struct HomeState {
    std::string StatusText;  // the progress line
    Color StatusColor = ColorWhite;
    bool StatusVisible = false;
    int ProgressPercent = 0;  // 0..100
    bool ProgressVisible = false;
    bool Hourglass = false;
    std::string CurrentFileName;
    Status Backup;  // how the last good Get's copy was kept

    // Menu entries that are enabled by what was loaded.
    bool ViewEnabled = false;
    bool PutEnabled = false;
    bool CommandsEnabled = false;
    bool CalibrationEnabled = false;

    std::function<void()> Changed;  // tells who shows it; may be empty

    void ShowStatus(const std::string& text, Color color);
    void HideStatus();
    void ProgressTo(int percent);
    void ShowProgress(bool visible);
    void ShowHourglass(bool shown);
};

}  // namespace counter

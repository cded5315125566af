// The menu of the home view as a table: headings in their order, each followed by its entries.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "session/view_id.h"

namespace counter {

// The headings and entries that rules speak of; the others only drop down or open a view.
enum class HomeItem {
    Other,
    DefaultSetup,
    Open,
    Save,
    SaveAs,
    Compare,
    PrintSetup,
    Exit,
    Counter,
    Get,
    Put,
    Verify,
    VerifyAfterPut,
    Link,
    View,
    Menu,
    Commands,
    Readings,
    Calibration,
    Glossary,
    Count
};

struct HomeMenuRow {
    std::string_view Name;     // "mnuGet"
    std::string_view Caption;  // "&" before the access key
    bool Heading;
    int HelpTopic;                // of a heading
    bool Enabled;                 // as the program starts
    std::optional<ViewId> Opens;  // the view that an entry opens and does nothing else
    HomeItem Item = HomeItem::Other;
    bool Ticked = false;  // an entry that is on or off
};

std::span<const HomeMenuRow> HomeMenu();

// The lines that cmdMenuHelp shows, with the empty lines between them, as one text.
std::string_view HomeHelpText();

inline constexpr int kHomeHelpTopic = 3101;
inline constexpr int kGlossaryHelpTopic = 3121;

}  // namespace counter

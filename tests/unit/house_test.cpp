// The house: no logic room includes Qt, no room includes one below it, and the simulated meter keeps to
// itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// In order of height: a room includes only itself and rooms that come before it. Rooms that are not listed
// may be included by nobody.
const std::vector<std::string> kRooms = {
    "meter",   "platform",   "settings",   "link",       "transfer", "controls", "digit_entry",
    "session", "setup_view", "offline",    "menu_view",  "commands", "readings", "calibration",
    "curve",   "help",       "system",     "recording",  "shell",    "compare",  "sheet",
    "fleet",   "cli",        "publishing", "record_cli", "desktop",  "apps"};

// Views are side by side: none includes another.
const std::vector<std::string> kViews = {"setup_view",  "menu_view", "commands", "readings",
                                         "calibration", "curve",     "help"};

struct Include {
    std::string File;  // relative to the source folder
    std::string Target;
    bool Quoted;
};

std::vector<Include> IncludesBelow(const std::string& folder) {
    std::vector<Include> list;
    const fs::path root = fs::path(SOURCE_FOLDER) / folder;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp") continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            if (line.rfind("#include ", 0) != 0 || line.size() < 12) continue;
            const std::string target = line.substr(10, line.find_first_of("\">", 10) - 10);
            list.push_back({fs::relative(entry.path(), SOURCE_FOLDER).string(), target, line[9] == '"'});
        }
    }
    return list;
}

int Height(const std::string& room) {
    const auto found = std::find(kRooms.begin(), kRooms.end(), room);
    return found == kRooms.end() ? -1 : static_cast<int>(found - kRooms.begin());
}

bool IsQt(const Include& include) {
    return !include.Quoted && include.Target.size() > 1 && include.Target[0] == 'Q' &&
           std::isupper(include.Target[0]);
}

// "src/link/waits.cpp" is in "link".
std::string RoomOf(const std::string& file) {
    return file.substr(4, file.find('/', 4) - 4);
}

bool MayKnowQt(const std::string& room) {
    return room == "system" || room == "desktop" || room == "apps";
}

TEST(House, OnlyTheQtRoomsIncludeQt) {
    int qt = 0;
    for (const Include& include : IncludesBelow("src")) {
        if (!IsQt(include)) continue;
        ++qt;
        EXPECT_TRUE(MayKnowQt(RoomOf(include.File))) << include.File << " includes " << include.Target;
    }
    EXPECT_GT(qt, 5) << "the check reads includes at all";
    for (const Include& include : IncludesBelow("sim")) EXPECT_FALSE(IsQt(include)) << include.File;
}

TEST(House, RoomsLookUpOnly) {
    for (const Include& include : IncludesBelow("src")) {
        const std::string room = RoomOf(include.File);
        if (!include.Quoted) continue;
        const int from = Height(room);
        const int to = Height(include.Target.substr(0, include.Target.find('/')));
        EXPECT_GE(from, 0) << "room " << room << " has no place in the order";
        EXPECT_GE(to, 0) << include.File << " includes " << include.Target;
        EXPECT_GE(from, to) << include.File << " includes " << include.Target;
    }
}

void ExpectUnknown(const std::string& folder, const std::vector<std::string>& others) {
    for (const Include& include : IncludesBelow(folder)) {
        for (const std::string& other : others)
            EXPECT_FALSE(include.Target.starts_with(other + "/"))
                << include.File << " includes " << include.Target;
    }
}

TEST(House, NeitherViewsNorTheKitKnowAView) {
    for (const std::string& view : kViews) {
        std::vector<std::string> others = kViews;
        std::erase(others, view);
        ExpectUnknown("src/" + view, others);
    }
    ExpectUnknown("src/desktop/kit", kViews);
    ExpectUnknown("src/desktop/kit", {"desktop/pages"});
}

TEST(House, TheMachineAndTheSimulatedMeterKnowLittle) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {{"src/system", {"platform", "system"}},
                                                                      {"sim", {"sim"}}};
    for (const auto& [folder, rooms] : cases) {
        for (const Include& include : IncludesBelow(folder)) {
            const std::string room = include.Target.substr(0, include.Target.find('/'));
            EXPECT_TRUE(!include.Quoted || std::count(rooms.begin(), rooms.end(), room) == 1)
                << include.File << " includes " << include.Target;
        }
    }
}

}  // namespace

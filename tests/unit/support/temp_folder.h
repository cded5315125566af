// A folder of a test's own, gone with the test. Used on both sides of the line, so it belongs to neither.
#pragma once

#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

struct TempFolder {
    std::string Path = "/tmp/counter_test.XXXXXX";
    // Open to others, because some tests act as another user.
    TempFolder() { chmod(mkdtemp(Path.data()), 0755); }
    ~TempFolder() { std::filesystem::remove_all(Path); }
    std::string At(const std::string& name) const { return Path + "/" + name; }
};

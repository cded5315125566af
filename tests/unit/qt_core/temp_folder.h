// A folder of the test's own, gone with the test.
#pragma once

#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

namespace counter {

struct TempFolder {
    std::string Path = "/tmp/qt_core_test.XXXXXX";
    // Open to others, because some tests act as another user.
    TempFolder() { chmod(mkdtemp(Path.data()), 0755); }
    ~TempFolder() { std::filesystem::remove_all(Path); }
    std::string At(const std::string& name) const { return Path + "/" + name; }
};

}  // namespace counter

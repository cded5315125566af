// A folder of a test's own, gone when the test ends.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace sim {

class TempFolder {
  public:
    TempFolder() { path_ = mkdtemp(path_.data()); }
    ~TempFolder() { std::filesystem::remove_all(path_); }
    std::string File(const std::string& name) const { return path_ + "/" + name; }

  private:
    std::string path_ = "/tmp/sim_test.XXXXXX";
};

inline void WriteText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

inline std::string ReadText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace sim

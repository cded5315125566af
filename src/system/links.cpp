#include "system/links.h"

#include <filesystem>
#include <system_error>

namespace counter {

namespace fs = std::filesystem;

std::string FollowLinks(const std::string& path) {
    constexpr int kMostLinks = 40;  // as many as the system itself follows
    std::error_code error;
    fs::path place = path;
    for (int count = 0; fs::is_symlink(fs::symlink_status(place, error)); ++count) {
        if (count == kMostLinks) return path;
        // A relative target counts from the link's folder; an absolute one replaces the whole.
        place = place.parent_path() / fs::read_symlink(place, error);
    }
    const fs::path clean = fs::weakly_canonical(place, error);
    return error ? place.string() : clean.string();
}

}  // namespace counter

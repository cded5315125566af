#include "sim/sim_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "sim/memory.h"

namespace sim {

namespace {

std::string Failed(const std::string& path, int error) {
    return path + ": " + std::strerror(error);
}

bool WriteAll(int file, const std::string& text) {
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t part = write(file, text.data() + done, text.size() - done);
        if (part < 0 && errno == EINTR) continue;
        if (part <= 0) return false;
        done += static_cast<std::size_t>(part);
    }
    return true;
}

}  // namespace

std::string ReadImageFile(const std::string& path, std::string& image) {
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::string line;
    if (!std::getline(file, line)) return Failed(path, errno != 0 ? errno : ENODATA);
    if (line.ends_with('\r')) line.pop_back();
    if (!Memory().LoadImage(line)) return path + ": not a line of 260 upper-case hexadecimal digits";
    image = line;
    return "";
}

std::string WriteImageFile(const std::string& path, const std::string& image) {
    const std::string beside = path + ".part";
    const int file = open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0) return Failed(beside, errno);
    bool good = WriteAll(file, image + "\r\n") && fsync(file) == 0;
    int error = errno;
    close(file);
    if (good && rename(beside.c_str(), path.c_str()) == 0) return "";
    if (good) error = errno;
    unlink(beside.c_str());
    return Failed(path, error);
}

std::string PointLink(const std::string& path, const std::string& target) {
    std::error_code error;
    const auto status = std::filesystem::symlink_status(path, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_symlink(status)) return Failed(path, EEXIST);
    const std::string beside = path + ".part";
    unlink(beside.c_str());
    if (symlink(target.c_str(), beside.c_str()) != 0) return Failed(path, errno);
    if (rename(beside.c_str(), path.c_str()) == 0) return "";
    const int reason = errno;
    unlink(beside.c_str());
    return Failed(path, reason);
}

void RemoveLink(const std::string& path, const std::string& target) {
    std::error_code error;
    if (std::filesystem::read_symlink(path, error) == target) unlink(path.c_str());
}

}  // namespace sim

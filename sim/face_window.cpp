#include "sim/face_window.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace sim {

namespace {

std::string PathOfProgram() {
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    return (self.parent_path() / "counter-face").string();
}

[[noreturn]] void BecomeFace(const std::string& path, int input, int output) {
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    execl(path.c_str(), path.c_str(), nullptr);
    _exit(127);
}

}  // namespace

std::string FaceLine(const FaceState& face) {
    std::string digits = face.Digits;
    std::replace(digits.begin(), digits.end(), ' ', '.');
    std::string alarms;
    for (const bool on : face.Alarms) alarms += on ? '1' : '0';
    return digits + " " + std::to_string(face.Point) + (face.Minus ? " 1 " : " 0 ") + alarms + " " +
           std::to_string(face.Item) + (face.Remote ? " 1\n" : " 0\n");
}

FaceWindow::~FaceWindow() {
    if (pipe_ < 0) return;
    close(pipe_);  // the window ends with its input
    waitpid(program_, nullptr, 0);
}

std::string FaceWindow::Open() {
    const std::string path = PathOfProgram();
    if (access(path.c_str(), X_OK) != 0) return path + ": " + std::strerror(errno);
    int input[2], output[2];
    if (pipe2(input, O_CLOEXEC) != 0) return std::string("pipe: ") + std::strerror(errno);
    if (pipe2(output, O_CLOEXEC) != 0) return std::string("pipe: ") + std::strerror(errno);
    signal(SIGPIPE, SIG_IGN);  // a closed window is a failed write
    program_ = fork();
    if (program_ == 0) BecomeFace(path, input[0], output[1]);
    const std::string failure = program_ < 0 ? std::string("fork: ") + std::strerror(errno) : std::string();
    close(input[0]);
    close(output[1]);
    pipe_ = input[1];
    char first = 0;
    shown_ = failure.empty() && read(output[0], &first, 1) == 1;
    close(output[0]);
    return failure;
}

void FaceWindow::Show(const FaceState& face) {
    if (pipe_ < 0) return;
    const std::string line = FaceLine(face);
    [[maybe_unused]] const ssize_t written = write(pipe_, line.data(), line.size());
}

}  // namespace sim

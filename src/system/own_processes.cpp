#include "system/own_processes.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cerrno>
#include <cstring>

namespace counter {

namespace {

constexpr const char* kSelf = "/proc/self/exe";

Status SystemStatus(const char* what) {
    return {StatusKind::Other, what, std::strerror(errno)};
}

class ForkedProcess : public ChildProcess {
  public:
    ForkedProcess(pid_t pid, int output)
        : pid_(pid), output_(output), notifier_(output, QSocketNotifier::Read) {
        QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { TakeOutput(); });
    }

    ~ForkedProcess() override {
        if (!ended_) {
            Kill();
            Wait();
        }
        notifier_.setEnabled(false);
        close(output_);
    }

    std::vector<std::string> TakeLines() override {
        std::vector<std::string> lines;
        for (std::size_t end = text_.find('\n'); end != std::string::npos; end = text_.find('\n')) {
            lines.push_back(text_.substr(0, end));
            text_.erase(0, end + 1);
        }
        return lines;
    }

    bool Ended() const override { return ended_ && text_.find('\n') == std::string::npos; }

    std::string HowEnded() const override {
        if (WIFSIGNALED(status_)) return "signal " + std::to_string(WTERMSIG(status_));
        return WEXITSTATUS(status_) == 0 ? "" : "status " + std::to_string(WEXITSTATUS(status_));
    }

    void Interrupt() override { Send(SIGINT); }
    void Kill() override { Send(SIGKILL); }

  private:
    // Once it was waited for, its number may be another's.
    void Send(int signalNumber) const {
        if (!ended_) kill(pid_, signalNumber);
    }

    void TakeOutput() {
        char bytes[1 << 14];
        const ssize_t size = read(output_, bytes, sizeof bytes);
        if (size > 0) {
            text_.append(bytes, static_cast<std::size_t>(size));
        } else if (size == 0 || (errno != EAGAIN && errno != EINTR)) {
            notifier_.setEnabled(false);
            Wait();
        }
    }

    // It closes its output by ending, so this takes no time.
    void Wait() {
        while (waitpid(pid_, &status_, 0) == -1 && errno == EINTR) {
        }
        ended_ = true;
    }

    pid_t pid_;
    int output_;
    QSocketNotifier notifier_;
    std::string text_;
    int status_ = 0;
    bool ended_ = false;
};

// A file in memory, read from its beginning: no pipe that a child who does not read could fill.
int OpenInput(std::string_view input) {
    const int file = memfd_create("input", MFD_CLOEXEC);
    while (file != -1 && !input.empty()) {
        const ssize_t size = write(file, input.data(), input.size());
        if (size <= 0) {
            close(file);
            return -1;
        }
        input.remove_prefix(static_cast<std::size_t>(size));
    }
    if (file != -1) lseek(file, 0, SEEK_SET);
    return file;
}

// Between fork and exec: only what is safe in a signal handler.
[[noreturn]] void BecomeSelf(char* const* arguments, int input, int output, pid_t parent) {
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    signal(SIGPIPE, SIG_DFL);
    prctl(PR_SET_PDEATHSIG, SIGINT);
    if (getppid() != parent) _exit(130);  // gone before it was asked for
    execv(kSelf, arguments);
    _exit(127);
}

}  // namespace

Status OwnProcesses::StartSelf(const std::vector<std::string>& arguments, std::string_view input,
                               std::unique_ptr<ChildProcess>& child) {
    std::vector<std::string> words = {"counterctl"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);

    const int file = OpenInput(input);
    if (file == -1) return SystemStatus("memfd_create");
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        const Status status = SystemStatus("pipe");
        close(file);
        return status;
    }
    const pid_t parent = getpid(), pid = fork();
    if (pid == 0) BecomeSelf(argv.data(), file, ends[1], parent);
    const Status failed = pid == -1 ? SystemStatus("fork") : Status{};
    close(file);
    close(ends[1]);
    if (pid == -1) {
        close(ends[0]);
        return failed;
    }
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    child = std::make_unique<ForkedProcess>(pid, ends[0]);
    return {};
}

}  // namespace counter

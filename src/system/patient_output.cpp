#include "system/patient_output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "system/streams.h"
#include "system/system_status.h"

namespace counter {

PatientOutput::PatientOutput(int descriptor, const Patience& patience, std::string name)
    : descriptor_(descriptor), patience_(patience), name_(std::move(name)), reader_("a reader of " + name_) {
    setp(waiting_.data(), waiting_.data() + waiting_.size());
    struct stat there = {};
    const bool terminal = isatty(descriptor) == 1;
    if (fstat(descriptor, &there) == 0)
        mayWait_ = !S_ISREG(there.st_mode) && !(S_ISCHR(there.st_mode) && !terminal);
    if (!terminal) return;
    const std::string again = "/proc/self/fd/" + std::to_string(descriptor);
    own_ = open(again.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

PatientOutput::~PatientOutput() {
    Send();
    if (own_ >= 0) close(own_);
}

Status PatientOutput::Failure() const {
    return error_ == 0 ? Status{} : SystemStatus(name_, error_);
}

PatientOutput::int_type PatientOutput::overflow(int_type character) {
    if (!Send()) return traits_type::eof();
    if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
    return sputc(traits_type::to_char_type(character));
}

int PatientOutput::sync() {
    return Send() ? 0 : -1;
}

// What could not be written is given up: the stream is bad from then on.
bool PatientOutput::Send() {
    const std::string_view waiting(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    std::size_t ignored = 0;
    const int error = mayWait_ ? WriteStream(own_ >= 0 ? own_ : descriptor_, waiting, patience_, reader_)
                               : WriteFile(descriptor_, waiting, ignored);
    if (error_ == 0) error_ = error;
    setp(waiting_.data(), waiting_.data() + waiting_.size());
    return error == 0;
}

}  // namespace counter

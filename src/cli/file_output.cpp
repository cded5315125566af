#include "cli/file_output.h"

#include <cerrno>
#include <system_error>

namespace counter {

FileOutput::FileOutput(std::FILE* file) : file_(file) {
    setp(waiting_.data(), waiting_.data() + waiting_.size());
}

std::string FileOutput::WhyFailed() const {
    return error_ == 0 ? std::string() : std::generic_category().message(error_);
}

FileOutput::int_type FileOutput::overflow(int_type character) {
    if (!Send()) return traits_type::eof();
    if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
    return sputc(traits_type::to_char_type(character));
}

int FileOutput::sync() {
    return Send() ? 0 : -1;
}

// What could not be written is given up: the stream is bad from then on.
bool FileOutput::Send() {
    const auto size = static_cast<std::size_t>(pptr() - pbase());
    errno = 0;
    const bool sent = std::fwrite(pbase(), 1, size, file_) == size && std::fflush(file_) == 0;
    if (!sent && error_ == 0) error_ = errno == 0 ? EIO : errno;
    setp(waiting_.data(), waiting_.data() + waiting_.size());
    return sent;
}

}  // namespace counter

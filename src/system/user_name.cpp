#include "system/user_name.h"

#include <pwd.h>
#include <unistd.h>

#include <array>

namespace counter {

std::string UserAtHost() {
    const passwd* user = getpwuid(geteuid());
    std::array<char, 256> host{};
    if (gethostname(host.data(), host.size() - 1) != 0) host[0] = '?';
    return (user != nullptr ? user->pw_name : std::to_string(geteuid())) + "@" + host.data();
}

}  // namespace counter

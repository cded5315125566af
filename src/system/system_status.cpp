#include "system/system_status.h"

#include <cerrno>
#include <cstring>

namespace counter {

namespace {

StatusKind KindOf(int error) {
    switch (error) {
        case ENOENT:
        case ENXIO:
        case ENODEV:
            return StatusKind::NotFound;
        case EACCES:
        case EPERM:
        case EROFS:
            return StatusKind::NoPermission;
        case EBUSY:
        case EADDRINUSE:
            return StatusKind::Busy;
        case EISDIR:
        case ENOTDIR:
        case EEXIST:
        case ELOOP:
        case ENAMETOOLONG:
        case EINVAL:
        case ENOTTY:
            return StatusKind::Illegal;
        case EINTR:
            return StatusKind::Interrupted;
        default:
            return StatusKind::Other;
    }
}

}  // namespace

Status SystemStatus(const std::string& path, int error) {
    return {KindOf(error), path, std::strerror(error)};
}

}  // namespace counter

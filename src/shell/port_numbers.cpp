#include "shell/port_numbers.h"

namespace counter {

namespace {

std::string LastingName(const FileReader& files, const PortCatalog& catalog, const std::string& device) {
    for (const PortDescription& port : catalog.Ports()) {
        if (!port.ById.empty() && SameDevice(files, port.Device, device)) return port.ById;
    }
    return device;
}

}  // namespace

std::string PortLink(const ProgramFolder& folder, int number) {
    return folder.At("ports/com" + std::to_string(number));
}

bool SameDevice(const FileReader& files, const std::string& a, const std::string& b) {
    return a == b || files.FollowLinks(a) == files.FollowLinks(b);
}

Status PointPort(const ProgramFolder& folder, const PortCatalog& catalog, int number,
                 const std::string& device) {
    if (!folder.Store.Exists(device)) return {StatusKind::NotFound, device, "No such file or directory"};
    if (Status status = folder.Store.MakeFolder(folder.At("ports")); !status.Ok()) return status;
    return folder.Store.MakeLink(PortLink(folder, number), LastingName(folder.Store, catalog, device));
}

}  // namespace counter

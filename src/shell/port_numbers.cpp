#include "shell/port_numbers.h"

#include <filesystem>
#include <system_error>

namespace counter {

namespace {

std::string LastingName(const PortCatalog& catalog, const std::string& device) {
    for (const PortDescription& port : catalog.Ports()) {
        if (!port.ById.empty() && SameDevice(port.Device, device)) return port.ById;
    }
    return device;
}

}  // namespace

std::string PortLink(const ProgramFolder& folder, int number) {
    return folder.At("ports/com" + std::to_string(number));
}

bool SameDevice(const std::string& a, const std::string& b) {
    std::error_code ignored;
    return a == b || std::filesystem::equivalent(a, b, ignored);
}

Status PointPort(const ProgramFolder& folder, const PortCatalog& catalog, int number,
                 const std::string& device) {
    if (!folder.Store.Exists(device)) return {StatusKind::NotFound, device, "No such file or directory"};
    if (Status status = folder.Store.MakeFolder(folder.At("ports")); !status.Ok()) return status;
    return folder.Store.MakeLink(PortLink(folder, number), LastingName(catalog, device));
}

}  // namespace counter

#include "shell/port_numbers.h"

namespace counter {

namespace {

std::string LastingName(const FileReader& files, const PortCatalog& catalog, const std::string& device) {
    for (const PortDescription& port : catalog.Ports()) {
        if (!port.ById.empty() && SameDevice(files, port.Device, device)) return port.ById;
    }
    return device;
}

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

// One name in one folder, by whatever way the folder is named.
bool SamePlace(const FileReader& files, const std::string& a, const std::string& b) {
    const std::string folderA = FolderOf(a), folderB = FolderOf(b);
    return a.substr(folderA.size()) == b.substr(folderB.size()) &&
           files.FollowLinks(folderA) == files.FollowLinks(folderB);
}

// Whether `path` is the link `link` or comes to it by other links.
bool LeadsThrough(const FileReader& files, std::string path, const std::string& link) {
    constexpr int kMostLinks = 40;  // as many as the system itself follows
    for (int count = 0; count < kMostLinks && !path.empty(); ++count) {
        if (SamePlace(files, path, link)) return true;
        const std::string target = files.LinkTarget(path);
        path = target.empty() || target.starts_with('/') ? target : FolderOf(path) + target;
    }
    return false;
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
    const std::string link = PortLink(folder, number);
    if (LeadsThrough(folder.Store, folder.Store.Absolute(device), folder.Store.Absolute(link)))
        return {StatusKind::Illegal, device, "is port number " + std::to_string(number) + " itself"};
    if (!folder.Store.Exists(device)) return {StatusKind::NotFound, device, "No such file or directory"};
    if (Status status = folder.Store.MakeFolder(folder.At("ports")); !status.Ok()) return status;
    return folder.Store.MakeLink(link, LastingName(folder.Store, catalog, device));
}

}  // namespace counter

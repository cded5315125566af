#include "shell/port_numbers.h"

#include "platform/tcp_line.h"

namespace counter {

namespace {

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

// Nothing of the name is a path: the link's target is the name itself.
Status PointToNetwork(const ProgramFolder& folder, int number, const std::string& line) {
    if (!ParseTcpLine(line)) return {StatusKind::Illegal, line, kTcpLineForm};
    if (Status status = folder.Store.MakeFolder(folder.At("ports")); !status.Ok()) return status;
    return folder.Store.MakeLink(PortLink(folder, number), line);
}

}  // namespace

std::string PortLink(const ProgramFolder& folder, int number) {
    return folder.At("ports/com" + std::to_string(number));
}

bool SameDevice(const FileReader& files, const std::string& a, const std::string& b) {
    return a == b || files.FollowLinks(a) == files.FollowLinks(b);
}

std::string LastingDevice(const FileReader& files, const PortCatalog& catalog, const std::string& device) {
    for (const PortDescription& port : catalog.Ports()) {
        if (!port.ById.empty() && SameDevice(files, port.Device, device)) return port.ById;
    }
    return device;
}

std::string DevicePath(const FileReader& files, const std::string& word) {
    constexpr const char* kById = "/dev/serial/by-id/";
    if (NamesTcpLine(word)) return word;
    if (word.find('/') != std::string::npos) return files.Absolute(word);
    return files.Exists(kById + word) ? kById + word : "/dev/" + word;
}

Status PointPort(const ProgramFolder& folder, const PortCatalog& catalog, int number,
                 const std::string& device) {
    if (NamesTcpLine(device)) return PointToNetwork(folder, number, device);
    const std::string link = PortLink(folder, number);
    if (LeadsThrough(folder.Store, folder.Store.Absolute(device), folder.Store.Absolute(link)))
        return {StatusKind::Illegal, device, "is port number " + std::to_string(number) + " itself"};
    if (!folder.Store.Exists(device)) return {StatusKind::NotFound, device, "No such file or directory"};
    if (Status status = folder.Store.MakeFolder(folder.At("ports")); !status.Ok()) return status;
    return folder.Store.MakeLink(link, LastingDevice(folder.Store, catalog, device));
}

}  // namespace counter

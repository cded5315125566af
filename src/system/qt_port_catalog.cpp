#include "system/qt_port_catalog.h"

#include <QSerialPortInfo>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/tcp_line.h"
#include "system/links.h"

namespace counter {

namespace fs = std::filesystem;

std::vector<PortDescription> SystemPorts() {
    std::vector<PortDescription> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        ports.push_back({info.systemLocation().toStdString(), info.description().toStdString(), ""});
    }
    return ports;
}

QtPortCatalog::QtPortCatalog(std::string programFolder, std::string byIdFolder, Lister list)
    : programFolder_(std::move(programFolder)), byIdFolder_(std::move(byIdFolder)), list_(std::move(list)) {}

std::vector<PortDescription> QtPortCatalog::Ports() const {
    std::vector<PortDescription> ports = list_();
    std::error_code error;
    for (const fs::directory_entry& name : fs::directory_iterator(byIdFolder_, error)) {
        const std::string device = FollowLinks(name.path().string());
        for (PortDescription& port : ports) {
            if (FollowLinks(port.Device) == device) port.ById = name.path().string();
        }
    }
    return ports;
}

std::string QtPortCatalog::DeviceOf(int number) const {
    const fs::path link = fs::path(programFolder_) / "ports" / ("com" + std::to_string(number));
    std::error_code error;
    const fs::path target = fs::read_symlink(link, error);
    if (NamesTcpLine(target.string())) return target.string();
    if (!error) return (link.parent_path() / target).lexically_normal().string();
    if (fs::exists(link, error)) return link.string();

    const std::vector<PortDescription> ports = list_();
    const auto index = static_cast<std::size_t>(number) - 1;  // 0 and below become too large
    return index < ports.size() ? ports[index].Device : link.string();
}

}  // namespace counter

// ports, ports map.
#include <algorithm>

#include "cli/cli.h"
#include "cli/cli_output.h"
#include "cli/command_table.h"
#include "cli/exact_number.h"
#include "shell/port_numbers.h"

namespace counter {

namespace {

struct ListedPort {
    PortDescription Port;
    std::vector<int> Numbers;  // port numbers that mean it
};

// Devices that a number names, but the machine does not list (a pseudo terminal), are listed too.
ListedPort& Listed(const FileReader& files, std::vector<ListedPort>& ports, const std::string& device) {
    const auto found = std::find_if(ports.begin(), ports.end(), [&](const ListedPort& listed) {
        return SameDevice(files, listed.Port.Device, device) ||
               (!listed.Port.ById.empty() && listed.Port.ById == device);
    });
    if (found != ports.end()) return *found;
    ports.push_back({{device, "", ""}, {}});
    return ports.back();
}

std::vector<ListedPort> ListPorts(const CommandCall& call, const PortCatalog& catalog) {
    std::vector<ListedPort> ports;
    for (const PortDescription& port : catalog.Ports()) ports.push_back({port, {}});
    const int known = static_cast<int>(ports.size());
    for (int number = 1; number <= kMostPorts; ++number) {
        const std::string target =
            call.World.Store.LinkTarget(PortLink({call.World.Store, call.Folder}, number));
        if (!target.empty()) {
            Listed(call.World.Store, ports, target).Numbers.push_back(number);
        } else if (number <= known) {
            ports[static_cast<std::size_t>(number - 1)].Numbers.push_back(number);
        }
    }
    return ports;
}

int PrintPorts(const CommandCall& call, const std::vector<ListedPort>& ports) {
    Json document = Json::array();
    std::vector<std::vector<std::string>> lines = {{"Device", "Number", "Description", "Name by id"}};
    for (const ListedPort& listed : ports) {
        std::string numbers;
        for (const int number : listed.Numbers)
            numbers += (numbers.empty() ? "" : ",") + std::to_string(number);
        lines.push_back({listed.Port.Device, numbers, listed.Port.Description, listed.Port.ById});
        document.push_back({{"device", listed.Port.Device},
                            {"description", listed.Port.Description},
                            {"byId", listed.Port.ById},
                            {"numbers", listed.Numbers}});
    }
    if (call.Json) {
        WriteJson(call, document);
    } else {
        call.World.Out << (ports.empty() ? "No serial ports.\n" : Columns(lines));
    }
    return kDone;
}

int MapPort(const CommandCall& call, const PortCatalog& catalog) {
    const int number = ExactNumber<int>(call.Words[1]).value_or(0);
    if (number < 1 || number > kMostPorts) return RefuseCall(call, "a port number is 1 to 99");
    const ProgramFolder folder{call.World.Store, call.Folder};
    const Status status = PointPort(folder, catalog, number, DevicePath(folder.Store, call.Words[2]));
    return status.Ok() ? kDone : RefuseStatus(call, status);
}

}  // namespace

int PortsCommand(const CommandCall& call) {
    const bool map = call.Words.size() == 3 && call.Words[0] == "map";
    if (!map && !call.Words.empty()) return RefuseCall(call, "usage: " + UsageOf(*FindCommand("ports")));
    const std::unique_ptr<Machine> machine = call.World.MakeMachine(call.Folder);
    if (map) return MapPort(call, machine->Catalog());
    return PrintPorts(call, ListPorts(call, machine->Catalog()));
}

}  // namespace counter

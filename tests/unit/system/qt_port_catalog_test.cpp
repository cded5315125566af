#include "system/qt_port_catalog.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "system/disk_files.h"

namespace counter {

class QtPortCatalogTest : public testing::Test {
  protected:
    QtPortCatalogTest() { files_.MakeFolder(folder_.At("ports")); }
    std::vector<PortDescription> Machine() const {
        return {{folder_.At("ttyA"), "", ""}, {folder_.At("ttyB"), "", ""}, {folder_.At("ttyC"), "", ""}};
    }

    const TempFolder folder_;
    DiskFiles files_;
    const QtPortCatalog catalog_{folder_.Path, folder_.At("by-id"), [this] { return Machine(); }};
};

TEST_F(QtPortCatalogTest, PortsCarryTheirNamesByIdWhereTheyHaveOne) {
    EXPECT_EQ(catalog_.Ports().size(), 3U);  // there is no such folder while no adaptor is plugged in
    files_.MakeFolder(folder_.At("by-id"));
    files_.MakeLink(folder_.At("by-id/usb-adaptor"), "../ttyB");
    files_.MakeLink(folder_.At("by-id/usb-other"), "../ttyD");
    const auto ports = catalog_.Ports();
    EXPECT_EQ(ports.at(0).ById, "");
    EXPECT_EQ(ports.at(1).ById, folder_.At("by-id/usb-adaptor"));
}

TEST_F(QtPortCatalogTest, LinkThenMachineThenMissingLink) {
    files_.MakeLink(folder_.At("ports/com1"), "/dev/serial/by-id/usb-elsewhere");
    files_.MakeLink(folder_.At("ports/com7"), "../by-id/usb-adaptor");
    files_.Write(folder_.At("ports/com3"), "");
    // clang-format off
    const struct { const char* Name; int Number; std::string Device; } cases[] = {
        {"a link goes before the machine's port", 1, "/dev/serial/by-id/usb-elsewhere"},
        {"no link: the machine's second port",    2, folder_.At("ttyB")},
        {"what is no link is the device itself",  3, folder_.At("ports/com3")},
        {"no link and no fourth port",            4, folder_.At("ports/com4")},
        {"a relative link counts from ports/",    7, folder_.At("by-id/usb-adaptor")},
        {"no such number",                        0, folder_.At("ports/com0")},
    };
    // clang-format on
    for (const auto& c : cases) EXPECT_EQ(catalog_.DeviceOf(c.Number), c.Device) << c.Name;
}

}  // namespace counter

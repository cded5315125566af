// fleet: every fault of a table is told before a line is opened. What it does to meters:
// tests/system/fleet.sh.
#include "edit_bench.h"

namespace counter::test {
namespace {

const std::string kHeading = "name,line,protocol,baud,address,setup";

TEST(Fleet, FaultsOfATableAreToldWithRowAndColumn) {
    const std::string four = kHeading + ",Setpoint 1,Address\n";
    const struct {
        std::string Table;
        std::string Told;  // a line each
    } cases[] = {
        // clang-format off
        {"", "is empty"},
        {kHeading + "\n,,,,,\n", "has no meter below its heading"},
        {"name;line;protocol;baud;setup\n", "row 1: has no column \"address\""},
        {kHeading + ",Setpont 1,setpoint 1,Setpoint 1,\na,l,rtu,9600,1,d,1,2,3,\n",
            "row 1, column Setpont 1: no field 'Setpont 1'; did you mean 'Setpoint 1'?\n"
            "row 1, column Setpoint 1: is there twice\nrow 1, column 10: has no name"},
        {kHeading + "\na,l,ascii,9600,1\n", "row 2: has 5 cells, the heading has 6"},
        {kHeading + "\na,tcp://h:1,ascii,,1,d\nb,l,ascii,,2,d\n", "row 3, column baud: \"\" is none of 300, 600, 1200, 2400, 4800, 9600, 19200"},
        {kHeading + ",echo,version\na,l,rtu,9600,1,d,2,256\n", "row 2, column echo: \"2\" is not 0 or 1\nrow 2, column version: \"256\" is none of 0 to 255"},
        {kHeading + "\na/b,,ASCI,9601,32,d\n",
            "row 2, column name: \"a/b\" can't be the name of a file: no / and no control character, no point in front\n"
            "row 2, column line: is empty: a device, its name by id, tcp://HOST:PORT or node://ADDRESS@IP\n"
            "row 2, column protocol: \"ASCI\" is none of Custom ASCII, Modbus RTU, Modbus ASCII\n"
            "row 2, column baud: \"9601\" is none of 300, 600, 1200, 2400, 4800, 9600, 19200\n"
            "row 2, column address: \"32\" is none of 0 to 31, the addresses of Custom ASCII"},
        {kHeading + "\na,tcp://host:0,modbus rtu,9600,0,d\nA,node://12@1.2.3,ascii,9600,x,d\n",
            "row 2, column line: is no tcp://HOST:PORT, the port 1 to 65535\n"
            "row 2, column address: \"0\" is none of 1 to 255, the addresses of Modbus\n"
            "row 3, column name: \"A\" is the name of row 2\n"
            "row 3, column line: is no node://ADDRESS@IP or node://ADDRESS@IP:PORT, ADDRESS the node's own, 12 hexadecimal digits\n"
            "row 3, column address: \"x\" is none of 0 to 31, the addresses of Custom ASCII"},
        {kHeading + "\na,l,ascii,9600,1,\nb,l,ascii,9600,2,gone\nc,l,ascii,9600,3,picture\n",
            "row 2, column setup: is empty: a setup file\nrow 3, column setup: gone: No such file or directory\n"
            "row 4, column setup: picture: is no setup: 3 characters instead of 260 hexadecimal digits; character 1 is 'G' and no hexadecimal digit"},
        {kHeading + "\na,l,ascii,9600,1,d\nb,/dev/l,Custom ASCII,19200,1,d\nc,m,ascii,9600,1,d\nd,l,rtu,9600,1,d\n",
            "row 3, column address: is that of row 2 on the same line"},
        {four + "a,l,ascii,9600,1,d,1000000,\nb,l,ascii,9600,2,d,1,5\nc,l,ascii,9600,5,d,2,\n",
            "row 2, column Setpoint 1: 'Setpoint 1=1000000': takes -999999 to 999999, with no decimals\n"
            "row 3, column address: its setup moves the meter to Custom ASCII, 9600 baud, address 5, which is where row 4 is or will be"},
        {kHeading + ",Modbus Address\na,l,ascii,9600,1,d,7\n", "row 2, column Modbus Address: 'Modbus Address=7': txtMBAddr is hidden"},
        // clang-format on
    };
    for (const auto& c : cases) {
        EditBench bench;
        bench.Store.Contents["picture"] = "GIF";
        bench.Store.Contents["t"] = c.Table;
        std::string told = "counterctl: t: ";
        for (const char letter : c.Told)
            told += letter == '\n' ? "\ncounterctl: t: " : std::string(1, letter);
        EXPECT_EQ(bench.Run({"fleet", "put", "t"}), 1) << c.Table;
        EXPECT_EQ(bench.Err, told + "\n");
        EXPECT_EQ(bench.Out, "");
    }
}

}  // namespace
}  // namespace counter::test

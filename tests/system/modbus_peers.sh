#!/usr/bin/env bash
# Real Modbus peers: mbpoll and pymodbus read the simulated meter, counterctl reads a libmodbus server.
. "$(dirname "$0")/common.sh"
tests=$(cd "$(dirname "$0")" && pwd)

# mbpoll over RTU. Registers 0x0002, 0x0004 and 0x000A hold Setpoint 1, Setpoint 2 and Scale 1.
ctl 0 settings init --force
start_meter --protocol rtu --any-baud --set 55=003039
mbpoll -m rtu -a 1 -b 9600 -P none -s 2 -0 -r 1 -c 16 -1 -t 4:hex "$device" >"$work/mbpoll"
tr -d ' \t' <"$work/mbpoll" >"$work/registers"
said '[2]:0x3039' registers
said '[4]:0x4E20' registers
said '[10]:0x86A0' registers
if mbpoll -m rtu -a 1 -b 9600 -P none -s 2 -0 -r 0 -c 1 -1 -t 4:hex "$device" >/dev/null 2>"$work/mbpoll"; then
    fail "register 0 is none of the meter's"
fi
said "Illegal data address" mbpoll

# pymodbus over Modbus ASCII, reading and writing.
start_meter --protocol modbus-ascii --any-baud
/usr/bin/python3 "$tests/pymodbus_client.py" "$device" || fail "pymodbus"

# counterctl against a server that libmodbus answers for, with the published CRC. Its registers hold the default setup with 12345 as Setpoint 1.
ctl 0 settings init --force SerialProtocol=1 FirmwareVersion=83
start_peer "$bin/libmodbus_server" "$tests/default_registers.txt"
ctl 0 get "$work/peer.CT2"
ctl 0 default "$work/own.CT2"
ctl 4 diff "$work/own.CT2" "$work/peer.CT2" --json
/usr/bin/python3 - "$work/out" <<'PYTHON' || fail "other differences than the setpoint and what no register brings"
import json, sys
found = {line["field"]: (line["a"], line["b"]) for line in json.load(open(sys.argv[1]))}
assert found == {"Setpoint 1": ("+010000.", "+012345."), "Carried byte 153": ("2E", "00")}, found
PYTHON
# Hand work: readings with both signs, what libmodbus understood of resets and remote values, and its exception
# for a reading that it does not have. The last reading comes after all writes.
reads() { ctl 0 read "$1"; [ "$(cat "$work/out")" = "$2" ] || { cat "$work/out"; fail "$1 is not $2"; }; }
reads item1 123456
reads peak -123
reads valley -2147483648
for reset in meter function alarms peak valley display; do ctl 0 reset $reset; done
ctl 0 remote display 12.34
ctl 0 remote item3 -1
ctl 0 remote both 2147483647
ctl 1 remote both 2147483648
ctl 3 read item2
said "(2)" err
reads item1 123456
cat >"$work/wanted" <<'WRITES'
coil 1 on
coil 2 on
coil 3 on
coil 4 on
coil 5 on
coil 6 on
registers 69 0000 04D2
registers 6B FFFF FFFF
registers 6D 7FFF FFFF
WRITES
grep -E '^(coil|registers) ' "$work/peer.log" | diff "$work/wanted" - || fail "other writes"
echo "All as it should be."

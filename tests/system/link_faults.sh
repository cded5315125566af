#!/usr/bin/env bash
# Lines and ports that fail: the status, the last line on standard error, and that the next Get works.
. "$(dirname "$0")/common.sh"

# fault TEXT NUMBER: a Get that ends with this LinkError, and a good one behind it.
fault() {
    start_meter --protocol "$name" --fault "$1"
    ctl 3 get "$work/never.CT2" --json
    said "\"LinkError\": $2" out
    [ "$(tail -n 1 "$work/err")" = "Failed to Get data, check connections, then try again.      ( $2)" ] ||
        fail "$1: last line is $(tail -n 1 "$work/err")"
    [ ! -e "$work/never.CT2" ] || fail "$1: a failed Get wrote a file"
    ctl 0 get "$work/next.CT2"
}

name=ascii
ctl 0 settings init --force
fault 'XR1A#1:noreply' 21
fault 'XR35#1:cut=40' 23
fault 'G128#1:cut=1' 23
fault 'XB74#1:pause=20,400' 23

# The line itself goes away in the middle of a reply; the meter comes back on another one.
start_meter --link "$work/line" --fault 'XR35#1:gone=30'
ctl 0 ports map 1 "$work/line"
ctl 3 get "$work/never.CT2"
said "( 27)" err
ctl 0 get "$work/next.CT2"

# Half duplex lines.
ctl 0 settings set CommsEnabled=2
start_meter --fault '*:echo'
ctl 0 get "$work/next.CT2"
start_meter --fault '*:badecho'
ctl 3 get "$work/never.CT2"
said "( 22)" err

name=rtu
ctl 0 settings init --force SerialProtocol=1
fault '030011#1:badcheck' 24
fault '030025#1:exception=2' 2
start_meter --protocol rtu --crc c2 --version 80
ctl 0 settings set FirmwareVersion=80
ctl 0 get "$work/next.CT2"

name=modbus-ascii
ctl 0 settings init --force SerialProtocol=2
fault '030041#1:badcheck' 26

# A wrong speed is as good as no meter.
stop_peer
ctl 0 settings init --force BaudIndex=3
start_meter
ctl 3 get "$work/never.CT2"
said "( 21)" err

# Ports and files that can't be used.
stop_peer
ctl 0 settings init --force
rm -f "$home/ports/com1"
ln -s /dev/pts/none "$home/ports/com1"
ctl 2 get "$work/never.CT2"
said "No such file or directory" err
ctl 0 settings set CommPortNumber=99
ctl 2 get "$work/never.CT2"
said "ports/com99" err
ctl 0 settings set CommPortNumber=1
start_meter
ctl 2 get "$work/none/never.CT2"
ctl 2 show "$home"
said "$home" err
printf '3x01000100100831010000\r\n\r\n' >"$home/Settings.SSS"
ctl 2 get "$work/never.CT2"
said "none of 0 to 6" err

# An interrupt ends a Get at its next wait.
ctl 0 settings init --force
status=0
timeout --preserve-status -s INT 1 "$bin/counterctl" --dir "$home" get "$work/never.CT2" 2>"$work/err" || status=$?
[ $status -eq 130 ] || fail "an interrupt ended it with $status"
[ ! -e "$work/never.CT2" ] || fail "an interrupted Get wrote a file"
echo "All as it should be."

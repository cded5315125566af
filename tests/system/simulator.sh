#!/usr/bin/env bash
# counter-sim as a program: its files, links, signals and refusals.
. "$(dirname "$0")/common.sh"

ctl 0 settings init --force
ctl 0 default "$work/image"
cp "$work/image" "$work/first"
start_meter --image "$work/image" --save "$work/saved" --version 78 --link "$work/line" --verbose
[ "$(readlink "$work/line")" = "$device" ] || fail "the link names another device"
ctl 0 ports map 1 "$work/line"
ctl 0 get "$work/got"
ctl 0 fields "$work/got" FirmwareVersion
[ "$(cat "$work/out")" = 78 ] || fail "options do not go before the file"

# Another image at SIGHUP, with the options above it; a save at SIGUSR1 and at the end.
ctl 0 set "$work/image" "Gate Time"=12.34
kill -HUP "$sim"
ctl 0 get "$work/got"
ctl 0 fields "$work/got" "Gate Time" FirmwareVersion
[ "$(tr '\n' ' ' <"$work/out")" = "012.34 78 " ] || fail "not the other image: $(cat "$work/out")"
kill -USR1 "$sim"
ctl 0 put "$work/first"
[ "$(cut -c 177-180 "$work/saved")" = 04D2 ] || fail "nothing was saved at the signal"
ln -sfn /dev/pts/none "$work/line" # another program's by now
stop_peer
[ "$(cut -c 177-180 "$work/saved")" = 000A ] || fail "nothing was saved at the end"
[ -L "$work/line" ] || fail "another program's link is gone"

# A quit, and a hang-up where no image is to be read again, end it as well: the memory is saved.
for end in QUIT HUP; do
    start_peer env --default-signal=QUIT "$bin/counter-sim" --save "$work/saved"
    rm -f "$work/saved"
    kill "-$end" "$sim"
    stop_peer
    [ -s "$work/saved" ] || fail "nothing was saved at $end"
done
status=0
env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb "$bin/counter-sim" --face >"$work/out" 2>"$work/err" || status=$?
[ "$status" -eq 4 ] || { cat "$work/err"; fail "--face without a display: $status"; }
[ "$(wc -l <"$work/err")" -eq 1 ] || { cat "$work/err"; fail "more than one line"; }
for program in counter-setup counter-link; do
    env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb "$bin/$program" --help | grep -q -- --dir || fail "$program --help"
done

# Every kind of signal; and a stream ends with its line, also when the tool is killed.
for signal in constant ramp sine steps noise; do
    start_meter --signal $signal --value -500 --amplitude 0 --period 0.5 --seed 7 --rate max --set 151=13
    ctl 0 read item1
    [ "$(cat "$work/out")" = "-0005.00" ] || fail "$signal is $(cat "$work/out")"
done
timeout -s KILL 6 "$bin/counterctl" --dir "$home" stream >"$work/stream" 2>&1 || true
[ "$(sort -u "$work/stream")" = "-0005.00" ] || fail "the stream is $(sort -u "$work/stream")"
ctl 0 get "$work/got"

start_meter --frequency 500000 --timebase-ppm 112.5 --strict-baud --set 199=01
ctl 0 read item1
said 500006. out

# Many meters on one line: each answers to its own address and speed, keeps its own memory, has its own faults.
cat >"$work/bus.csv" <<'TABLE'
name,address,protocol,baud,image,set,fault
press,1,,,image,,
dryer,31,,,,177=1111,B1#1:noreply
oven,200,rtu,19200,,177=2222,
TABLE
start_meter --bus "$work/bus.csv" --save "$work/bus" --version 78
ctl 0 get "$work/got"
ctl 0 settings set MeterAddressValue=31
ctl 3 read item1
ctl 0 put "$work/first"
ctl 0 settings set SerialProtocol=1 ModbusAddress=200 BaudIndex=6
ctl 0 get "$work/oven"
ctl 0 set "$work/image" "Gate Time"=0.34
kill -HUP "$sim"
stop_peer
ls "$work/bus" | tr '\n' ' ' | grep -qx "dryer.CT2 oven.CT2 press.CT2 " || fail "saved: $(ls "$work/bus")"
gates() { cut -c 177-180 "$work/bus/dryer.CT2" "$work/bus/oven.CT2" "$work/bus/press.CT2" "$work/oven" | tr '\n' ' '; }
[ "$(gates)" = "000A 2222 0022 2222 " ] || fail "each has its own memory: $(gates)"

refuses() {
    local status=0
    "$bin/counter-sim" "$2" "$3" >/dev/null 2>&1 || status=$?
    [ $status -eq "$1" ] || fail "$2 $3: status $status, not $1"
}
refuses 1 --baud 9601
refuses 1 --address 32
refuses 1 --fault XR35:silence
refuses 1 --set 261=0
refuses 1 --rate 0
refuses 1 --signal square
refuses 1 --period 0
echo precious >"$work/file"
refuses 2 --image "$work/none"
refuses 2 --image "$work/file"
refuses 2 --link "$work/file"
refuses 2 --bus "$work/file"
[ "$(cat "$work/file")" = precious ] || fail "a file was replaced by a link"
echo "All as it should be."

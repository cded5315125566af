#!/usr/bin/env bash
# counterctl fleet on real lines: a bus of 31 meters that is put, interrupted in the middle of a meter and put again,
# with meters that fail on the way; and a meter that a table moves, lines that are not there, processes that are killed.
. "$(dirname "$0")/common.sh"
exe=$bin/counterctl
cd "$work"
ctl 0 default golden.CT2
ctl 0 set golden.CT2 "Setpoint 1"=777 --out other.CT2

# 3, 5, 11 and 20 hold another Setpoint 2; 20 is to have a Setpoint 1 of its own. 7 never answers, 9 not whole, and what 11
# answers after it was written is not whole either.
{
    echo name,address,set,fault
    for n in $(seq -w 31); do
        case $n in 03|05|11|20) set=49=0001F4 ;; *) set= ;; esac
        case $n in 07) fault=XR1A:noreply ;; 09) fault=XR35:cut=40 ;; 11) fault=XR1A#2:cut=9 ;; *) fault= ;; esac
        echo "m$n,$((10#$n)),$set,$fault"
    done
} >bus.csv
{
    printf '\xef\xbb\xbfName;Line;Protocol;Baud;Address;Setup;"Setpoint 1"\r\n'
    for n in $(seq -w 31); do
        printf 'm%s;./line;"Custom ASCII";9600;%d;golden.CT2;%s\r\n' "$n" "$((10#$n))" "$([ "$n" != 20 ] || echo 777)"
    done
} >meters.csv
# await TEXT FILE: until it is there.
await() {
    for _ in {1..900}; do grep -qE "$1" "$2" 2>/dev/null && return; sleep 0.1; done
    cat "$2"
    fail "'$1' did not come on $2"
}
start_meter --bus bus.csv --save held --link line --verbose
asked() { grep -E " m[0-9]+ .*$1" peer.log | sed -E 's/.* (m[0-9]+) .*/\1/' | sort -u | tr '\n' ' '; }

"$exe" --json fleet put meters.csv --junit first.xml --html first.html >first.json 2>err &
put=$!
await ' m03 .*WR1A' peer.log
kill -INT "$put"
status=0
wait "$put" || status=$?
[ "$status" -eq 130 ] || { cat err; fail "status $status after an interrupt"; }
said "31 meters: 2 as the table says, 1 interrupted, 28 not reached" err
[ "$(asked W)" = "m03 " ] || fail "written: $(asked W)"
python3 - <<'PYTHON' || fail "the reports of the interrupted put"
import json, xml.etree.ElementTree as xml
first = json.load(open("first.json"))
ends = [meter["end"] for meter in first["meters"]]
assert ends == ["as wanted"] * 2 + ["interrupted"] + ["not reached"] * 28, ends
third = first["meters"][2]
assert third["written"][0] == "WR1A" and "sent so far: WR1A" in third["text"], third
assert open(third["backup"]).read()[48:54] == "0001F4", third["backup"]
suite = xml.parse("first.xml").getroot().find("testsuite")
assert (suite.get("tests"), suite.get("errors"), suite.get("skipped")) == ("31", "1", "28"), suite.attrib
assert open("first.html").read().endswith("</html>\n")
PYTHON

# Once more: what is left to be done is done, and no other meter is written.
status=0
"$exe" --json fleet put meters.csv >second.json 2>err || status=$?
[ "$status" -eq 3 ] || { cat err; fail "status $status of the second put"; }
kill "$sim"
stop_peer
[ "$(asked W)" = "m03 m05 m11 m20 " ] || fail "written: $(asked W)"
python3 - <<'PYTHON' || fail "the second put"
import json
meters = {meter["name"]: meter for meter in json.load(open("second.json"))["meters"]}
golden, other = open("golden.CT2").read()[:260], open("other.CT2").read()[:260]
for number in range(1, 32):
    name = f"m{number:02}"
    meter, held = meters[name], open(f"held/{name}.CT2").read()[:260]
    wanted = other if number == 20 else golden
    assert int(held[188:190], 16) & 31 == number, (name, held)
    assert held[:188] == wanted[:188] and held[190:] == wanted[190:], (name, held, wanted)
    end = "link failed" if number in (7, 9, 11) else "written" if number in (5, 20) else None
    assert end is None or meter["end"] == end, meter
    assert number in (3, 5, 7, 9, 11, 20) or meter["end"] == "as wanted", meter
    assert meter["verified"] == (meter["end"] == "written"), meter
assert "read back" in meters["m11"]["text"], meters["m11"]
setpoint = next(field for field in meters["m20"]["fields"] if field["field"] == "Setpoint 1")
assert (setpoint["table"], setpoint["found"], setpoint["left"]) == ("+000777.", "+010000.", "+000777."), setpoint
PYTHON

# fleet STATUS ACTION: on a table with the rows of standard input.
fleet() {
    local wanted=$1 status=0
    shift
    { echo "name,line,protocol,baud,address,setup,Baud Rate,Address"; cat; } >table.csv
    "$exe" fleet "$1" table.csv "${@:2}" >out 2>err || status=$?
    [ "$status" -eq "$wanted" ] || { cat out err; fail "fleet $1: status $status, not $wanted"; }
}

# What the Setup view makes of the default setup as soon as somebody sets a field in it.
ctl 0 set golden.CT2 "Setpoint 2"=20000 --out settled.CT2

# A table that moves a meter: it is found at either place, and what the user's own settings say does not matter.
ctl 0 settings init --force
cp home/Settings.SSS settings
start_meter --link line --address 4
moved='press,./line,ascii,9600,4,settled.CT2,19200,6'
fleet 4 check <<<"$moved"
said "press:   Address  4  (table: 6)" out
fleet 0 put <<<"$moved"
said "press: written, and reads back as the table says" out
fleet 0 put <<<"$moved"
said "press:   answers at Custom ASCII, 19200 baud, address 6 now, not where the table has it" out
fleet 0 read <<<"$moved"
cmp settings home/Settings.SSS || fail "the user's settings were touched"

# A line that is not there, and one whose process is killed, stop no other.
fleet 2 check <<<"absent,./none,ascii,9600,1,settled.CT2,,
press,./line,ascii,19200,6,settled.CT2,,"
said "press: as the table says" out
said "absent: $work/none: No such file or directory" out
start_meter --link line --address 6 --baud 19200 --fault 'XR:late=2500' --verbose
: >peer.log
{ head -n 1 table.csv; for n in 6 7; do echo "press$n,./line,ascii,19200,$n,settled.CT2,,"; done; } >two.csv
"$exe" fleet check two.csv >out 2>err &
check=$!
await XR1A peer.log
kill -KILL "$(pgrep -P $check)"
status=0
wait $check || status=$?
[ "$status" -eq 2 ] || fail "status $status where a process was killed"
said "press6: the process of its line ended: signal 9" out
grep -q '^press7: no\|^press7: could not be read' out || fail "the meter behind it: $(cat out)"
echo "All as it should be."

#!/usr/bin/env bash
# Every command's --json against docs/counterctl.schema.json, with --trace beside it and on links that fail.
. "$(dirname "$0")/common.sh"
here=$(cd "$(dirname "$0")" && pwd)
mkdir "$work/json"

# document NAME STATUS ARGUMENT...: runs counterctl and keeps what was on standard output.
document() {
    local name=$1
    shift
    ctl "$1" --json --trace "${@:2}"
    cp "$work/out" "$work/json/$name.json"
}

ctl 0 settings init --force
ctl 0 default "$work/d"
document settings.all 0 settings
document show.fields 0 show "$work/d"
document show.menu 0 show "$work/d" --as menu
document show.setup 0 show "$work/d" --as setup
document fields.all 0 fields "$work/d"
document fields.some 0 fields "$work/d" "Setpoint 1" Parity
document set.mode 0 set "$work/d" Mode=Total "Setpoint 1"=5 --out "$work/e"
document diff.some 4 diff "$work/d" "$work/e"
document edit.message 0 edit "$work/d" --out "$work/f" < <(echo 'select cboPwrOnTot #1')

start_meter --set 185=64  # a remote display, of which Get warns
document ports.one 0 ports
document get.message 0 get "$work/m"
start_meter --fault 'B2:noreply'
document scan.one 0 scan 1 --protocol ascii --baud 9600 --address 1
document get.good 0 get "$work/m"
document put.verified 0 put "$work/m" --verify
document verify.same 0 verify "$work/m"
document verify.other 4 verify "$work/e"
document read.one 0 read item1
document read.line 0 read all+
document read.failed 3 read item2
document reset.one 0 reset peak
document remote.one 0 remote display 5
document stream.three 0 stream --count 3 --seconds 60
[ "$(wc -l <"$work/out")" -eq 3 ] || fail "not a document a reading"
sed -i 1q "$work/json/stream.three.json"
document record.three 0 record --count 3 --seconds 60 --mqtt mqtt://127.0.0.1:1/plant --note "a try"
document readings.runs 0 readings
document readings.one 0 readings 1
sed -i 1q "$work/json/readings.one.json"
printf 'name,line,protocol,baud,address,setup,Setpoint 1\na,%s,ascii,9600,1,d,5\nb,%s,ascii,9600,2,d,\n' "$device" "$device" >"$work/t"
document fleet.put 3 fleet put "$work/t"
document fleet.read 3 fleet read "$work/t"
printf 'A%.0s' {1..84} >"$work/curve"
{ echo; printf '5%.0s' {1..84}; echo; } >>"$work/curve"
document curve.one 0 curve "$work/curve"
start_meter --set 199=01 --frequency 1000
document calibrate.one 0 calibrate 1000
start_meter --fault 'XR35:noreply'
document get.failed 3 get "$work/n"
document verify.failed 3 verify "$work/m"

# What has no document writes nothing.
for line in "default $work/x" "settings set BaudIndex=5" "ports map 2 $device" "sheet $work/d --html $work/s"; do
    # shellcheck disable=SC2086
    ctl 0 --json $line
    [ ! -s "$work/out" ] || fail "$line wrote a document"
done

"$bin/counterctl" --help | awk '/^Commands/ {on = 1; next} /^$/ {on = 0} on {print $1}' |
    grep -vxE 'default|sheet|help' >"$work/json/commands"
[ "$(wc -l <"$work/json/commands")" -gt 10 ] || fail "no commands in the help"
/usr/bin/python3 "$here/json_schema.py" "$here/../../docs/counterctl.schema.json" "$work/json" || fail "schema"
echo "All as it should be."

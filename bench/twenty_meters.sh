#!/usr/bin/env bash
# twenty_meters.sh BIN FOLDER: twenty `counterctl get` at once, each from a simulated meter of its own that holds
# another setup. Each has to bring its own meter's; tells wall time, and processor time against one Get alone.
set -euo pipefail
bin=$(realpath "$1")
work=$2
count=20
rm -rf "$work"
sims=()
trap 'kill "${sims[@]}" 2>/dev/null || true' EXIT

# begin N: meter N with its program folder; its line comes on the pipe that is told.
begin() {
    local home=$work/$1
    mkdir -p "$home"
    "$bin/counterctl" --dir "$home" settings init
    "$bin/counterctl" default "$home/own.CT2"
    "$bin/counterctl" set "$home/own.CT2" "Setpoint 1=$1" 2>/dev/null
    tr -d '\r\n' <"$home/own.CT2" >"$home/meter.txt"
    mkfifo "$home/told"
    "$bin/counter-sim" --image "$home/meter.txt" >"$home/told" 2>"$home/sim.log" &
    sims+=($!)
    exec {told}<"$home/told"
    read -r device <&"$told"
    "$bin/counterctl" --dir "$home" ports map 1 "$device"
}
get() { exec "$bin/counterctl" --dir "$work/$1" get "$work/$1/got.CT2" >"$work/$1/log" 2>&1; }
# own N: fails where Get N did not bring what meter N holds.
own() { cmp "$work/$1/own.CT2" "$work/$1/got.CT2" || { cat "$work/$1/log"; exit 1; }; }

get_all() {
    local n gets=()
    for n in $(seq "$1"); do get "$n" & gets+=($!); done
    for n in "${gets[@]}"; do wait "$n" || { cat "$work"/*/log >&2; exit 1; }; done
}

for n in $(seq $count); do begin "$n"; done
TIMEFORMAT='%R %U %S'
for n in 1 $count; do
    figures=$({ time get_all "$n" 2>&3; } 3>&2 2>&1)
    echo "$n $figures" >>"$work/figures"
done
for n in $(seq $count); do own "$n"; done
awk '{ wall[NR] = $2; cpu[NR] = $3 + $4 } END {
    printf "%d gets at once, each from a meter of its own: all good in %.2f s (one alone %.2f s)\n", $1, wall[2], wall[1]
    printf "processor time %.3f s, %.1f times that of one alone (%.3f s)\n", cpu[2], cpu[2] / cpu[1], cpu[1] }' "$work/figures"

#!/usr/bin/env bash
# fleet.sh BIN FOLDER: `counterctl fleet check` of 60 simulated meters on 4 lines against 15 on one. Lines run side by
# side, so both should take the same time; tells the wall times and the processor time of parent and children.
set -euo pipefail
bin=$(realpath "$1")
work=$2
rm -rf "$work"
mkdir -p "$work"
cd "$work"
sims=()
trap 'kill "${sims[@]}" 2>/dev/null || true' EXIT

{ echo name,address; for n in $(seq 15); do echo "m$n,$n"; done; } >bus.csv
"$bin/counterctl" default golden.CT2
heading=name,line,protocol,baud,address,setup
for line in 1 2 3 4; do
    "$bin/counter-sim" --bus bus.csv --link "line$line" >/dev/null &
    sims+=($!)
    for n in $(seq 15); do echo "line$line-m$n,./line$line,ascii,9600,$n,golden.CT2"; done >"rows$line"
    until [ -c "line$line" ]; do sleep 0.05; done
done
{ echo $heading; cat rows1; } >15.csv
{ echo $heading; cat rows1 rows2 rows3 rows4; } >60.csv

TIMEFORMAT='%R %U %S'
for n in 15 60; do
    figures=$({ time "$bin/counterctl" fleet check $n.csv >$n.log 2>&1; } 2>&1) || { cat $n.log; exit 1; }
    echo "$n $figures" >>figures
done
awk '{ wall[NR] = $2; cpu[NR] = $3 + $4 } END {
    printf "15 meters on one line: %.1f s, processor time %.2f s\n", wall[1], cpu[1]
    printf "60 meters on 4 lines: %.1f s, processor time %.2f s\n", wall[2], cpu[2]
    printf "ratio of wall times %.3f, %.1f ms of processor time a meter\n", wall[2] / wall[1], 1000 * cpu[2] / 60 }' figures

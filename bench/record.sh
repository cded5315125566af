#!/usr/bin/env bash
# record.sh BIN FOLDER: processor time a reading of `counterctl stream --csv` and `counterctl record`, beside that of a
# terminal program's log (tio), each from a simulated meter of its own, all at the same time; at 20 and at 1,000 readings
# a second. Of two runs, a short and a long one, the difference: what starting costs is not in it.
set -euo pipefail
bin=$(realpath "$1")
rm -rf "$2"
mkdir -p "$2"
work=$(realpath "$2")
short=3
long=${RECORD_BENCH_SECONDS:-18}
sims=()
trap 'kill "${sims[@]}" 2>/dev/null || true' EXIT
command -v tio >/dev/null || { echo "needs tio"; exit 1; }

# begin TOOL RATE: a meter with its program folder.
begin() {
    rm -rf "${work:?}/$1"
    mkdir "$work/$1"
    "$bin/counter-sim" --link "$work/$1/line" --rate "$2" >/dev/null &
    sims+=($!)
    while [ ! -e "$work/$1/line" ]; do sleep 0.05; done
    "$bin/counterctl" --dir "$work/$1" settings init
    "$bin/counterctl" --dir "$work/$1" ports map 1 "$work/$1/line"
}
stream() { "$bin/counterctl" --dir "$work/stream" stream --seconds "$1" --csv "$work/stream/log" >/dev/null; }
record() { "$bin/counterctl" --dir "$work/record" record --seconds "$1" --db "$work/record/log.db" >/dev/null 2>&1; }
# It asks the meter for nothing: that is told to send beforehand, on a line that stays open.
tio_log() {
    exec 5<>"$work/tio/line"
    stty -F "$work/tio/line" raw -echo 9600
    printf '*1A0\r\n' >&5
    sleep "$(($1 + 5))" | timeout -s INT "$1" tio --baudrate 9600 --log --log-file "$work/tio/log" "$work/tio/line" >/dev/null 2>&1 || true
    exec 5>&-
}
lines() {
    case $1 in
        tio) tr '\r' '\n' <"$work/tio/log" | grep -c . ;;
        stream) grep -c , "$work/stream/log" ;;
        record) "$bin/counterctl" readings --db "$work/record/log.db" --json | sed -n 's/.*"readings": \([0-9]*\).*/\1/p' | tail -n 1 ;;
    esac
}
# measure TOOL SECONDS: a line of its processor time in seconds and how many readings it took.
measure() {
    local call=$1
    [ "$1" != tio ] || { call=tio_log; rm -f "$work/tio/log"; }
    local TIMEFORMAT='%U %S' spent
    spent=$({ time "$call" "$2" 2>/dev/null; } 2>&1)
    echo "$spent $(lines "$1")" >>"$work/$1.figures"
}

for rate in 20 1000; do
    rm -f "$work"/*.figures
    for tool in tio stream record; do begin "$tool" "$rate"; done
    for seconds in $short $long; do
        running=()
        for tool in tio stream record; do measure "$tool" "$seconds" & running+=($!); done
        wait "${running[@]}"
    done
    kill "${sims[@]}"
    wait "${sims[@]}" 2>/dev/null || true
    sims=()
    for tool in tio stream record; do echo "$tool $(tr '\n' ' ' <"$work/$tool.figures")"; done |
        awk -v rate="$rate" '{ us = ($5 + $6 - $2 - $3) * 1e6 / ($7 - $4); if (NR == 1) tio = us
            printf "%5d a second  %-7s %7.1f us a reading  %.2f of tio\n", rate, $1, us, us / tio }'
done

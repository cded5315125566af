#!/usr/bin/env bash
# Twenty meters, twenty readings a second each, recorded into stores and sent to a broker; recorders and broker are
# killed and restarted meanwhile. What the stores hold is what a listener has heard: none missing, none heard twice, in
# order.
. "$(dirname "$0")/common.sh"
here=$(cd "$(dirname "$0")" && pwd)
count=20
command -v mosquitto >/dev/null || PATH=$PATH:/usr/sbin
port=$(python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])')
printf 'listener %s 127.0.0.1\nallow_anonymous true\npersistence true\npersistence_location %s/\nmax_queued_messages 0\n%s' \
    "$port" "$work" "$([ "$(id -u)" -ne 0 ] || echo "user root")" >"$work/broker.conf"
broker=
pids=()
end_all() { touch "$work/stop"; kill -9 "${pids[@]}" $broker $(cat "$work"/*/pid 2>/dev/null) 2>/dev/null || true; }
trap end_all EXIT

start_broker() { mosquitto -c "$work/broker.conf" >>"$work/broker.log" 2>&1 & broker=$!; }
stop_broker() { kill "-$1" "$broker"; wait "$broker" 2>/dev/null || true; }
hear() { exec mosquitto_sub -h 127.0.0.1 -p "$port" -c -i listener -q 1 -t 'plant/+/readings' -F '%t %p' >>"$work/heard" 2>>"$work/listener.log"; }
heard() { wc -l <"$work/heard"; }
# until_heard N: the listener has N messages more. A recorder that sends none fails by the time of the whole test.
until_heard() { local wanted=$(($(heard) + $1)); while [ "$(heard)" -lt "$wanted" ]; do sleep 0.2; done; }

begin() {
    local home=$work/$1
    mkdir "$home"
    "$bin/counterctl" --dir "$home" settings init
    "$bin/counter-sim" --link "$home/line" >/dev/null &
    pids+=($!)
    while [ ! -e "$home/line" ]; do sleep 0.05; done
    "$bin/counterctl" --dir "$home" ports map 1 "$home/line"
}
# Ten meters share a store. A recorder that was killed is started again.
record() {
    local store=$work/shared.db
    [ "$1" -le 10 ] || store=$work/$1/own.db
    while [ ! -e "$work/stop" ]; do
        "$bin/counterctl" --dir "$work/$1" record --db "$store" --mqtt "mqtt://127.0.0.1:$port/plant" --name "m$1" \
            >>"$work/$1/out" 2>>"$work/$1/err" &
        echo $! >"$work/$1/pid"
        wait $! 2>/dev/null || true
    done
}
kill_recorders() { local n; for n in "$@"; do kill -9 "$(cat "$work/$n/pid")"; done; }

start_broker
: >"$work/heard"
until mosquitto_sub -h 127.0.0.1 -p "$port" -c -i listener -q 1 -t 'plant/+/readings' -E 2>/dev/null; do sleep 0.1; done
kill -USR1 "$broker"  # the listener's session outlives a kill
hear &
pids+=($!)
for n in $(seq $count); do begin "$n"; done
for n in $(seq $count); do record "$n" & pids+=($!); done

until_heard 1000
kill_recorders 1 2 3 11 12 13
until_heard 1500
kill_recorders 3 4 14 15
until_heard 1500
cp "$work/heard" "$work/before"
stop_broker KILL
sleep 2
kill_recorders 5 16
start_broker
until_heard 3000
stop_broker TERM
sleep 1
start_broker
until_heard 2000
touch "$work/stop"
for n in $(seq $count); do kill -INT "$(cat "$work/$n/pid")"; done
for n in $(seq $count); do while kill -0 "$(cat "$work/$n/pid")" 2>/dev/null; do sleep 0.1; done; done
cat "$work"/*/err >"$work/err"
! grep -F "wait in the store for the broker" "$work/err" || fail "not all was sent"
sleep 0.5
python3 "$here/record_heard.py" "$work"
echo "All as it should be."

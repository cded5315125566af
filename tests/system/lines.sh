#!/usr/bin/env bash
# A line that ser2net hands on: the same work as on a serial port, and what becomes of it when the server goes, is busy
# or was never there.
. "$(dirname "$0")/common.sh"
command -v ser2net >/dev/null || { echo "ser2net is not installed."; exit 77; }

port=$((20000 + $$ % 20000))
line=tcp://127.0.0.1:$port
server=
stop_server() {
    [ -n "$server" ] && kill "$1" "$server" 2>/dev/null && wait "$server" || true
    server=
}
trap 'stop_server -KILL; stop_peer' EXIT
listens() { grep -qi ":$(printf %04X "$port") 0\{8\}:0000 0A" /proc/net/tcp; }
start_server() {
    ser2net -n -u -c "$work/ser2net.yaml" >>"$work/server.log" 2>&1 &
    server=$!
    for _ in $(seq 100); do listens && return; sleep 0.1; done
    cat "$work/server.log"
    fail "ser2net does not listen"
}

ctl 0 settings init --force
start_meter --link "$work/line" --verbose
cat >"$work/ser2net.yaml" <<CONF
connection: &meter
  accepter: tcp,127.0.0.1,$port
  connector: serialdev,$work/line,9600n81,local
CONF

ctl 2 ports map 1 tcp://127.0.0.1
ctl 0 ports map 1 "$line"
[ "$(readlink "$home/ports/com1")" = "$line" ] || fail "the link is to $(readlink "$home/ports/com1")"
ctl 0 ports
said "$line" out
ctl 2 get "$work/got"
said "$line: Connection refused (no server listens" err

start_server
ctl 0 get "$work/first"
ctl 0 set "$work/first" "Setpoint 1"=12345 --out "$work/changed"
ctl 0 put "$work/changed" --verify
ctl 4 verify "$work/first"
ctl 0 verify "$work/changed"
ctl 0 --json stream --count 3
[ "$(wc -l <"$work/out")" -eq 3 ] || fail "no stream: $(cat "$work/out")"

# Somebody else has it: the server serves one.
exec 4<>"/dev/tcp/127.0.0.1/$port"
ctl 2 read item1
said "$line: the server ended the connection at once" err
exec 4>&-
ctl 0 read item1

# The server dies in the middle of a Get: the line is gone. Once it is back, all is well.
: >"$work/peer.log"
"$bin/counterctl" --dir "$home" get "$work/never" 2>"$work/err" >"$work/out" &
get=$!
for _ in $(seq 100); do grep -q XR1A "$work/peer.log" && break; sleep 0.1; done
stop_server -KILL
status=0
wait $get || status=$?
[ $status -eq 3 ] || { cat "$work/err"; fail "status $status with the server gone"; }
said "( 27)" err
[ ! -e "$work/never" ] || fail "a part of a setup was kept"
start_server
ctl 0 get "$work/again"
cmp "$work/again" "$work/changed" || fail "another setup"

# What the server can't follow is told.
ctl 0 set "$work/first" "Baud Rate"=19200 --out "$work/fast"
ctl 0 put "$work/fast"
said "the meter now talks at 19200,n,8,1 and $line at 9600,n,8,1" err
ctl 3 read item1
said "(21)" err
stop_server -TERM
sed -i s/9600n81/19200n81/ "$work/ser2net.yaml"
start_server
ctl 0 verify "$work/fast"

# A bus of 31 meters: all are found, on the line and through the server, and nothing is written into any.
stop_server -TERM
{
    echo name,address,protocol,baud
    for n in $(seq 31); do
        echo "m$n,$n,$([ $((n % 3)) -eq 0 ] && echo rtu || echo ascii),$([ $n -gt 28 ] && echo 19200 || echo 9600)"
    done
} >"$work/bus.csv"
start_meter --bus "$work/bus.csv" --link "$work/line" --save "$work/bus" --verbose
kill -USR1 "$sim"
rows() { tail -n +2 "$1" | cut -d, -f 3-6 | sort; }
expected() { tail -n +2 "$work/bus.csv" | awk -F, "$1"'{print $3 "," $4 "," $2 ","}' | sort; }
: >"$work/peer.log"
ctl 0 scan "$work/line"
cp "$work/out" "$work/found.csv"
[ "$(head -n 1 "$work/out")" = name,line,protocol,baud,address,setup ] || fail "the heading is $(head -n 1 "$work/out")"
[ "$(rows "$work/out")" = "$(expected '')" ] || { rows "$work/out"; fail "not all meters"; }
said "ascii at 9600 baud, " err
heard=$(awk '$2 ~ /^m/ { print $3 }' "$work/peer.log" | sed 's/^[*].G130$/G130/' | sort -u | tr '\n' ' ')
[ "$heard" = "0400030002 G130 |**| " ] || fail "meters heard $heard"
cp -r "$work/bus" "$work/before"
kill -USR1 "$sim"
sed -i s/19200n81/9600n81/ "$work/ser2net.yaml"
start_server
ctl 0 --json scan "$line" --protocol rtu --address 1-9
[ "$(python3 -c "import json,sys; print([(r['address'], r['baud']) for r in json.load(sys.stdin)])" <"$work/out")" = \
    "[(3, ''), (6, ''), (9, '')]" ] || { cat "$work/out"; fail "another table through the server"; }
ctl 0 scan "$line" 1 --baud 9600 --address 7
[ "$(tail -n +2 "$work/out")" = "meter-1-07,$line,ascii,9600,7,
meter-2-07,$(realpath "$work/line"),ascii,9600,7," ] || { cat "$work/out"; fail "another table of two lines"; }
ctl 1 scan
ctl 1 scan 1 --address 1-300
ctl 1 scan 1 --baud 9601
ctl 2 scan "$work/none"

# An interrupt keeps what was found.
stop_server -TERM
status=0
timeout --preserve-status -s INT 3 "$bin/counterctl" --dir "$home" scan "$work/line" --address 1,31 --wait 5000 \
    >"$work/out" 2>"$work/err" || status=$?
[ $status -eq 130 ] || fail "an interrupt ended it with $status"
said ",ascii,9600,1," out
said "interrupted; 1 found so far" err
stop_peer
diff -r "$work/before" "$work/bus" || fail "a scan wrote into a meter"
echo "All as it should be."

#!/usr/bin/env bash
# A meter behind a node over real sockets: Get, Put and hand work in every protocol, and the node's faults.
. "$(dirname "$0")/node_common.sh"

with() { sed "s/^\(.\{$(($1 - 1))\}\).\{${#2}\}/\1$2/"; }

# transfer PROTOCOL NAME: read, changed, written, proven.
transfer() {
    lay_down SerialProtocol="$1"
    start_node --verbose --protocol "$2" --set 61=012345 --save "$work/saved"
    ctl 0 get "$work/first.CT2" --json
    said '"LinkError": 0' out
    with 55 003039 <"$work/first.CT2" | with 61 002710 >"$work/new.CT2"
    ctl 0 put "$work/new.CT2" --verify
    stop_peer
    [ "$(cut -c 55-60 "$work/saved")" = 003039 ] || fail "the meter holds another setpoint"
}
custom_ascii() {
    transfer 0 ascii
    # Nothing brings the last part of the first block to a meter behind a node.
    hears '*1W911'
    ! grep -q W908 "$work/peer.log" || fail "W908 was sent"
    hears 'node: keep-alive'
}
modbus_rtu() {
    transfer 1 rtu
    hears 'node: on'
    hears 'node: off'
}
modbus_ascii() { transfer 2 modbus-ascii; }

hand_work() {
    lay_down
    start_node --verbose --signal constant --value 12345
    ctl 0 read item1
    said 012345. out
    ctl 0 get "$work/got.CT2"
    # Digits 73 to 108 are beyond a Put through the node and don't count; others do.
    with 73 001111 <"$work/got.CT2" >"$work/other.CT2"
    ctl 0 verify "$work/other.CT2"
    with 55 001111 <"$work/got.CT2" >"$work/other.CT2"
    ctl 4 verify "$work/other.CT2"
    ctl 0 reset peak --trace
    hears '*1C3'
    said '> 00 80 A3 01 02 03 5A 93 D1 C0 7E 42 04 ' err
    said '> 2A 31 43 33 0D 0A  *1C3..' err
    ctl 0 remote display -12.5
    hears '*1H-12.5'
    ctl 1 stream --count 1
}

no_call() {
    lay_down
    start_node --fault login:noreply
    ctl 3 get "$work/never.CT2" --json
    last_line "Ethernet connection interrupted. Restart program."
    said '"status": "Ethernet connection interrupted. Restart program."' out
    said '"text": "Ethernet connection interrupted. Restart program."' out
    [ ! -e "$work/never.CT2" ] || fail "a file without a meter"
}

# fault TEXT NUMBER: a Get that ends with this number, and a good login behind it.
fault() {
    start_node --protocol "$name" --fault "$1"
    ctl 3 get "$work/never.CT2"
    last_line "Failed to Get data, check connections, then try again.      ( $2)"
    ctl 0 reset meter
}
ascii_faults() {
    name=ascii
    lay_down
    fault 'XR1A#1:pieces=54,60' 1
    fault 'XR1A#1:noreply' 20
    fault 'XR1A#1:late=3500' 20
    fault 'XR1A#1:close=30' 1
    fault 'XR35#1:close=0' 4
    start_node --fault 'B1#1:close=0'
    ctl 3 read item1
    said "Re-Connect Node communications appears broken.  Restart program." err
    last_line "Communications failure.  Program may have to be re-started. (27)"
}
modbus_faults() {
    name=rtu
    lay_down SerialProtocol=1
    fault '08#1:wrongid' 27
    fault '08#1:pieces=7,60' 1
    fault '030001#1:badcheck' 20
}
slow_login() {
    lay_down
    start_node --verbose --fault login:late=5000 --fault G128#1:status
    ctl 0 get "$work/got.CT2"
}
two_calls() {
    lay_down
    start_node --fault login:twice
    ctl 0 reset peak
}

# A second tool on the same machine logs into the same node: the first one's connection is gone.
second_caller() {
    lay_down
    start_node --verbose
    "$bin/counterctl" --dir "$home" get "$work/never.CT2" 2>"$work/first.err" &
    local first=$! status=0
    sleep 4
    home=$work/other
    port=$((20000 + run * 12 + 11))
    lay_down
    ctl 0 reset peak
    wait $first || status=$?
    [ $status -eq 3 ] || fail "the first tool ended with $status"
    said "Node communications appears broken" first.err
}

for name in custom_ascii modbus_rtu modbus_ascii hand_work no_call ascii_faults modbus_faults slow_login two_calls \
    second_caller; do
    story $name
done
finish_stories

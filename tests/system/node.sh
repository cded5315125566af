#!/usr/bin/env bash
# A meter at a node over real sockets: Get, Put and hand work in every protocol, and the node's faults.
. "$(dirname "$0")/node_common.sh"

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
    # Nothing brings the last part of the first block to a meter at a node.
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

# What else a node and its meter can do wrong is in the table of faults, tests/unit/campaign.
broken() {
    lay_down
    start_node --fault 'XR1A#1:pieces=54,60' --fault 'XR35#1:close=0' --fault login#1:late=5000
    for number in 1 4; do
        ctl 3 get "$work/never.CT2"
        last_line "Failed to Get data, check connections, then try again.      ( $number)"
    done
    ctl 0 reset meter
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

for name in custom_ascii modbus_rtu modbus_ascii hand_work broken second_caller; do story $name; done
finish_stories

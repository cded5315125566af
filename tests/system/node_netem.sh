#!/usr/bin/env bash
# Tool and node in two network namespaces joined by a cable that delays and loses packets: a Get succeeds or fails with
# its number, and never hangs. A kernel without netem still gets the slow cable and the one that is pulled; a machine
# that makes no namespaces says so and ends well.
. "$(dirname "$0")/node_common.sh"

# join NUMBER: namespaces $tool and $node, joined.
join() {
    tool=counter-tool-$1-$$
    node=counter-node-$1-$$
    tool_end=t-$$-$1
    node_end=n-$$-$1
    ip netns add "$tool" && ip netns add "$node" &&
        ip link add name "$tool_end" netns "$tool" type veth peer name "$node_end" netns "$node" &&
        ip -n "$tool" addr add 10.63.179.1/24 dev "$tool_end" &&
        ip -n "$node" addr add 10.63.179.2/24 dev "$node_end" &&
        ip -n "$tool" link set "$tool_end" up && ip -n "$node" link set "$node_end" up
}
cut_apart() {
    ip netns del "$tool" 2>/dev/null || true
    ip netns del "$node" 2>/dev/null || true
}
# both RULE...: a queueing rule at both ends.
both() { tc -n "$tool" qdisc add dev "$tool_end" root "$@" && tc -n "$node" qdisc add dev "$node_end" root "$@"; }

if ! (trap cut_apart EXIT; join 90) 2>"$work/why"; then
    echo "No namespaces on this machine: $(tail -n 1 "$work/why")"
    exit 0
fi

pull() { ip -n "$node" link set "$node_end" down; }
plug() { ip -n "$node" link set "$node_end" up; }
once_pulled() { sleep 7 && pull; }
loose() { while sleep 1.4; do pull && sleep 0.8 && plug; done; }

# get_under STATUSES [WHILE]: a Get that ends with one of the statuses, while something is done to the cable.
get_under() {
    lay_down
    inside_node="ip netns exec $node"
    start_node --verbose
    timeout 150 ip netns exec "$tool" "$bin/counterctl" --dir "$home" get "$work/got.CT2" 2>"$work/err" &
    local get=$! hand= status=0
    [ -z "${2:-}" ] || { "$2" & hand=$!; }
    wait $get || status=$?
    [ -z "$hand" ] || kill "$hand" 2>/dev/null || true
    echo "status $status $(tail -n 1 "$work/err")"
    [[ " $1 " == *" $status "* ]] || fail "status $status, not one of $1"
    if [ "$status" -eq 0 ]; then
        [ "$(tr -d '\r\n' <"$work/got.CT2" | wc -c)" -eq 260 ] || fail "half a setup"
    else
        tail -n 1 "$work/err" | grep -qE '\( [0-9]+\)$|^Ethernet connection interrupted' || fail "no number"
        [ ! -e "$work/got.CT2" ] || fail "a file without a setup"
    fi
}

# A Put that nothing answers: what the node has not taken in is no success.
put_while_pulled() {
    lay_down
    inside_node="ip netns exec $node"
    start_node --verbose
    ctl 0 default "$work/new.CT2"
    once_pulled &
    local status=0
    timeout 60 ip netns exec "$tool" "$bin/counterctl" --dir "$home" put "$work/new.CT2" 2>"$work/err" || status=$?
    cat "$work/err"
    [ "$status" -eq 3 ] || fail "status $status, not 3"
    said "not put whole; sent so far: W91A" err
    last_line "Data transfer unsuccessful. Check connections and try again. (27)"
}

# under NUMBER: the story's cable, which goes with it.
under() {
    trap 'stop_peer; cut_apart' EXIT
    ip=10.63.179.2
    join "$1"
}
plain_cable() { under 0 && get_under 0; }
slow_cable() { under 1 && both tbf rate 4kbit burst 1600 latency 4s && get_under "0 3"; }
loose_cable() { under 2 && get_under "0 3" loose; }
pulled_cable() { under 3 && get_under 3 once_pulled; }
no_cable() { under 4 && pull && get_under 3; }
small_delay() { under 5 && both netem delay 20ms && get_under 0; }
long_delay() { under 6 && both netem delay 400ms 100ms && get_under "0 3"; }
light_loss() { under 7 && both netem loss 5% delay 30ms && get_under "0 3"; }
heavy_loss() { under 8 && both netem loss 30% delay 100ms && get_under "0 3"; }
nearly_deaf() { under 9 && both netem loss 70% && get_under "0 3"; }
pulled_put() { under 11 && put_while_pulled; }
deaf() { under 10 && both netem loss 100% && get_under 3; }

cables="plain_cable slow_cable loose_cable pulled_cable no_cable pulled_put"
if (trap cut_apart EXIT; join 91 && both netem loss 1%) 2>"$work/why"; then
    cables="$cables small_delay long_delay light_loss heavy_loss nearly_deaf deaf"
else
    echo "No netem in this kernel ($(tail -n 1 "$work/why")): cables only."
fi
for name in $cables; do story $name; done
finish_stories
(cd "$work" && grep . ./*.log)

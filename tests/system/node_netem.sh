#!/usr/bin/env bash
# Tool and node in two network namespaces, with packets lost and delayed between them: a Get succeeds or fails with
# its number, and never hangs. Says so and ends well where this machine makes no namespaces.
. "$(dirname "$0")/node_common.sh"

# join NAME: namespaces tool and node of this story, joined by a cable.
join() {
    tool=counter-tool-$1-$$
    node=counter-node-$1-$$
    ip netns add "$tool" && ip netns add "$node" || return 1
    ip link add name t-$$-"$2" netns "$tool" type veth peer name n-$$-"$2" netns "$node" || return 1
    ip -n "$tool" addr add 10.63.179.1/24 dev t-$$-"$2"
    ip -n "$node" addr add 10.63.179.2/24 dev n-$$-"$2"
    ip -n "$tool" link set t-$$-"$2" up
    ip -n "$node" link set n-$$-"$2" up
}
cut_apart() {
    ip netns del "$tool" 2>/dev/null || true
    ip netns del "$node" 2>/dev/null || true
}

if ! (trap cut_apart EXIT; join probe 9 && tc -n "$tool" qdisc add dev t-$$-9 root netem loss 1%) 2>"$work/why"; then
    echo "No namespaces with netem here: $(tail -n 1 "$work/why")"
    exit 0
fi

# weather NUMBER RULE: a Get with this weather in both directions.
weather() {
    trap 'stop_peer; cut_apart' EXIT
    ip=10.63.179.2
    join w "$1"
    # shellcheck disable=SC2086
    { tc -n "$tool" qdisc add dev t-$$-"$1" root netem $2; tc -n "$node" qdisc add dev n-$$-"$1" root netem $2; }
    lay_down
    inside_node="ip netns exec $node"
    start_node --verbose
    local status=0
    timeout 150 ip netns exec "$tool" "$bin/counterctl" --dir "$home" get "$work/got.CT2" 2>"$work/err" &
    local get=$!
    if [ -n "${3:-}" ]; then
        sleep 7
        ip -n "$node" link set n-$$-"$1" down
    fi
    wait $get || status=$?
    echo "$2: status $status, $(tail -n 1 "$work/err")"
    case $status in
        0) [ "$(tr -d '\r\n' <"$work/got.CT2" | wc -c)" -eq 260 ] || fail "half a setup" ;;
        3) tail -n 1 "$work/err" | grep -qE '\( [0-9]+\)$|^Ethernet connection interrupted' || fail "no number" ;;
        *) fail "status $status" ;;
    esac
}
clear_sky() { weather 0 "delay 20ms"; [ -e "$work/got.CT2" ] || fail "a delay alone did harm"; }
far_away() { weather 1 "delay 400ms 100ms"; }
light_loss() { weather 2 "loss 5% delay 30ms"; }
heavy_loss() { weather 3 "loss 30% delay 100ms"; }
nearly_deaf() { weather 4 "loss 70%"; }
deaf() { weather 5 "loss 100%"; [ ! -e "$work/got.CT2" ] || fail "a Get out of nothing"; }
cable_pulled() { weather 6 "delay 20ms" pulled; [ ! -e "$work/got.CT2" ] || fail "a Get out of nothing"; }

for name in clear_sky far_away light_loss heavy_loss nearly_deaf deaf cable_pulled; do story $name; done
finish_stories
cat "$work"/*.log

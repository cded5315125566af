#!/usr/bin/env bash
# Noise at the tool's ports during a Get: no crash, no growth, and where it is only noise, no harm.
. "$(dirname "$0")/node_common.sh"
script=$(dirname "$(realpath "$0")")/node_noise.py

# get_in KIND STATUS: leaves the peak memory in $work/peak.
get_in() {
    lay_down
    start_node "${@:3}"
    local status
    read -r status peak < <(python3 "$script" "$bin/counterctl" "$home" "$port" "$1")
    [ "$status" -eq "$2" ] || fail "$1: status $status, not $2"
    echo "$peak" >"$work/peak"
}
quiet() { get_in quiet 0; }
datagrams() { get_in datagrams 0; }
# Any caller is taken for the node: the Get fails then, at its first reply.
stranger() { get_in stranger 3 --fault login:late=20000; }

for name in quiet datagrams stranger; do story $name; done
finish_stories
for name in datagrams stranger; do
    grown=$(($(cat "$work/$name/peak") - $(cat "$work/quiet/peak")))
    [ $grown -lt 4000 ] || fail "$name: $grown KB more than in quiet"
done

# A program folder with a simulated meter on its port number 1. Sourced by the other scripts.

# wait_for FILE: until something stands in it, or the meter that writes it has ended.
wait_for() {
    for _ in $(seq 100); do
        [ ! -s "$1" ] || return 0
        kill -0 "$sim" 2>/dev/null || break
        read -rt 0.1 <> <(:) || true
    done
    [ -s "$1" ]
}

# lay_down_home BIN HOME: settings, the default setup, and the meter's own memory in meter.txt.
lay_down_home() {
    rm -f "$2"/*.CT2 "$2/meter.txt" "$2/meter.saved" "$2/sim.path"
    "$1/counterctl" --dir "$2" settings init --force
    "$1/counterctl" --dir "$2" default "$2/default.CT2"
    tr -d '\r\n' <"$2/default.CT2" >"$2/meter.txt"
}

# start_meter BIN HOME [OPTION...]: in the background until the script ends; its process is $sim. Where it ends at once
# the status is its own: 4 is --face without a display.
start_meter() {
    local bin=$1 home=$2 status=0
    shift 2
    "$bin/counter-sim" --image "$home/meter.txt" --save "$home/meter.saved" "$@" >"$home/sim.path" &
    sim=$!
    trap 'kill "$sim" 2>/dev/null || true; wait "$sim" 2>/dev/null || true' EXIT
    wait_for "$home/sim.path" || {  # the meter prints the path of its line once it is there
        kill "$sim" 2>/dev/null || true
        wait "$sim" || status=$?
        return $((status == 0 ? 1 : status))
    }
    "$bin/counterctl" --dir "$home" ports map 1 "$(head -n 1 "$home/sim.path")"
}

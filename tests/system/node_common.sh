# What the system tests with a node share. Stories run side by side, since they mostly wait: each has a folder, a
# node at an address of its own and a TCP port of its own, and so has each run of a test on this machine. Twelve stories
# at most. Sourced with BIN and FOLDER as arguments of the test.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# start_node ARGUMENT...: a simulated meter whose node is at $ip.
start_node() {
    stop_peer
    exec 3< <(echo "$BASHPID"; exec ${inside_node:-} "$bin/counter-sim" --node --node-ip "$ip" "$@" 2>>"$work/peer.log")
    read -r sim <&3
    read -r _ <&3 || { cat "$work/peer.log"; fail "the node did not start"; }
}

# lay_down KEY=VALUE...: settings that name this story's node.
lay_down() { ctl 0 settings init --force NodeAddress=0080A3010203 NodeIp="$ip" TcpPort="$port" "$@"; }

last_line() { [ "$(tail -n 1 "$work/err")" = "$1" ] || { cat "$work/err"; fail "last line is not '$1'"; }; }

run=$(($$ % 1000))
stories=()
pids=()
# story FUNCTION: begins it in the background.
story() {
    local name=$1 number=${#stories[@]}
    stories+=("$name")
    mkdir -p "$work/$name"
    (
        trap stop_peer EXIT
        work=$work/$name
        home=$work/home
        ip=127.$((60 + run / 100)).$((run % 100)).$((number + 1))
        port=$((20000 + run * 12 + number))
        $name
    ) >"$work/$name.log" 2>&1 &
    pids+=($!)
}

# Waits for all of them; the log of those that failed is shown.
finish_stories() {
    local failed=
    for number in "${!stories[@]}"; do
        wait "${pids[$number]}" && continue
        echo "--- ${stories[$number]}"
        cat "$work/${stories[$number]}.log"
        failed="$failed ${stories[$number]}"
    done
    [ -z "$failed" ] || fail "stories$failed"
    echo "All as it should be."
}

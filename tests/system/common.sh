# What the system tests share. Sourced with BIN and FOLDER as arguments of the test.
set -euo pipefail

bin=$(realpath "$1")
rm -rf "$2"
mkdir -p "$2"
work=$(realpath "$2")
home=$work/home
sim=

fail() { echo "FAILED: $*" >&2; exit 1; }

# ctl STATUS ARGUMENT...: runs counterctl and fails on another exit status. Output goes to $work/out and $work/err.
ctl() {
    local wanted=$1 status=0
    shift
    "$bin/counterctl" --dir "$home" "$@" >"$work/out" 2>"$work/err" || status=$?
    [ "$status" -eq "$wanted" ] || { cat "$work/out" "$work/err"; fail "counterctl $*: status $status, not $wanted"; }
}

stop_peer() {
    [ -n "$sim" ] && kill "$sim" 2>/dev/null || true
    sim=
    # Its end closes the pipe: then it has saved what it was told to.
    while read -r _ <&3; do :; done 2>/dev/null || true
}
trap stop_peer EXIT

# start_peer PROGRAM ARGUMENT...: starts a program that prints the path of its line first, and makes it port 1.
start_peer() {
    stop_peer
    exec 3< <(echo "$BASHPID"; exec "$@" 2>>"$work/peer.log")
    read -r sim <&3
    read -r device <&3 || fail "$1 did not start"
    ctl 0 ports map 1 "$device"
}
start_meter() { start_peer "$bin/counter-sim" "$@"; }

hears() { grep -qF -- "$1" "$work/peer.log" || { cat "$work/peer.log"; fail "the meter never heard '$1'"; }; }
# with POSITION DIGITS: standard input with the digits at a position, counted from 1, replaced.
with() { sed "s/^\(.\{$(($1 - 1))\}\).\{${#2}\}/\1$2/"; }

said() { grep -qF -- "$1" "$work/$2" || { cat "$work/$2"; fail "no '$1' on $2"; }; }

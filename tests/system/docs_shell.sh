# The shell of a page whose commands are run: put in front of its blocks. Output goes to files in $OUT, what is wrong to
# file descriptor 3. A command that fails ends it; only that two setups differ (4) is no failure. A simulated meter that a
# block starts is waited for after it: a reader types more slowly than it takes to come up.
trap 'trap - ERR; kill $(jobs -p) 2>/dev/null; wait' EXIT
trap 'status=$?; [ $status -eq 4 ] || { echo "block of line $line: status $status of: $BASH_COMMAND" >&3; exit 1; }' ERR
block() {
    line=$1
    exec >"$OUT/$1.out" 2>&1
}
# A process of its own for each pause would be what the page calls $!.
exec 4<> <(:)
pause() { read -rt 0.05 <&4 || true; }
there=" "
meters_are_there() {
    local pid link
    for pid in $(jobs -rp); do
        [[ $there != *" $pid "* ]] || continue
        there+="$pid "
        while [[ $(readlink /proc/$pid/exe) == */bash ]]; do pause; done
        link=$({ tr '\0' '\n' </proc/$pid/cmdline | sed -n '/^--link$/{n;p}'; } 2>/dev/null) || continue
        until [ -z "$link" ] || [ -c "$link" ] || ! kill -0 $pid 2>/dev/null; do pause; done
    done
    return 0
}

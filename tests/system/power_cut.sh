#!/usr/bin/env bash
# What a power cut leaves depends on an order: the new content on the disk, then its name, then the folder.
. "$(dirname "$0")/common.sh"

if ! strace -o "$work/calls" true 2>"$work/why"; then
    echo "No trace of system calls on this machine: $(tail -n 1 "$work/why")"
    exit 0
fi
ctl 0 settings init
# in_order FILE ARGUMENT...: the command writes FILE, and nothing else, in that order.
in_order() {
    local folder
    folder=$(dirname "$1")
    printf '%s\n' "fsync <$folder/.counter-unfinished-1>" "rename <$1>" "fsync <$folder>" >"$work/wanted"
    shift
    strace -y -o "$work/calls" -e trace=fsync,rename "$bin/counterctl" --dir "$home" "$@"
    sed -En 's/^fsync\([0-9]+(<.*>)\) += 0/fsync \1/p; s/^rename\(.*, "(.*)"\) += 0/rename <\1>/p' "$work/calls" |
        diff "$work/wanted" - || fail "$* writes in another order"
}
in_order "$work/x.CT2" default "$work/x.CT2"
in_order "$work/x.CT2" set "$work/x.CT2" "Setpoint 1=10"
in_order "$home/Settings.SSS" settings set BaudIndex=6
echo "All as it should be."

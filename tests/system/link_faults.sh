#!/usr/bin/env bash
# Lines and ports of the system that fail, and that the next Get works. What a meter can do wrong on a good line, frame
# by frame, is in the table of faults, tests/unit/campaign.
. "$(dirname "$0")/common.sh"

ctl 0 settings init --force

# The line itself goes away in the middle of a reply; the meter comes back on another one.
start_meter --link "$work/line" --fault 'XR35#1:gone=30'
ctl 0 ports map 1 "$work/line"
ctl 3 get "$work/never.CT2"
said "( 27)" err
ctl 0 get "$work/next.CT2"

# A wrong speed is as good as no meter.
stop_peer
ctl 0 settings init --force BaudIndex=3
start_meter
ctl 3 get "$work/never.CT2"
said "( 21)" err

# Ports and files that can't be used.
stop_peer
ctl 0 settings init --force
rm -f "$home/ports/com1"
ln -s /dev/pts/none "$home/ports/com1"
ctl 2 get "$work/never.CT2"
said "No such file or directory" err
ctl 0 settings set CommPortNumber=99
ctl 2 get "$work/never.CT2"
said "ports/com99" err
ctl 0 settings set CommPortNumber=1
start_meter
ctl 2 get "$work/none/never.CT2"
ctl 2 show "$home"
said "$home" err

# An interrupt ends a Get at its next wait.
ctl 0 settings init --force
status=0
timeout --preserve-status -s INT 1 "$bin/counterctl" --dir "$home" get "$work/never.CT2" 2>"$work/err" || status=$?
[ $status -eq 130 ] || fail "an interrupt ended it with $status"
[ ! -e "$work/never.CT2" ] || fail "an interrupted Get wrote a file"
echo "All as it should be."

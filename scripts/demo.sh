#!/usr/bin/env bash
# demo.sh BIN FOLDER [REASON]: the main job, in a terminal, on a simulated meter. FOLDER becomes the program folder;
# REASON says why it is no window.
set -euo pipefail
bin=$1
home=$2
mkdir -p "$home"

. "$(dirname "$0")/simulated.sh"
say() { printf '\n== %s\n' "$1"; }
ctl() {
    set -- "$bin/counterctl" --dir "$home" "$@"
    printf '$ %s\n' "$*"
    "$@"
}

say "${3:-There is no display}: the main job, in the terminal."

say "Lay down a program folder: $home"
lay_down_home "$bin" "$home"

say "Start a simulated meter"
start_meter "$bin" "$home"

say "Read the meter's setup"
ctl get "$home/first.CT2"

say "Show it as fields"
ctl show "$home/first.CT2"

say "Show it as the meter's own front-panel menu"
ctl show "$home/first.CT2" --as menu

say "Change a value in the Setup view, from a script: Setpoint 1 becomes 12345"
echo 'enter txtSetpt[1] +012345' >"$home/change.txt"
ctl edit "$home/first.CT2" --script "$home/change.txt" --out "$home/changed.CT2"
ctl diff "$home/first.CT2" "$home/changed.CT2" || [ $? -eq 4 ]

say "Write it into the meter, with a backup of what was there, then read it back and compare"
ctl put "$home/changed.CT2" --backup "$home/backup.CT2"
ctl verify "$home/changed.CT2"

say "Change the meter behind the tool's back: Setpoint 2 becomes 500"
kill -USR1 "$sim" && wait_for "$home/meter.saved"
sed 's/^\(.\{48\}\)....../\10001F4/' "$home/meter.saved" >"$home/meter.txt"
kill -HUP "$sim"

say "Read again, and see the difference"
ctl get "$home/second.CT2"
ctl diff "$home/changed.CT2" "$home/second.CT2" || [ $? -eq 4 ]
say "Done. The setup files are in $home, a backup of every read in $home/backups. Pictures of the windows: docs/pictures"

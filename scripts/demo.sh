#!/usr/bin/env bash
# demo.sh BIN FOLDER: the main job, in a terminal, on a simulated meter. FOLDER becomes the program folder.
set -euo pipefail
bin=$(realpath "$1")
mkdir -p "$2"
home=$(realpath "$2")

# wait_for FILE: until something stands in it.
wait_for() {
    for _ in $(seq 100); do [ -s "$1" ] && return; read -rt 0.1 <> <(:) || true; done
    echo "$1 did not come" >&2
    exit 1
}
say() { printf '\n== %s\n' "$1"; }
ctl() { printf '$ counterctl %s\n' "$*"; "$bin/counterctl" --dir "$home" "$@"; }

[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || say "There is no display: the main job, in the terminal."

say "Lay down a program folder: $home"
rm -f "$home"/*.CT2 "$home/meter.txt" "$home/meter.saved" "$home/sim.path"
ctl settings init --force
ctl default "$home/default.CT2"
tr -d '\r\n' <"$home/default.CT2" >"$home/meter.txt"

say "Start a simulated meter"
"$bin/counter-sim" --image "$home/meter.txt" --save "$home/meter.saved" >"$home/sim.path" &
sim=$!
trap 'kill "$sim" 2>/dev/null; wait "$sim" 2>/dev/null || true' EXIT
wait_for "$home/sim.path"  # the meter prints the path of its line once it is there
ctl ports map 1 "$(head -n 1 "$home/sim.path")"

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

say "Write it into the meter, with a backup of what was there, and read it back"
ctl put "$home/changed.CT2" --backup "$home/backup.CT2" --verify
ctl verify "$home/changed.CT2"

say "Change the meter behind the tool's back: Setpoint 2 becomes 500"
kill -USR1 "$sim" && wait_for "$home/meter.saved"
sed 's/^\(.\{48\}\)....../\10001F4/' "$home/meter.saved" >"$home/meter.txt"
kill -HUP "$sim"

say "Verify again, and see the difference"
ctl verify "$home/changed.CT2" || [ $? -eq 4 ]
ctl get "$home/second.CT2"
ctl diff "$home/changed.CT2" "$home/second.CT2" || [ $? -eq 4 ]
say "Done. The setup files are in $home, a backup of every read in $home/backups"

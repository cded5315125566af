#!/usr/bin/env bash
# demo.sh BIN FOLDER: the main job, in a terminal, on a simulated meter. FOLDER becomes the program folder.
set -euo pipefail
bin=$(realpath "$1")
mkdir -p "$2"
home=$(realpath "$2")

say() { printf '\n== %s\n' "$1"; }
ctl() { printf '$ counterctl %s\n' "$*"; "$bin/counterctl" --dir "$home" "$@"; }

[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || say "There is no display: the main job, in the terminal."

say "Lay down a program folder: $home"
rm -f "$home"/*.CT2 "$home/meter.txt" "$home/sim.path"
ctl settings init --force
ctl default "$home/default.CT2"
tr -d '\r\n' <"$home/default.CT2" >"$home/meter.txt"

say "Start a simulated meter"
"$bin/counter-sim" --image "$home/meter.txt" --link "$home/simulated-meter" >"$home/sim.path" &
sim=$!
trap 'kill "$sim" 2>/dev/null; wait "$sim" 2>/dev/null || true' EXIT
# The meter prints the path of its line once it is there.
for _ in $(seq 100); do [ -s "$home/sim.path" ] && break; read -rt 0.1 <> <(:) || true; done
ctl ports map 1 "$(head -n 1 "$home/sim.path")"

say "Read the meter's setup"
ctl get "$home/first.CT2"

say "Show it as fields"
ctl show "$home/first.CT2"

say "Change the meter behind the tool's back: Setpoint 1 becomes 12345, the baud rate stays"
sed -i 's/^\(.\{54\}\)....../\1003039/' "$home/meter.txt"
kill -HUP "$sim"

say "Read it again and show the difference"
ctl get "$home/second.CT2"
ctl diff "$home/first.CT2" "$home/second.CT2" || [ $? -eq 4 ]
say "Done. The setup files are in $home"

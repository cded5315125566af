#!/usr/bin/env bash
# desktop.sh BIN FOLDER: the desktop tool on a simulated meter. FOLDER becomes the program folder.
set -euo pipefail
bin=$(realpath "$1")
mkdir -p "$2"
home=$(realpath "$2")
. "$(dirname "$0")/simulated.sh"

lay_down_home "$bin" "$home"
status=0
start_meter "$bin" "$home" --signal sine --face || status=$?
if [ $status -eq 4 ]; then  # counter-sim could not show its face, so nothing else would show itself either
    exec "$(dirname "$0")/demo.sh" "$1" "$2" "The display can't be opened"
fi
[ $status -eq 0 ] || exit $status
echo "Counter Setup runs on a simulated meter; program folder: $home"
echo "Click Counter, then Get Setup, to read the meter."
"$bin/counter-setup" --dir "$home"

#!/usr/bin/env bash
# all.sh [BIN]: every figure that README quotes, from one run.
set -euo pipefail
bin=$(realpath "${1:-build/release/bin}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$bin/bench_core" --benchmark_min_time=0.3
"$bin/counterctl" default "$work/default.CT2"
echo "counterctl show (A) against an empty QCoreApplication program (B)"
"$bin/bench_process" 31 "$bin/counterctl" show "$work/default.CT2" -- "$bin/bench_empty_qt"
for _ in $(seq 500); do printf 'select cboMode Total\nselect cboMode Rate\n'; done >"$work/script"
echo "counterctl edit with 1,000 actions (A) against an empty QCoreApplication program (B)"
"$bin/bench_process" 31 "$bin/counterctl" --dir "$work/none" edit "$work/default.CT2" --script "$work/script" \
    --out "$work/edited.CT2" -- "$bin/bench_empty_qt"
"$bin/bench_transfer" "$bin" "$work/home"
"$(dirname "$0")/twenty_meters.sh" "$bin" "$work/meters"
"$(dirname "$0")/fleet.sh" "$bin" "$work/fleet"
command -v tio >/dev/null && "$(dirname "$0")/record.sh" "$bin" "$work/record"
"$bin/counterctl" --dir "$work/desk" settings init CommsEnabled=0
export QT_QPA_PLATFORM=offscreen
echo "counter-setup to its painted home view (A) against an empty QMainWindow program (B)"
"$bin/bench_process" 21 "$bin/bench_home_window" "$work/desk" -- "$bin/bench_empty_window"
"$bin/bench_desktop"
"$bin/bench_stream_window"

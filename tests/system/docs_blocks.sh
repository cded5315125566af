#!/usr/bin/env bash
# The commands of README and of every page of docs, as a reader would type them: the "sh" blocks of a page run in their
# order, in one shell and a clean folder, with the built programs on the path; where a "text" block follows, the output
# is what it shows. Pages run side by side, since a meter is mostly waited for.
. "$(dirname "$0")/common.sh"
root=$(cd "$(dirname "$0")/../.." && pwd)
tools=$root/tests/system
export PATH="$bin:$PATH"

# The shell of a page. A command that fails ends it; only that two setups differ (4) is no failure. A simulated meter
# that a block starts is waited for behind it: a reader types more slowly than it takes to come up.
cat >"$work/shell" <<'SHELL'
trap 'trap - ERR; kill $(jobs -p) 2>/dev/null; wait' EXIT
trap 'status=$?; [ $status -eq 4 ] || { echo "block of line $line: status $status of: $BASH_COMMAND" >&3; exit 1; }' ERR
block() {
    line=$1
    exec >"$OUT/$1.out" 2>&1
}
pause() { read -rt 0.05 <> <(:) || true; }
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
SHELL

# run_page NAME: in a folder of its own, with the program folder of a new user.
run_page() {
    local folder=$work/$1
    cd "$folder/desk"
    export HOME=$folder XDG_DATA_HOME=$folder/data OUT=$folder
    bash "$folder/page.sh" </dev/null 3>"$folder/failure" && return
    echo "$1: $(cat "$folder/failure")"
    tail -n 5 "$folder"/*.out
    return 1
}

pages=("$root"/README.md "$root"/docs/*.md)
python3 "$tools/docs_blocks.py" scripts "$work" "$$" "${pages[@]}"
pids=()
for page in "${pages[@]}"; do
    name=$(basename "$page" .md)
    run_page "$name" >"$work/$name.log" 2>&1 &
    pids+=($!)
done
failed=
for number in "${!pids[@]}"; do
    name=$(basename "${pages[$number]}" .md)
    wait "${pids[$number]}" || { failed="$failed $name"; cat "$work/$name.log"; }
done
[ -z "$failed" ] || fail "pages$failed"
python3 "$tools/docs_blocks.py" compare "$work" "${pages[@]}" || fail "a page shows something else than its commands say"
echo "All as it should be."

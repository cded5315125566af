#!/usr/bin/env bash
# The commands of README and of every page of docs, as a reader would type them: the "sh" blocks of a page run in their
# order, in one shell and a clean folder, with the built programs on the path; where a "text" block follows, the output
# is what it shows. Pages run side by side, since a meter is mostly waited for.
. "$(dirname "$0")/common.sh"
root=$(cd "$(dirname "$0")/../.." && pwd)
tools=$root/tests/system
export PATH="$bin:$PATH"

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

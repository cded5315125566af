#!/usr/bin/env bash
# What the docs say: the commands of their "sh" blocks run, and the files they name exist.
. "$(dirname "$0")/common.sh"
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root"

# Files named between backquotes, with a slash or a known ending, in the pages about the project's inside.
for page in CONTRIBUTING.md ARCHITECTURE.md README.md; do
    grep -oE '`[A-Za-z0-9_./-]+`' "$page" | tr -d '`' | sort -u | while read -r name; do
        case $name in
            build/*|ports/*|backups/*|bin/*|/*) continue ;;
            */*|*.md|*.txt|*.cmake|*.json|*.sh) [ -e "$name" ] || fail "$page names $name, which is not there" ;;
        esac
    done
done

# The blocks of each page marked "sh counterctl" are one session, in a folder of its own, with simulated meters.
export PATH="$bin:$PATH"
session() {
    local page=$1
    folder=$work/$(basename "$page" .md)
    mkdir -p "$folder"
    cd "$folder"
    echo 'trap '"'"'kill $(jobs -p) 2>/dev/null || true'"'"' EXIT' >session.sh
    awk '/^```sh counterctl/ {on = 1; next} /^```/ {on = 0} on' "$root/$page" >>session.sh
    [ "$(wc -l <session.sh)" -gt 1 ] || return 0
    bash -eu session.sh >session.out 2>&1 || { cat session.out; fail "the session of $page"; }
    echo "$page"
}
# Side by side, since they mostly wait.
pids=()
for page in "$root"/README.md "$root"/docs/*.md; do
    (session "${page#"$root"/}") & pids+=($!)
done
for pid in "${pids[@]}"; do wait "$pid" || fail "a page's session"; done
grep -q counterctl "$work/README/session.sh" || fail "README has no session"
echo "All as it should be."

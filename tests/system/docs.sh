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

# A first session, as README tells it: the lines of its blocks marked "sh counterctl", with the simulated meter.
export PATH="$bin:$PATH"
cd "$work"
echo 'trap '"'"'kill $(jobs -p) 2>/dev/null || true'"'"' EXIT' >session.sh
awk '/^```sh counterctl/ {on = 1; next} /^```/ {on = 0} on' "$root/README.md" >>session.sh
[ "$(wc -l <session.sh)" -gt 1 ] || fail "README has no session"
bash -eu session.sh >session.out 2>&1 || { cat session.out; fail "README's first session"; }
echo "All as it should be."

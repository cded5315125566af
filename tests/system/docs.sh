#!/usr/bin/env bash
# The files that the docs name exist, and so do the targets of their links.
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

echo "All as it should be."

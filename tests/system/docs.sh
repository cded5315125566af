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

# Links lead to what is there, and within what the package lays down: the pages of the root, and docs.
for page in README.md CONTRIBUTING.md ARCHITECTURE.md CHANGELOG.md docs/*.md; do
    { grep -oE '\]\([^)#]+' "$page" || true; } | sed -n '/:\/\//!s/^](//p' | sort -u | while read -r name; do
        target=$(realpath --relative-to=. "$(dirname "$page")/$name")
        case $target in docs/*|README.md|CONTRIBUTING.md|ARCHITECTURE.md|CHANGELOG.md) ;; *) fail "$page links $name, which is not installed" ;; esac
        [ -e "$target" ] || fail "$page links $name, which is not there"
    done
done

echo "All as it should be."

#!/usr/bin/env bash
# The texts that users read are spelled right: help, batch reference, drawings, pages and manual pages, against
# American English and the words of the field in data/words.txt, one a line, those of the meter's display included.
# What has a digit in it is no word. Needs hunspell and hunspell-en-us.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root"
command -v hunspell >/dev/null || { echo "FAILED: install hunspell and hunspell-en-us" >&2; exit 1; }

# Help sources mark emphasis with "*" and begin comments with "#". Of a drawing only what is in <text>; of a page no
# commands, names in backquotes or targets of links; of a manual page only its running text.
shown() {
    case $1 in
        *.svg) sed -n 's:.*<text[^>]*>\(.*\)</text>.*:\1:p' "$1" ;;
        *.md) sed -e '/^ *```/,/^ *```/d' -e '/^    [^ ]/d' -e 's/`[^`]*`/ /g' -e 's/[A-Za-z_-]*\.md/ /g' -e 's/](\([^)]*\))/] /g' -e 's/[*_]/ /g' "$1" ;;
        *.[1-9]) sed -e '/^\.EX/,/^\.EE/d' -e '/^\./d' -e 's/\\f[A-Z]/ /g' -e 's/\\-/-/g' "$1" ;;
        *) sed -e '/^#/d' -e 's/[*]/ /g' "$1" ;;
    esac
}

status=0
for file in data/help/*.txt data/batch/*.txt data/boards/*.svg data/man/* *.md docs/*.md; do
    wrong=$(shown "$file" | LC_ALL=C.UTF-8 hunspell -d en_US -p "$PWD/data/words.txt" -l | grep -v '[0-9]' | sort -u | tr '\n' ' ' || true)
    [ -z "$wrong" ] || { echo "FAILED: $file: $wrong" >&2; status=1; }
done
exit $status

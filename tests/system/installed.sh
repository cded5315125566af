#!/usr/bin/env bash
# What an installation holds: programs that find their data from where they are, entries a desktop takes, a
# manual page for each program, one version everywhere, words that the shell completes.
. "$(dirname "$0")/common.sh"
root=$(cd "$(dirname "$0")/../.." && pwd)
prefix=$work/prefix
cmake --install "$bin/.." --prefix "$prefix" >"$work/install.log"
share=$prefix/share

# The desktop tool looks for these folders beside its own.
for name in help/Help11.R10 help/Help31.S10 help/rate_batch.txt boards/frmJRS485H.svg; do
    [ -s "$prefix/bin/../share/counter-setup/$name" ] || fail "$name is not where the programs look"
done
for program in "$prefix"/bin/*; do
    page=$share/man/man1/$(basename "$program").1.gz
    gzip -dc "$page" | grep -q "^.SH NAME" || fail "no manual page for $program"
    gzip -dc "$page" | grep -qE '@[A-Za-z_]+@' && fail "$page has an unfilled @name@"
done

desktop-file-validate "$share"/applications/*.desktop
appstreamcli validate --no-net "$share"/metainfo/*.xml >"$work/appstream" || { cat "$work/appstream"; fail "metainfo"; }
for kind in DEB RPM; do
    (cd "$work" && cpack -G $kind --config "$bin/../CPackConfig.cmake" -B "$work/$kind" -D CPACK_OUTPUT_FILE_PREFIX="$work/$kind" >"$kind.log" 2>&1) || fail "no package, see $work/$kind.log"
    mkdir "$work/$kind/system"
done
dpkg-deb -x "$work"/DEB/*.deb "$work/DEB/system"
(cd "$work/RPM/system" && rpm2cpio ../*.rpm | cpio -idm --quiet)
for kind in DEB RPM; do
    appstreamcli validate-tree --no-net "$work/$kind/system" >"$work/appstream" || { cat "$work/appstream"; fail "metainfo of the $kind"; }
done
diff <(cd "$work/DEB/system" && find . -type f | sort) <(cd "$work/RPM/system" && find . -type f | grep -v build-id | sort) || fail "the packages differ"

for entry in "$share"/applications/*.desktop; do
    for program in $(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$entry"); do
        [ -x "$prefix/bin/$program" ] || fail "$entry starts $program, which is not installed"
    done
    [ -s "$share/icons/hicolor/scalable/apps/$(sed -n 's/^Icon=//p' "$entry").svg" ] || fail "no icon for $entry"
done

# A file manager knows setup files by their name, whatever its letters, and which program opens them.
type=$(sed -n 's/^MimeType=\(.*\);$/\1/p' "$share/applications/counter-setup.desktop")
update-mime-database "$share/mime"
for glob in $(sed -n "s|^$type:||p" "$share/mime/globs"); do
    [ "$glob" = "*.ct2" ] || [ "$glob" = "*.CT2" ] || fail "$type is $glob"
    known=yes
done
[ "${known:-}" ] || fail "no file is a setup file"

version=$("$prefix/bin/counterctl" --version | cut -d' ' -f2)
gzip -dc "$share/man/man1/counterctl.1.gz" | grep -qF "Counter Setup $version\"" || fail "manual page: not $version"
grep -qF "<release version=\"$version\"" "$share"/metainfo/*.xml || fail "metainfo: not $version"
gzip -dc "$share/doc/counter-setup/changelog.Debian.gz" | head -n 1 | grep -qF "($version-" || fail "changelog: not $version"
grep -vE '^(#|$)' "$share"/doc/counter-setup/examples/*.rules && fail "the rule must not act as it is shipped"

# completes "LINE" WORD...: what is at the end of the line is completed by those words.
export PATH="$prefix/bin:$PATH"
. /usr/share/bash-completion/bash_completion
. "$share/bash-completion/completions/counterctl"
compopt() { :; }
completes() {
    read -ra COMP_WORDS <<<"$1"
    case $1 in *" ") COMP_WORDS+=("") ;; esac
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) COMP_LINE=$1 COMP_POINT=${#1}
    _counterctl || true
    [ "${COMPREPLY[*]}" = "${*:2}" ] || fail "'$1' is completed by '${COMPREPLY[*]}'"
}
mkdir "$work/desk"
cd "$work/desk"
touch a.CT2 b.PRM
set +eu  # as in the shell of a user
completes "counterctl se"                         settings set
completes "counterctl --dir x settings set Baud"  BaudIndex=
completes "counterctl settings init --f"          --force
completes "counterctl read p"                     peak
completes "counterctl sheet a.CT2 --p"            --pdf
completes "counterctl calibrate 1000 --f"         --force
completes "counterctl show a"                     a.CT2
completes "counterctl show a.CT2 --as "           fields menu setup
completes "counterctl curve "                     b.PRM
completes "counterctl put a.CT2 --b"              --backup
set -eu
ctl 0 settings init
ctl 0 settings --json
for key in $_counterctl_settings_keys; do
    grep -qF "\"${key%=}\"" "$work/out" || fail "the shell completes $key, which is no key"
done
echo "All as it should be."

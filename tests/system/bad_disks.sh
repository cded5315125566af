#!/usr/bin/env bash
# Disks and folders that take no file: the status, the path with the system's reason, the old files whole, nothing
# left over; and that it works again with room.

# Mounts of its own end with the test, however it ends.
for private in "unshare --mount" "unshare --map-root-user --mount"; do
    [ -z "${OWN_MOUNTS:-}" ] && $private true 2>/dev/null && OWN_MOUNTS=1 exec $private "$0" "$@"
done
. "$(dirname "$0")/common.sh"

disk=$work/disk
mkdir "$disk"
mounted=
if mount -t tmpfs -o size=200k tmpfs "$disk" 2>"$work/err"; then mounted=1; fi
home=$disk/home
printf 'enter txtSetpt[1] +012345\n' >"$work/script"

# lay_down FOLDER: the files that an action would replace.
lay_down() {
    ctl 0 settings init --force
    ctl 0 default "$1/old.CT2"
    cp "$1/old.CT2" "$work/d.CT2"
    echo "time,item1" >"$1/old.csv"
}
# What is on the disk, links and names included. The room that fills it does not count, nor what SQLite keeps beside
# its file until it is opened with room.
state() { (cd "$disk" && find . ! -name filler ! -name 'r.db-*' ! -type d | sort | while read -r f; do [ -L "$f" ] && readlink "$f" || md5sum "$f"; done); }

# refused WHAT REASON ARGUMENT...: status 2, the path and the reason, and the disk as it was.
refused() {
    local what=$1 reason=$2 before
    shift 2
    before=$(state)
    ctl 2 "$@"
    said "$what: $reason" err
    [ "$(state)" = "$before" ] || fail "$* changed the disk: $(diff <(echo "$before") <(state))"
}

# no_files FOLDER REASON: every action on files there, without a meter.
no_files() {
    local to=$1/old.CT2
    refused "$to" "$2" default "$to"
    refused "$to" "$2" set "$work/d.CT2" "Setpoint 1=10" --out "$to"
    refused "$to" "$2" edit "$work/d.CT2" --script "$work/script" --out "$to"
    [ ! -r "$to" ] || refused "$to" "$2" set "$to" "Setpoint 1=10"
    [ ! -r "$to" ] || refused "$to" "$2" edit "$to" --script "$work/script"
}
no_settings() {
    refused "$home/Settings.SSS" "$1" settings set BaudIndex=6
    refused "$home/Settings.SSS" "$1" settings init --force BaudIndex=6
}
# no_meter_files REASON: those that ask the meter as well. A Get whose backup fails says so and is no failure.
no_meter_files() {
    refused "$disk/old.CT2" "$1" get "$disk/old.CT2"
    said "no backup: $home/backups" err
    refused "$disk/old.CT2" "$1" put "$work/d.CT2" --backup "$disk/old.CT2"
    refused "$disk/old.csv" "$1" stream --count 3 --csv "$disk/old.csv"
}

# A recording goes on over a full disk, and what came meanwhile is in the store once there is room.
no_room_for_a_while() {
    "$bin/counterctl" --dir "$home" record --seconds 6 --db "$disk/r.db" >"$work/out" 2>"$work/err" &
    until grep -q "run 2 into" "$work/err"; do sleep 0.1; done
    dd if=/dev/zero of="$disk/filler" bs=4k 2>/dev/null || true
    until grep -q "No space left on device; the readings wait in memory" "$work/err"; do sleep 0.1; done
    rm "$disk/filler"
    wait $! || fail "a disk that was full for a while ends a recording"
    said "written again" err
    ! grep -q "lost" "$work/err" || fail "readings were lost"
    [ "$("$bin/counterctl" readings 2 --db "$disk/r.db" | wc -l)" -gt 80 ] || fail "few readings in $(cat "$work/out")"
}

lay_down "$disk"
start_meter
ctl 0 get "$disk/old.CT2"
ctl 0 record --count 1 --db "$disk/r.db"

if [ -n "$mounted" ]; then
    dd if=/dev/zero of="$disk/filler" bs=4k 2>/dev/null || true
    no_files "$disk" "No space left on device"
    no_settings "No space left on device"
    no_meter_files "No space left on device"
    refused "$disk/r.db" "No space left on device" record --count 3 --db "$disk/r.db"
    rm "$disk/filler"
    no_room_for_a_while
    ctl 0 get "$disk/old.CT2"
    ctl 0 set "$disk/old.CT2" "Setpoint 1=10"
    ctl 0 settings set BaudIndex=5
    mount -o remount,ro "$disk"
    no_files "$disk" "Read-only file system"
    no_settings "Read-only file system"
    no_meter_files "Read-only file system"
    refused "$home/ports/com1" "Read-only file system" ports map 1 /dev/null
    mount -o remount,rw "$disk"
    ctl 0 default "$disk/old.CT2"
else
    echo "No disk of its own: $(cat "$work/err")"
fi

mkdir "$disk/gone" && rm -r "$disk/gone"
no_files "$disk/gone" "No such file or directory"
no_files "$disk/old.csv" "Not a directory"
mkdir "$disk/folder.CT2"
refused "$disk/folder.CT2" "Is a directory" default "$disk/folder.CT2"
mv "$home/Settings.SSS" "$work/kept"
mv "$home/ports" "$work/ports"
touch "$home/ports"
refused "$home/ports" "Not a directory" ports map 1 /dev/null
home=$disk/gone
refused "$home/Settings.SSS" "No such file or directory" settings set BaudIndex=6
home=$disk/home

# Root without its right to write everywhere is as good as any user.
if [ "$(id -u)" -eq 0 ]; then
    mkdir "$work/bin"
    printf '#!/bin/sh\nexec setpriv --bounding-set=-dac_override --inh-caps=-dac_override "%s" "$@"\n' "$bin/counterctl" \
        >"$work/bin/counterctl"
    chmod +x "$work/bin/counterctl"
    bin=$work/bin
fi
chmod 555 "$disk"
no_files "$disk" "Permission denied"
chmod 755 "$disk"
chmod 444 "$disk/old.CT2"
no_files "$disk" "Permission denied"
echo "All as it should be."

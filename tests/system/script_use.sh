#!/usr/bin/env bash
# counterctl in scripts: pipes that close, disks that are full, streams that are missing, many at once; and colours
# at a terminal.
. "$(dirname "$0")/common.sh"
exe=$bin/counterctl
ctl 0 settings init --force
ctl 0 default "$work/d"

# refused STATUS LINE COMMAND...: a command whose streams the caller has redirected; the last line on standard error.
refused() {
    local wanted=$1 line=$2 status=0
    shift 2
    bash -c "$*" 2>"$work/err" || status=$?
    [ "$status" -eq "$wanted" ] || fail "$*: status $status, not $wanted"
    [ "$(tail -n 1 "$work/err")" = "$line" ] || { cat "$work/err"; fail "$*: not '$line'"; }
}
full="counterctl: standard output: No space left on device"
gone="counterctl: standard output: Bad file descriptor"
refused 2 "$full" "$exe show $work/d >/dev/full"
refused 2 "$full" "$exe show $work/d --as setup --json >/dev/full"
refused 2 "$full" "$exe --help >/dev/full"
refused 2 "$full" "$exe default - >/dev/full"
refused 2 "$gone" "$exe show $work/d >&-"
refused 2 "counterctl: standard input: is empty" "$exe show - <&-"
# A reader that has gone ends it quietly, as it does any tool.
python3 - "$exe" "$work/d" <<'PYTHON' || fail "a closed pipe"
import os, subprocess, sys
reader, writer = os.pipe()
os.close(reader)
run = subprocess.run([sys.argv[1], "show", sys.argv[2]], stdout=writer, stderr=subprocess.PIPE)
sys.exit(0 if (run.returncode, run.stderr) == (-13, b"") else str(run))
PYTHON

# A setup goes through a pipe and back into the meter. Where standard output is closed, no text takes its way into
# the file or the port that is opened instead.
start_meter --save "$work/saved"
"$exe" --dir "$home" get - 2>/dev/null | "$exe" --dir "$home" set - "Setpoint 1"=12345 "Baud Rate"=9600 2>/dev/null |
    "$exe" --dir "$home" put - --verify >"$work/out"
said "No field differs." out
refused 2 "$gone" "$exe --dir $home get $work/closed >&-"
cmp <(tr -d '\r\n' <"$work/closed") <("$exe" --dir "$home" get - 2>/dev/null | tr -d '\r\n') || fail "text in a setup"
stop_peer
[ "$(cut -c 55-60 "$work/saved")" = 003039 ] || fail "the meter holds another setpoint"

# Twenty at once on one port: one has it, the others say so, and what is written is whole.
get_one() {
    "$exe" --dir "$home" get "$work/many$1" >/dev/null 2>"$work/err$1" && echo good && return
    grep -q "Device or resource busy" "$work/err$1" || cat "$work/err$1"
    [ ! -e "$work/many$1" ] || echo "a file of a get that failed"
}
start_meter
for i in {1..20}; do get_one "$i" & done | sort -u >"$work/ends"
[ "$(cat "$work/ends")" = good ] || fail "nobody got the port, or $(cat "$work/ends")"
for got in "$work"/many*; do [ "$(wc -c <"$got")" = 262 ] || fail "a setup that is not whole"; done

# Two programs that change the settings at once, again and again: neither loses what it changed.
changes=
for i in {1..20}; do
    ctl 0 settings init --force
    for change in "BaudIndex=6" "ModbusAddress=$i" "TcpPort=$((4000 + i))" "MeterAddressValue=$i"; do
        "$exe" --dir "$home" settings set "$change" &
        changes+=" $!"
    done
    for one in $changes; do wait "$one" || fail "settings set"; done
    changes=
    ctl 0 settings
    for value in "BaudIndex *6" "ModbusAddress *$i" "TcpPort *$((4000 + i))" "MeterAddressValue *$i"; do
        grep -qx "$value" "$work/out" || { cat "$work/out"; fail "$value is lost"; }
    done
done

# Nobody at the other end of a pipe, or one who does not read: told, and an interrupt, a hang-up or a quit ends it.
start_meter
ctl 0 settings init --force
mkfifo "$work/pipe"
waits() {
    local signal=$1 text=$2 pid status=0
    shift 2
    "$@" 2>"$work/err" &
    pid=$!
    for i in {1..100}; do grep -qF "$text" "$work/err" && break; sleep 0.1; done
    said "$text" err
    kill "-$signal" "$pid"
    wait "$pid" || status=$?
    [ "$status" -eq 130 ] || { cat "$work/err"; fail "$*: status $status after $signal"; }
}
waits INT "waiting for a reader of $work/pipe" "$exe" --dir "$home" get "$work/pipe"
exec 5<>"$work/pipe"
head -c 65536 /dev/zero >&5 # full
full_pipe() { exec "$exe" --dir "$home" get - >&5; }
waits QUIT "waiting for a reader of standard output" full_pipe
waits HUP "waiting for a reader of standard output" full_pipe
exec 5>&-

# A sheet needs no display, and whoever asks for none of it pays for no letters and paper.
ctl 0 default "$work/a.CT2"
ctl 0 set "$work/a.CT2" "Setpoint 1=12345" --out "$work/b.CT2"
ctl 0 sheet "$work/b.CT2" "$work/a.CT2" --html "$work/b.html"
grep -qF "<td>Setpoint 1</td><td>+010000.</td><td>+012345.</td>" "$work/b.html" || fail "no change in the sheet"
(unset DISPLAY WAYLAND_DISPLAY; ctl 0 sheet - "$work/a.CT2" --pdf "$work/b.pdf" <"$work/b.CT2")
[ "$(head -c 5 "$work/b.pdf")" = %PDF- ] && [ "$(grep -ac '^/Type /Page$' "$work/b.pdf")" -ge 2 ] || fail "no PDF"
ctl 2 sheet "$work/a.CT2" --pdf "$work/absent/b.pdf"
ldd "$exe" | grep -E "Qt6(Gui|Widgets)" && fail "counterctl loads what only windows need"

# Colours are for terminals, and not for those who mind.
at_terminal() { script -qec "$1" /dev/null </dev/null | tr -d '\r' | head -n 1; }
[[ "$(TERM=xterm at_terminal "$exe frob")" == $'\e[31mcounterctl:\e[0m no command'* ]] || fail "no colour at a terminal"
[[ "$(TERM=xterm NO_COLOR=1 at_terminal "$exe frob")" == "counterctl: no command"* ]] || fail "NO_COLOR"
[[ "$(TERM=dumb at_terminal "$exe frob")" == "counterctl: no command"* ]] || fail "a dumb terminal"
echo "All as it should be."

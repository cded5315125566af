#!/usr/bin/env bash
# Hand work on a simulated meter over a pseudo terminal: readings, resets, values, a curve and a calibration.
. "$(dirname "$0")/common.sh"

answers() { [ "$(cat "$work/out")" = "$1" ] || { cat "$work/out"; fail "not '$1'"; }; }

ctl 0 settings init --force
start_meter --verbose --signal constant --value 12345 --fault 'B2:noreply'
ctl 0 read item1
answers 012345.
ctl 3 read item2
[ "$(tail -n 1 "$work/err")" = "Communications failure.  Program may have to be re-started. (21)" ] ||
    fail "last line is $(tail -n 1 "$work/err")"
ctl 0 reset valley
hears "*1C9"
ctl 0 remote c "|*1H7"
hears "|*1H7"

# A terminal that is closed leaves no meter streaming.
status=0
timeout --preserve-status -s HUP 5 "$bin/counterctl" --dir "$home" stream >"$work/out" || status=$?
[ $status -eq 0 ] || fail "a hang-up ends the stream with $status"
[ "$(grep -o '\*1A[01]' "$work/peer.log" | tail -n 1)" = "*1A1" ] || fail "the meter streams on"

ctl 0 settings set SerialProtocol=1
start_meter --verbose --protocol rtu --signal constant --value 12345
ctl 0 read item1
answers 12345
ctl 0 reset peak
hears 050004FF00
ctl 0 remote display 12.34
hears 100069000204000004D2

# A curve is read back as it was sent, from a file of any name.
ctl 0 settings set SerialProtocol=0
start_meter
{ printf 'A%.0s' {1..84}; echo; printf '5%.0s' {1..84}; echo; } >"$work/any name.txt"
ctl 0 curve "$work/any name.txt" --board 2
said " DATA PROPERLY RECEIVED AND STORED IN METER." out
tr A a <"$work/any name.txt" >"$work/lower.prm"
ctl 2 curve "$work/lower.prm"
ctl 2 curve "$work"

# A time base 1234 ppm too fast: the factor is stored, and scale and exponent are what they were. An interrupt in
# the middle leaves the meter as it was.
for seconds in 60 8; do
    start_meter --set 199=01 --set 37=000000018864 --frequency 1000 --timebase-ppm 1234 --save "$work/saved"
    ctl 0 get "$work/before"
    status=0
    timeout --preserve-status -s INT $seconds "$bin/counterctl" --dir "$home" calibrate 1000 >"$work/out" || status=$?
    [ $status -eq $((seconds == 8 ? 130 : 0)) ] || fail "calibrate ended with $status"
    factor=84D2
    if [ $seconds = 8 ]; then
        factor=$(cut -c 137-140 "$work/before")
    else
        said "Setting the new calibration factor to -1234 PPM" out
    fi
    stop_peer
    with 137 $factor <"$work/before" | tr -d '\r\n' | cmp - <(tr -d '\r\n' <"$work/saved") ||
        fail "the meter has more than another factor"
done
echo "All as it should be."

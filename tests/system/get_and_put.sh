#!/usr/bin/env bash
# A setup read, changed, written, proven and compared, in all three protocols, over a pseudo terminal.
. "$(dirname "$0")/common.sh"

image=0027100000000000000000000000000186A00000000186A0004E20002710002710002710000000000000002710002710000000000000000100000000000000000000000080640002271023112E050101040055070500012C000A000004012150490900000000000000000000000000000000000053030D0008000D00002710000000

protocol=0
for name in ascii rtu modbus-ascii; do
    ctl 0 settings init --force SerialProtocol=$protocol
    start_meter --protocol $name --set 55=002710 --save "$work/saved"
    ctl 0 get "$work/first.CT2" --json
    said '"LinkError": 0' out
    said '"FirmwareVersion": 83' out

    # 12345 as Setpoint 1, 19200 baud, -1.00000 as Scale 1.
    with 55 003039 <"$work/first.CT2" | with 191 60 | with 43 8186A0 >"$work/new.CT2"
    [ $name != ascii ] || ctl 4 verify "$work/new.CT2"
    ctl 0 put "$work/new.CT2" --backup "$work/backup.CT2" --verify
    said "Putting data to the Counter.  Data appears to have Transferred O.K." out
    cmp "$work/first.CT2" "$work/backup.CT2" || fail "the backup is not what was there"
    ctl 0 settings
    said "BaudIndex          6" out

    # The meter's own memory, told by the meter and not by the tool.
    stop_peer
    [ "$(cut -c 55-60 "$work/saved")" = 003039 ] || fail "the meter holds another setpoint over $name"
    [ "$(cut -c 191-192 "$work/saved")" = 60 ] || fail "the meter holds another baud rate over $name"
    [ "$(cut -c 43-48 "$work/saved")" = 8186A0 ] || fail "the meter holds another scale over $name"
    protocol=$((protocol + 1))
done
[ "$(ls "$home/backups" | wc -l)" -ge 9 ] || fail "a good Get leaves a backup"
[ -s "$home/DataFil2" ] || fail "a Get over Modbus leaves its service file"

# The image as a whole, digit by digit.
ctl 0 settings init --force
start_meter
ctl 0 get "$work/default.CT2" --trace
[ "$(tr -d '\r\n' <"$work/default.CT2")" = $image ] || fail "another image than the meter's"
said '> 2A 31 58 52 31 41 5A 0D 0A  *1XR1AZ..' err
ctl 0 default "$work/own.CT2"
ctl 0 diff "$work/default.CT2" "$work/own.CT2"

# The meter warns about data for another board, and takes it.
start_meter --set 199=C0
ctl 0 put "$work/default.CT2" --json
said '"text": "You cannot write Dual Signal Conditioner data\rto a Quadrature Meter."' out
echo "All as it should be."

"""Reads and writes the simulated meter's registers over Modbus ASCII, with pymodbus as the master."""
import sys

from pymodbus.client import ModbusSerialClient
from pymodbus.transaction import ModbusAsciiFramer

client = ModbusSerialClient(sys.argv[1], framer=ModbusAsciiFramer, baudrate=9600, bytesize=7, parity="N", stopbits=2,
                            timeout=3)
assert client.connect()


def registers(first, count):
    reply = client.read_holding_registers(first, count, slave=1)
    assert not reply.isError(), reply
    return reply.registers


assert registers(0x0001, 4) == [0x0000, 0x2710, 0x0000, 0x4E20]
assert registers(0x0064, 3) == [0x0002, 0x0003, 0x0053]
assert not client.write_registers(0x0001, [0xFFFF, 0xD8F0], slave=1).isError()
assert registers(0x0001, 2) == [0xFFFF, 0xD8F0]
error = client.read_holding_registers(0x0200, 1, slave=1)
assert error.isError() and error.exception_code == 2, error
client.close()

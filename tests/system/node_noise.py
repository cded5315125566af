"""node_noise.py COUNTERCTL HOME TCP_PORT KIND: a Get while strangers send noise; prints its status and peak memory.

KIND is quiet; datagrams (10,000 at the UDP port, and callers at the TCP port once the node has it); or stranger (a
caller that comes before the node and sends noise until the Get ends).
"""
import random
import resource
import socket
import subprocess
import sys
import time

counterctl, home, port, kind = sys.argv[1], sys.argv[2], int(sys.argv[3]), sys.argv[4]
random.seed(1)
noise = random.randbytes(60_000)


def piece(most):
    start = random.randrange(len(noise) - most)
    return noise[start : start + random.randrange(most)]


def call():
    caller = socket.socket(socket.AF_INET, socket.SOCK_STREAM)
    caller.settimeout(1)
    try:
        caller.connect(("127.0.0.1", port))
        return caller
    except OSError:
        caller.close()
        return None


get = subprocess.Popen([counterctl, "--dir", home, "get", home + "/got.CT2"], stderr=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL)
if kind == "datagrams":
    time.sleep(2)
    sender = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    for number in range(10_000):
        sender.sendto(piece(1400), ("127.0.0.1", 63179))
        if number % 20 == 0:
            time.sleep(0.01)
            if caller := call():
                caller.close()
if kind == "stranger":
    caller = None
    while get.poll() is None:
        caller = caller or call()
        try:
            if caller:
                caller.sendall(piece(50_000))
        except OSError:
            caller = None
        time.sleep(0.002)
get.wait(120)
print(get.returncode, resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)

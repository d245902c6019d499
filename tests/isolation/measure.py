"""What a call through the host costs beyond the same call in process, under Wine:  measure.py WINE BUILD

Once with a client in Python, once with the one that MATLAB has.

The least of many times, since others use the machine, too.
"""
import pathlib
import struct
import subprocess
import sys
import tempfile
import time

import client
from client import RESULT, Host

REFERENCE = "Verdanth Reference Packages"


def least(times, action):
    shortest = 1e99
    for _ in range(times):
        start = time.perf_counter()
        action()
        shortest = min(shortest, time.perf_counter() - start)
    return shortest * 1e6


def started():
    return Host([WINE, BUILD / "VerdanthHost64.exe"])


def through_host(host, block):
    """Without making Python's values of the answer."""
    host.send(block)
    kind, _, length = struct.unpack("<IIQ", host.read(16))
    assert kind == RESULT
    host.read(length)


def in_process(library, folder, block, times):
    file = pathlib.Path(folder) / "messages"
    file.write_bytes(client.call(1, 3, REFERENCE, "Natural gas") + block)
    output = subprocess.run([WINE, BUILD / "in_process.exe", library, file, str(times)], stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, check=True)
    return float(output.stdout)


def measure(folder):
    rows = 100_000
    feed = client.matrix([1 / 11] * 11, 1, 11)
    temperatures = [300 + 50 * row / rows for row in range(rows)]
    pressures = [1e5 + row for row in range(rows)]
    own_feeds = client.matrix([1 / 11] * 11 * rows, rows, 11)
    with started() as host:
        handle, = host.call(1, 3, REFERENCE, "Natural gas")
        calls = [
            ("version", 3000, client.call(1, 26)),
            ("opening what is open", 3000, client.call(1, 3, REFERENCE, "Natural gas")),
            ("density", 3000, client.call(1, 22, 1.0, handle, "density", 300.0, 1e5, feed, "Vapor")),
            (f"density, {rows} rows", 5,
             client.call(1, 22, 1.0, handle, "density", temperatures, pressures, feed, "Vapor")),
            (f"density, {rows} rows with a feed each", 5,
             client.call(1, 22, 1.0, handle, "density", temperatures, pressures, own_feeds, "Vapor")),
        ]
        print(f"{'':45}{'in process':>12}{'host':>12}{'beyond':>12}{'':10}{'MATLAB':>12}{'beyond':>12}")
        for name, times, block in calls:
            here = least(times, lambda block=block: through_host(host, block))
            there = in_process("Verdanth.mexw64", folder, block, times)
            line = f"{name:45}{there:9.1f} us"
            for other in (here, in_process("VerdanthClient.mexw64", folder, block, times)):
                line += f"{other:9.1f} us{other - there:9.1f} us{100 * (other - there) / there:8.1f} %"
            print(line)
    print(f"{'start':45}{'':12}{least(5, lambda: started().close()):9.1f} us")


if __name__ == "__main__":
    WINE, BUILD = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    subprocess.run([WINE, "regsvr32", "/s", BUILD / "VerdanthReference.dll"], stdin=subprocess.DEVNULL, check=True)
    try:
        with tempfile.TemporaryDirectory() as made:
            measure(made)
    finally:
        subprocess.run([WINE, "regsvr32", "/s", "/u", BUILD / "VerdanthReference.dll"], stdin=subprocess.DEVNULL)

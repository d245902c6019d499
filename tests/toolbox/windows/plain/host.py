"""Stands in the place of the host process. What it does with a call, its first argument tells:

    echo   the other arguments are the results, byte for byte
    read   the results are texts: what the client in Python takes the other arguments for
    send   the bytes of the other argument are sent as they are
    wait   as echo, after so many seconds as the other argument tells
    exit   it ends

With a name in VERDANTH_TEST_GREETING it greets with that.
"""

import os
import pathlib
import struct
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[3] / "isolation"))
import client # noqa: E402

RESULT = 17


def send(block):
    sys.stdout.buffer.write(block)
    sys.stdout.buffer.flush()


def calls():
    while len(header := sys.stdin.buffer.read(16)) == 16:
        _, _, length = struct.unpack("<IIQ", header)
        yield sys.stdin.buffer.read(length)


def arguments(content):
    """Pairs: what an argument is, and its bytes."""
    _, count = struct.unpack_from("<iI", content)
    at = 8
    for _ in range(count):
        begin = at
        value, at = client.decode(content, at)
        yield value, content[begin:at]


def main():
    greeting = os.environ.get("VERDANTH_TEST_GREETING") or "VERDANTH"
    send(greeting.encode() + struct.pack("<II", 1, 0))
    for content in calls():
        (deed, _), *others = arguments(content)
        if deed == "exit":
            os._exit(0)
        if deed == "send":
            send(others[0][0][1].tobytes())
            continue
        if deed == "wait":
            time.sleep(others[0][0])
        results = [block if deed in ("echo", "wait") else client.encode(repr(value)) for value, block in others]
        send(client.message(RESULT, struct.pack("<II", len(results), 0) + b"".join(results)))


main()

"""Stands in the place of Wine and of what it runs:  program.py FILE

FILE holds a word for each call, what to do with it: how the library's program answers when all is well, and all that
can go wrong with it.
"""

import os
import pathlib
import signal
import struct
import sys
import time

CALL, WARNING, RESULT, ERROR, LAST_WORDS = 1, 16, 17, 18, 19
INT32 = 12


def send(kind, content, pause=0):
    content += bytes(-len(content) % 8)
    sys.stdout.buffer.write(struct.pack("<IIQ", kind, 0, len(content)) + content[:4])
    if pause:
        sys.stdout.buffer.flush()
        time.sleep(pause)
    sys.stdout.buffer.write(content[4:])
    sys.stdout.buffer.flush()


def send_text(kind, words):
    words = words.encode()
    send(kind, struct.pack("<Q", len(words)) + words)


def send_handle(handle, pause=0):
    send(RESULT, struct.pack("<II BBHI QQ ii", 1, 0, INT32, 0, 0, 2, 1, 1, handle, 0), pause)


def script():
    return pathlib.Path(sys.argv[1])


def receive():
    header = sys.stdin.buffer.read(16)
    if len(header) < 16:
        script().with_suffix(".ended").touch() # where the exit routine would run
        sys.exit(0)
    kind, _, length = struct.unpack("<IIQ", header)
    return kind, sys.stdin.buffer.read(length)


def act(word, argument):
    if word == "handle":
        send_handle(int(argument))
    elif word == "nothing":
        send(RESULT, struct.pack("<II", 0, 0))
    elif word == "error":
        send_text(WARNING, "a warning")
        send_text(WARNING, "and another: é")
        send_text(ERROR, argument)
    elif word == "warned_handle":
        send_text(WARNING, "a warning that is longer than the text that a string has room for in itself")
        send_handle(int(argument))
    elif word == "much":
        send(RESULT, struct.pack("<II BBHI QQ", 1, 0, 6, 0, 0, 2, 1, int(argument)) + bytes(8 * int(argument)))
    elif word == "last_words":
        send_text(LAST_WORDS, argument)
        script().with_suffix(".gone").touch()
        os._exit(5)
    elif word == "exit":
        os._exit(int(argument))
    elif word == "die":
        os.kill(os.getpid(), signal.SIGKILL)
    elif word == "slow":
        time.sleep(float(argument))
        send_handle(77)
    elif word == "garbage":
        send(RESULT, bytes(range(64)))
    elif word == "other_kind":
        send(99, b"")
    elif word == "begins": # an answer
        sys.stdout.buffer.write(struct.pack("<IIQ", RESULT, 0, 1000) + bytes(10))
        sys.stdout.buffer.flush()
        script().with_suffix(".begun").touch()
    elif word == "parts": # of an answer
        time.sleep(0.4)
        send_handle(int(argument), pause=1.5)
    elif word == "greets_in_part":
        sys.stdout.buffer.write(b"VERD")
        sys.stdout.buffer.flush()
        time.sleep(0.3) # the first bytes have been seen by then
        script().with_suffix(".begun").touch()
        time.sleep(float(argument))
    elif word == "trickles": # an answer that takes long
        sys.stdout.buffer.write(struct.pack("<IIQ", RESULT, 0, 100000))
        while True:
            sys.stdout.buffer.write(bytes(1))
            sys.stdout.buffer.flush()
            time.sleep(0.01)
    elif word == "sleep":
        time.sleep(float(argument))
    elif word == "half":
        sys.stdout.buffer.write(struct.pack("<IIQ", RESULT, 0, 1000) + bytes(10))
        sys.stdout.buffer.flush()
        os._exit(0)


def main():
    if os.path.basename(sys.argv[2]) != "VerdanthHost64.exe":
        return # making a prefix
    signal.signal(signal.SIGINT, lambda *_: script().with_suffix(".interrupted").touch())
    words = iter(script().read_text(encoding="utf-8").splitlines())
    start = next(words)
    if start == "start":
        sys.stdout.buffer.write(b"VERDANTH" + struct.pack("<II", 1, 0))
        sys.stdout.buffer.flush()
    else:
        act(*(start.split(" ", 1) + [""])[:2])
    for line in words:
        if line.startswith("unasked "):
            line = line.removeprefix("unasked ")
        else:
            receive()
        act(*(line.split(" ", 1) + [""])[:2])
    receive()


main()

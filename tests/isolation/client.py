"""A client of the host process, by the page of the guide about it (docs/pages/host.md) and nothing else.

    with Host(["wine64", "VerdanthHost64.exe"]) as host:
        version, = host.call(1, 26)

client.py COMMAND...   starts a host and prints what it answers to that
"""
import array
import struct
import subprocess
import sys

CLASSES = {  # number: (code of struct and array, bytes of an element)
    3: ("?", 1), 4: ("H", 2), 6: ("d", 8), 7: ("f", 4), 8: ("b", 1), 9: ("B", 1), 10: ("h", 2), 11: ("H", 2),
    12: ("i", 4), 13: ("I", 4), 14: ("q", 8), 15: ("Q", 8)}
CELL, LOGICAL, CHAR, DOUBLE, INT32 = 1, 3, 4, 6, 12
MISSING = bytes([255, 0, 0, 0, 0, 0, 0, 0])
CALL, UNLOAD, WARNING, RESULT, ERROR, LAST_WORDS = 1, 2, 16, 17, 18, 19


class Error(Exception):
    """The library's own words."""


class Ended(Exception):
    """The host is gone: its last words, or None."""


def padded(block):
    return block + bytes(-len(block) % 8)


def shape(number, dimensions, flags=0):
    return struct.pack("<BBHI%dQ" % len(dimensions), number, flags, 0, len(dimensions), *dimensions)


def encode(value):
    """Of None, bool, int (int32), float, str, bytes (a value that is encoded already), a list of numbers (a column of
    doubles), and a tuple (a column of cells)."""
    if value is None:
        return MISSING
    if isinstance(value, bytes):
        return value
    if isinstance(value, bool):
        return shape(LOGICAL, (1, 1)) + padded(struct.pack("<?", value))
    if isinstance(value, int):
        return shape(INT32, (1, 1)) + padded(struct.pack("<i", value))
    if isinstance(value, float):
        return shape(DOUBLE, (1, 1)) + struct.pack("<d", value)
    if isinstance(value, str):
        units = value.encode("utf-16-le", "surrogatepass")
        return shape(CHAR, (1, len(units) // 2)) + padded(units)
    if isinstance(value, tuple):
        return shape(CELL, (len(value), 1)) + b"".join(map(encode, value))
    return matrix(value, len(value), 1)


def matrix(numbers, *dimensions):
    return shape(DOUBLE, dimensions) + array.array("d", numbers).tobytes()


def decode(content, at=0):
    """The value at a place, and the place behind it. A text is a str, one number that number, a cell a tuple, and other
    arrays are pairs of dimensions and elements."""
    number, flags, _, count = struct.unpack_from("<BBHI", content, at)
    dimensions = struct.unpack_from("<%dQ" % count, content, at + 8)
    at += 8 + 8 * count
    elements = 1 if count else 0
    for dimension in dimensions:
        elements *= dimension
    if number == CELL:
        cell = []
        for _ in range(elements):
            element, at = decode(content, at)
            cell.append(element)
        return tuple(cell), at
    if number not in CLASSES:
        return None, at
    code, size = CLASSES[number]
    end = at + elements * size
    behind = at + (1 + flags) * len(padded(bytes(elements * size)))
    if number == CHAR:
        return content[at:end].decode("utf-16-le", "surrogatepass"), behind
    if elements == 1:
        return struct.unpack_from("<" + code, content, at)[0], behind
    return (dimensions, array.array("B" if code == "?" else code, content[at:end])), behind


def message(kind, content=b""):
    return struct.pack("<IIQ", kind, 0, len(content)) + content


def call(outputs, code, *arguments):
    values = [encode(float(code))] + [encode(each) for each in arguments]
    return message(CALL, struct.pack("<iI", outputs, len(values)) + b"".join(values))


class Host:
    def __init__(self, command, **options):
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0, **options)
        if self.read(16) != b"VERDANTH" + struct.pack("<II", 1, 0):
            raise Ended("this is no host of version 1")
        self.warnings = []

    def read(self, count):
        blocks = []
        while count:
            blocks.append(self.process.stdout.read(min(count, 1 << 20)))
            if not blocks[-1]:
                raise Ended(None)
            count -= len(blocks[-1])
        return b"".join(blocks)

    def send(self, block):
        view = memoryview(block)
        while view:
            view = view[self.process.stdin.write(view):]

    def message(self, kind, content=b""):
        self.send(message(kind, content))

    def answer(self):
        """The results. Warnings before them are in `warnings`."""
        self.warnings = []
        while True:
            kind, _, length = struct.unpack("<IIQ", self.read(16))
            content = self.read(length)
            if kind == RESULT:
                break
            size, = struct.unpack_from("<Q", content)
            text = content[8:8 + size].decode()
            if kind != WARNING:
                raise (Error if kind == ERROR else Ended)(text)
            self.warnings.append(text)
        count, _ = struct.unpack_from("<II", content)
        results, at = [], 8
        for _ in range(count):
            value, at = decode(content, at)
            results.append(value)
        return results

    def call(self, outputs, code, *arguments):
        self.send(call(outputs, code, *arguments))
        return self.answer()

    def unload(self):
        self.message(UNLOAD)
        return self.answer()

    def close(self):
        """Its exit code."""
        self.process.stdin.close()
        try:
            return self.process.wait(20)
        finally:
            self.process.kill()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
        self.process.stdout.close()


if __name__ == "__main__":
    with Host(sys.argv[1:]) as started:
        print(started.call(1, 26)[0])

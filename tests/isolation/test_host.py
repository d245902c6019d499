"""The host process under Wine, with a client in another language:  test_host.py WINE BUILD VERSION

WINE starts Windows programs, BUILD has the host, the library and the packages, VERSION is theirs.
"""
import os
import pathlib
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest

import client
from client import CALL, RESULT, Ended, Error, Host

REFERENCE = "Verdanth Reference Packages"
FILES = ["VerdanthHost64.exe", "Verdanth.mexw64", "libmx.dll", "libmex.dll"]


def start(*arguments, program=None, **options):
    return Host([*WINE, program or BUILD / "VerdanthHost64.exe", *arguments], **options)


def register(library, *options):
    subprocess.run([*WINE, "regsvr32", "/s", *options, BUILD / library], stdin=subprocess.DEVNULL, check=True)


def processes(mark):
    """Those that have it among their arguments."""
    found = []
    for line in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
        try:
            if mark.encode() in line.read_bytes() and int(line.parent.name) != os.getpid():
                found.append(int(line.parent.name))
        except OSError: # it has just ended
            pass
    return found


class HostTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        for library in ("VerdanthReference.dll", "ill_packages.dll"):
            register(library)
            cls.addClassCleanup(register, library, "/u")

    def ended(self, host):
        """The last words, when there is nothing behind them, and the exit code."""
        words = None
        try:
            while True:
                host.answer()
        except Ended as last:
            words = str(last) if last.args[0] is not None else None
        self.assertEqual(host.process.stdout.read(1), b"")
        return words, host.process.wait(20)


class Calls(HostTest):
    def test_the_version_comes_as_text(self):
        with start() as host:
            self.assertEqual(host.call(1, 26), ["Verdanth.DLL version: " + VERSION])
            self.assertEqual(host.call(0, 26), ["Verdanth.DLL version: " + VERSION])
            self.assertEqual(host.close(), 0)

    def test_lists_are_cells(self):
        with start() as host:
            managers, = host.call(1, 1)
            self.assertIn(REFERENCE, managers)
            packages, = host.call(1, 2, REFERENCE)
            self.assertIn("Air", packages)
            self.assertEqual(host.call(1, 5), [((0, 0), client.array.array("i"))])

    def test_a_package_is_opened_and_flashed_alone_and_in_a_batch(self):
        with start() as host:
            handle, = host.call(1, 3, REFERENCE, "Natural gas")
            self.assertEqual(host.call(1, 5), [handle])
            compounds, = host.call(1, 7, handle)
            feed = client.matrix([1 / len(compounds)] * len(compounds), 1, len(compounds))
            temperatures, pressures = [220.0, 250.0, 280.0], [5e6, 4e6, 1e5]
            batch, = host.call(1, 25, handle, feed, "temperature", temperatures, "pressure", pressures, "", 1.0,
                               "enthalpy")
            (dimensions, enthalpies), = batch
            self.assertEqual(dimensions, (3, 1))
            for temperature, pressure, enthalpy in zip(temperatures, pressures, enthalpies):
                phases, fractions, compositions, *conditions = host.call(
                    5, 24, handle, feed, "temperature", temperature, "pressure", pressure, "")
                self.assertEqual(conditions, [temperature, pressure])
                shares = [fractions] if len(phases) == 1 else fractions[1]
                self.assertAlmostEqual(sum(shares), 1, places=9)
                total = 0
                for row, (phase, share) in enumerate(zip(phases, shares)):
                    composition = client.matrix(compositions[1][row::len(phases)], 1, len(compounds))
                    (value,), = host.call(1, 22, 1.0, handle, "enthalpy", temperature, pressure, composition, phase)
                    total += share * value
                self.assertAlmostEqual(total / enthalpy, 1, places=9)
            self.assertEqual(host.call(0, 4, handle), [None])
            with self.assertRaisesRegex(Error, "^Invalid property package handle$"):
                host.call(1, 7, handle)

    def test_large_arrays_pass_both_ways(self):
        rows = 20_000
        with start() as host:
            handle, = host.call(1, 3, REFERENCE, "Air")
            compounds, = host.call(1, 7, handle)
            temperatures = [300 + 100 * row / rows for row in range(rows)]
            feed = client.matrix([1 / len(compounds)] * len(compounds), 1, len(compounds))
            values, = host.call(1, 22, 1.0, handle, "molecularWeight", temperatures, [1e5] * rows, feed, "Vapor")
            dimensions, numbers = values[0]
            self.assertEqual(dimensions, (rows, 1))
            self.assertEqual(len(set(numbers)), 1)

    def test_errors_are_the_librarys_words_in_any_alphabet(self):
        with start() as host:
            for name in ("Nothing", "\u00C4rger \u6C34", "\U0001F525 100 % \\n", ""):
                with self.assertRaises(Error) as raised:
                    host.call(1, 3, name, "")
                self.assertEqual(str(raised.exception), f'no such package manager: "{name}"')
            with self.assertRaises(Error) as raised:
                host.call(1, 3, "a\ud83db", "")
            self.assertEqual(str(raised.exception), 'no such package manager: "a\ufffdb"')
            with self.assertRaisesRegex(Error, "^Invalid number of arguments for Verdanth$"):
                host.call(1, 26, 1.0)
            with self.assertRaisesRegex(Error, "^Invalid number of output arguments for Verdanth$"):
                host.call(2, 26)
            host.message(CALL, struct.pack("<iI", 1, 0))
            with self.assertRaisesRegex(Error, "^Too few arguments for Verdanth$"):
                host.answer()

    def test_values_that_are_no_use_are_refused_by_the_library(self):
        useless = [client.shape(0, (1, 1)), client.shape(0, (1 << 40, 1 << 20)), (None,), ("a", (1.0,)), True, 7,
                   client.shape(client.DOUBLE, (1, 1), 1) + struct.pack("<dd", 1, 2),
                   client.shape(7, (1, 1)) + client.padded(struct.pack("<f", 1))]
        with start() as host:
            for value in useless:
                host.message(CALL, struct.pack("<iI", 1, 1) + client.encode(value))
                with self.assertRaisesRegex(Error, "^Expected scalar for first argument to Verdanth$"):
                    host.answer()

    def test_warnings_and_message_boxes_come_before_the_result(self):
        with start() as host:
            handle, = host.call(1, 3, "talks", "")
            self.assertIsInstance(handle, int)
            self.assertEqual(host.warnings, ["CAPE-OPEN: logged at 20 \u00B0C", "shown in a box, \u6C34",
                                             "CAPE-OPEN: logged at 20 \u00B0C"])
            host.call(1, 26)
            self.assertEqual(host.warnings, [])

    def test_what_a_package_prints_and_reads_is_not_the_streams(self):
        with tempfile.TemporaryFile() as printed:
            with start(stderr=printed) as host:
                self.assertIsInstance(host.call(1, 3, "prints", "")[0], int)
                self.assertEqual(host.call(1, 26), ["Verdanth.DLL version: " + VERSION])
                self.assertEqual(host.close(), 0)
            printed.seek(0)
            self.assertEqual(printed.read().split(b"\n"), [
                b"printed by a package\r", b"written by a package", b"closed by the library\r", b""])

    def test_the_next_call_may_be_sent_when_the_answer_has_begun_to_arrive(self):
        rows = 20_000 # more than pipes hold: the host is still writing
        with start() as host:
            handle, = host.call(1, 3, REFERENCE, "Air")
            count = len(host.call(1, 7, handle)[0])
            feed = client.matrix([1 / count] * count, 1, count)
            host.send(client.call(1, 22, 1.0, handle, "molecularWeight", [300.0] * rows, [1e5] * rows, feed, "Vapor"))
            kind, _, length = struct.unpack("<IIQ", host.read(16))
            self.assertEqual(kind, RESULT)
            self.assertGreater(length, 8 * rows)
            host.send(client.call(1, 26))
            time.sleep(0.2)
            host.read(length)
            self.assertEqual(host.answer(), ["Verdanth.DLL version: " + VERSION])

    def test_unloading_closes_packages_and_the_next_call_loads_again(self):
        with start() as host:
            host.call(0, 18, "mass")
            handle, = host.call(1, 3, REFERENCE, "Air")
            self.assertEqual(host.unload(), [])
            self.assertEqual(host.unload(), [])
            self.assertEqual(host.call(1, 5), [((0, 0), client.array.array("i"))])
            with self.assertRaisesRegex(Error, "^Invalid property package handle$"):
                host.call(1, 7, handle)


class Folders(HostTest):
    def test_blanks_and_letters_of_any_alphabet(self):
        with tempfile.TemporaryDirectory(prefix="a folder \u00E4 \u6C34 ", dir=BUILD) as folder:
            for file in FILES:
                shutil.copy(BUILD / file, folder)
            with start(program=pathlib.Path(folder) / "VerdanthHost64.exe") as host:
                self.assertEqual(host.call(1, 26), ["Verdanth.DLL version: " + VERSION])

    def test_the_library_may_lie_where_it_is_installed(self):
        with tempfile.TemporaryDirectory(dir=BUILD) as folder:
            for file in FILES:
                target = pathlib.Path(folder) / ("toolbox" if file == "Verdanth.mexw64" else "host")
                target.mkdir(exist_ok=True)
                shutil.copy(BUILD / file, target)
            with start(program=pathlib.Path(folder) / "host/VerdanthHost64.exe") as host:
                self.assertEqual(host.call(1, 26), ["Verdanth.DLL version: " + VERSION])

    def test_what_is_no_library_is_an_error_of_the_call(self):
        with tempfile.TemporaryDirectory(dir=BUILD) as folder:
            for file in set(FILES) - {"Verdanth.mexw64"}:
                shutil.copy(BUILD / file, folder)
            library = pathlib.Path(folder) / "Verdanth.mexw64"
            with start(program=pathlib.Path(folder) / "VerdanthHost64.exe") as host:
                library.write_bytes(b"no library" * 1000)
                with self.assertRaisesRegex(Error, "^Verdanth could not be loaded: Verdanth.mexw64, error 193$"):
                    host.call(1, 26)
                shutil.copy(BUILD / "libmx.dll", library)
                with self.assertRaisesRegex(Error, "^Verdanth could not be loaded: Verdanth.mexw64 is another library$"):
                    host.call(1, 26)

    def test_an_error_of_loading_comes_without_the_warnings_of_an_earlier_call(self):
        with tempfile.TemporaryDirectory(dir=BUILD) as folder:
            for file in FILES:
                shutil.copy(BUILD / file, folder)
            with start(program=pathlib.Path(folder) / "VerdanthHost64.exe") as host:
                host.call(1, 3, "talks", "")
                self.assertEqual(len(host.warnings), 3)
                host.unload()
                (pathlib.Path(folder) / "Verdanth.mexw64").unlink()
                with self.assertRaisesRegex(Error, "^Verdanth could not be loaded: Verdanth.mexw64 is not in "):
                    host.call(1, 26)
                self.assertEqual(host.warnings, [])

    def test_a_missing_library_is_an_error_of_the_call(self):
        with tempfile.TemporaryDirectory(prefix="\u00E4 ", dir=BUILD) as folder:
            for file in set(FILES) - {"Verdanth.mexw64"}:
                shutil.copy(BUILD / file, folder)
            with start(program=pathlib.Path(folder) / "VerdanthHost64.exe") as host:
                with self.assertRaises(Error) as raised:
                    host.call(1, 26)
                words = str(raised.exception)
                self.assertTrue(words.startswith("Verdanth could not be loaded: Verdanth.mexw64 is not in "), words)
                self.assertTrue(words.endswith("\\" + pathlib.Path(folder).name + "\\"), words)


class Malformed(HostTest):
    def test_the_host_ends_with_a_reason(self):
        scalar = client.encode(1.0)
        cases = [
            (struct.pack("<IIQ", 3, 0, 0), "byte 0 of a message: a kind that a host does not know"),
            (struct.pack("<IIQ", 17, 0, 0), "byte 0 of a message: a kind that a host does not know"),
            (struct.pack("<IIQ", 1, 1, 0), "byte 4 of a message: reserved bytes that are not 0"),
            (struct.pack("<IIQ", 1, 0, 1 << 41), "byte 8 of a message: a length beyond 2^40"),
            (struct.pack("<IIQ", 1, 0, 7), "byte 8 of a message: a length that is no multiple of 8"),
            (struct.pack("<IIQ", 1, 0, 0), "byte 16 of a message: the message ends too early"),
            (struct.pack("<IIQ", 2, 0, 8) + bytes(8), "byte 16 of a message: the message goes on behind its end"),
            (struct.pack("<IIQiI", 1, 0, 8, -1, 0), "byte 16 of a message: a number of results that nobody can ask for"),
            (struct.pack("<IIQiI", 1, 0, 8 + len(scalar), 1, 2) + scalar,
             "byte 56 of a message: the message ends too early"),
            (struct.pack("<IIQiI", 1, 0, 32, 1, 1) + client.shape(6, (1 << 40, 1 << 40)),
             "byte 32 of a message: more elements than 2^63"),
        ]
        for block, reason in cases:
            with self.subTest(reason), start() as host:
                host.send(block)
                self.assertEqual(self.ended(host), ("malformed message: " + reason, 0))

    def test_a_message_that_is_cut_off_ends_it(self):
        whole = struct.pack("<IIQiI", 1, 0, 40, 1, 1) + client.encode(26.0)
        for size in (1, 15, 16, 17, 55):
            with self.subTest(size), start() as host:
                host.send(whole[:size])
                host.process.stdin.close()
                reason = f"malformed message: the stream ended at byte {size} of a message"
                self.assertEqual(self.ended(host), (reason, 0))

    def test_a_message_before_the_answer_ends_it(self):
        early = "malformed message: a message came before the last one was answered"
        with start() as host:
            host.send(client.call(1, 26) + client.call(1, 26)) # the first has to load the library
            host.process.stdin.close()
            self.assertEqual(self.ended(host), (early, 0))
        with start() as host:
            host.send(client.message(3) + client.call(1, 26))
            host.process.stdin.close()
            words, code = self.ended(host) # of one reason, whichever is seen first
            self.assertIn(words, (early, "malformed message: byte 0 of a message: a kind that a host does not know"))
            self.assertEqual(code, 0)

    def test_a_message_before_the_answer_ends_it_whatever_a_package_does(self):
        with start() as host:
            host.message(CALL, struct.pack("<iI", 1, 3) + client.encode(3.0) + client.encode("loops") +
                         client.encode(""))
            time.sleep(0.5)
            host.message(2)
            self.assertEqual(self.ended(host)[0], None) # the package has the thread that answers


class Crashes(HostTest):
    def test_the_host_says_why_it_ends(self):
        cases = [
            ("writes to null", "access violation in ill_packages.dll", 5),
            ("calls null", "access violation in ill_packages.dll", 5),
            ("executes a trap", "illegal instruction in ill_packages.dll", 0x1D),
            ("divides by zero", "integer division by zero in ill_packages.dll", 0x94),
            ("raises another exception", "exception 0xE0001234 in kernelbase.dll", 0x34),
            ("throws on another thread", "uncaught C++ exception", 0x43),
            ("overflows the stack", "stack overflow in ill_packages.dll", 0xFD),
            ("crashes on another thread", "access violation in ill_packages.dll", 5),
            ("calls exit", "exit was called", 3),
            ("aborts", "abort was called", 3),
            ("ends the process", None, 7),
        ]
        for package, words, code in cases:
            with self.subTest(package), start() as host:
                with self.assertRaises(Ended) as ended:
                    host.call(1, 3, package, "")
                self.assertEqual(ended.exception.args[0], words)
                self.assertEqual(host.process.stdout.read(1), b"")
                self.assertEqual(host.process.wait(20), code)

    def test_last_words_are_not_put_into_another_message(self):
        rows = 20_000
        with start() as host:
            handle, = host.call(1, 3, REFERENCE, "Air")
            count = len(host.call(1, 7, handle)[0])
            feed = client.matrix([1 / count] * count, 1, count)
            host.call(1, 3, "crashes after the call", "")
            host.send(client.call(1, 22, 1.0, handle, "molecularWeight", [300.0] * rows, [1e5] * rows, feed, "Vapor"))
            kind, _, length = struct.unpack("<IIQ", host.read(16))
            self.assertEqual(kind, RESULT)
            self.assertEqual(host.process.wait(20), 5)
            rest = host.process.stdout.read()
            self.assertLess(len(rest), length)
            self.assertNotIn(b"access violation", rest)

    def test_an_exception_that_can_be_caught_is_an_error(self):
        with start() as host:
            with self.assertRaises(Error) as raised:
                host.call(1, 3, "throws", "")
            self.assertEqual(str(raised.exception), "Unexpected exception: thrown by a package")
            self.assertEqual(host.call(1, 26), ["Verdanth.DLL version: " + VERSION])


class Clients(HostTest):
    def wait_until_gone(self, mark, seconds):
        deadline = time.monotonic() + seconds
        while processes(mark):
            self.assertLess(time.monotonic(), deadline, f"still there: {processes(mark)}")
            time.sleep(0.05)

    def test_one_that_is_killed_leaves_no_host(self):
        for package, seconds in ((REFERENCE, 10), ("loops", 20)):
            mark = f"host-of-{os.getpid()}-{package.replace(' ', '-')}"
            killed = subprocess.Popen([sys.executable, "-B", __file__, *sys.argv[1:4], "--client", mark, package],
                                      stdout=subprocess.PIPE, text=True)
            with self.subTest(package), killed:
                self.assertEqual(killed.stdout.readline(), "open\n")
                time.sleep(0.3)
                self.assertTrue([each for each in processes(mark) if each != killed.pid])
                killed.send_signal(signal.SIGKILL)
                killed.wait()
                self.wait_until_gone(mark, seconds)

    def test_two_at_once_know_nothing_of_each_other(self):
        with start() as one, start() as other:
            one.call(0, 18, "mass")
            handle, = one.call(1, 3, REFERENCE, "Air")
            self.assertEqual(other.call(1, 5), [((0, 0), client.array.array("i"))])
            with self.assertRaises(Ended):
                other.call(1, 3, "writes to null", "")
            self.assertEqual(one.call(1, 5), [handle])


def be_a_client(mark, package):
    """Until it is killed: with an open package, or while it opens one."""
    host = start(mark)
    if package == REFERENCE:
        host.call(1, 3, package, "Air")
    print("open", flush=True)
    host.call(1, 3, package, "Air")
    time.sleep(100)


if __name__ == "__main__":
    WINE, BUILD, VERSION = [sys.argv[1]], pathlib.Path(sys.argv[2]).resolve(), sys.argv[3]
    if "--client" in sys.argv:
        be_a_client(*sys.argv[5:])
    else:
        unittest.main(argv=sys.argv[:1] + sys.argv[4:])

"""Ctrl-C in the middle of a call, and what is shown meanwhile:  test_interrupt.py TEST OCTAVE TOOLBOX VERDANTH

Octave's prompt is there again at once, packages and library go on as if nothing had been, and what was done is there.
"""

import os
import pathlib
import pty
import re
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
SETTING_UP = f"""
addpath('{sys.argv[3]}', '{sys.argv[4]}');
h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
T = linspace(200, 300, 2000000).';
given = {{X, 'Temperature', T, 'Pressure', 40e5, 'Unspecified', 'vaporFraction enthalpy'}};
expected = Verdanth(25, h, X, 'Temperature', T(1:100), 'Pressure', 40e5, 'Unspecified', 2, 'vaporFraction enthalpy');
"""
SERIAL = "capeOpenMultiFlash(h, given{:})"
PARALLEL = "capeOpenMultiFlashParallel('Verdanth Reference Packages', 'Natural gas', given{:})"
LONG_CALL = """
disp('begun'); fflush(stdout); [v, w] = %s; disp('not stopped');
"""
AFTERWARDS = """
disp('prompt again'); fflush(stdout);
if exist('v', 'var'), disp('assigned after all'), end
[kept, done] = capeOpenLastResults();
printf('%d rows kept\\n', sum(done));
some = find(done)(1:100); % of workers any may be the first
v = Verdanth(25, h, X, 'Temperature', T(some), 'Pressure', 40e5, 'Unspecified', 2, 'vaporFraction enthalpy');
printf('the same rows: %d\\n', isequal(kept(some, :), [v{:}]) && isequal(any(isnan(kept), 2), !done));
v = Verdanth(25, h, X, 'Temperature', T(1:100), 'Pressure', 40e5, 'Unspecified', 2, 'vaporFraction enthalpy');
printf('%d package, the same: %d\\n', numel(capeOpenHandleList()), isequal(v, expected));
v = capeOpenMultiFlash(h, X, 'Temperature', T(1:100), 'Pressure', 40e5, 'Unspecified', 'vaporFraction');
printf('kept after a call that came to its end: %d\\n', numel(capeOpenLastResults()));
capeOpenRelease(h)
disp('the end')
"""
OCTAVE = [sys.argv[2], "--interactive", "--quiet", "--norc", "--no-history", "--no-line-editing"]


def read_until(stream, words):
    lines = []
    while words not in "".join(lines):
        lines.append(stream.readline())
        if not lines[-1]:
            raise AssertionError("".join(lines))
    return "".join(lines)


def started(test, **variables):
    octave = subprocess.Popen(OCTAVE, text=True, bufsize=1, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, start_new_session=True, env={**os.environ, **variables})
    test.addCleanup(octave.kill)
    return octave


class Interrupt(unittest.TestCase):
    def stop(self, call, name):
        octave = started(self)
        octave.stdin.write(SETTING_UP + LONG_CALL % call)
        octave.stdin.flush()
        read_until(octave.stdout, "begun")
        time.sleep(2) # into the middle of it
        begun = time.monotonic()
        os.killpg(octave.pid, signal.SIGINT) # as a terminal does
        octave.stdin.write(AFTERWARDS)
        octave.stdin.flush()
        said = read_until(octave.stdout, "prompt again")
        seconds = time.monotonic() - begun
        said += octave.communicate(timeout=100)[0]
        self.assertEqual(octave.returncode, 0, said)
        stopped = re.search(name + r" was stopped: (\d+) of 2000000 rows are done, capeOpenLastResults gives them", said)
        self.assertTrue(stopped, said)
        self.assertIn(stopped.group(1) + " rows kept", said)
        self.assertGreater(int(stopped.group(1)), 100, said)
        self.assertIn("the same rows: 1", said)
        self.assertIn("1 package, the same: 1", said)
        self.assertIn("kept after a call that came to its end: 0", said)
        self.assertIn("the end", said)
        self.assertNotIn("not stopped", said)
        self.assertNotIn("assigned after all", said)
        print(f"{seconds:.2f} s after the interrupt the prompt was there.")
        self.assertLess(seconds, 1.5, "half a second where nothing else runs")

    def test_leaves_the_library_usable(self):
        self.stop(SERIAL, "capeOpenMultiFlash")

    def test_stops_workers(self):
        self.stop(PARALLEL, "capeOpenMultiFlashParallel")


class Check(unittest.TestCase):
    """A check that waits in its third part, stopped there."""

    CODE = f"""
addpath('{sys.argv[3]}', '{sys.argv[4]}', '{os.path.join(HERE, "support")}');
behind_the_faulty_one();
setenv('VERDANTH_TEST_FAULT', "struct('command', 22, 'property', 'density', 'alter', @waiting)");
report = capeOpenCheck('Verdanth Reference Packages', 'Natural gas', 'Level', 'quick', 'Quiet', true, ...
    'Checks', {{'casNumbers', 'constants', 'volumes'}}); disp('not stopped');
"""
    AFTERWARDS = """
setenv('VERDANTH_TEST_FAULT', ''), clear -global fault
last = capeOpenCheck('last');
printf('kept: %s, complete: %d, verdict: %s, %d asked\\n', strjoin({last.checks.name}, ' '), last.complete, last.verdict, ...
       sum([last.checks.asked]));
printf('%d flashes kept, %d solved\\n', numel(last.flashes), sum(cellfun(@isempty, {last.flashes.problem})));
printf('%d packages, basis %s\\n', numel(capeOpenHandleList()), capeOpenPropUnit('density'));
again = capeOpenCheck('Verdanth Reference Packages', 'Natural gas', 'Level', 'quick', 'Quiet', true, ...
                      'Checks', {'casNumbers', 'constants'});
printf('the same as without: %d\\n', sum([again.checks.asked]) == sum([last.checks.asked]) && again.complete);
"""

    def stopped(self, code, seconds=0):
        """What is said of a call that is stopped so many seconds after it began to wait."""
        octave = started(self)
        octave.stdin.write(code)
        octave.stdin.flush()
        read_until(octave.stdout, "begun")
        time.sleep(seconds) # for other workers to do the rest
        os.killpg(octave.pid, signal.SIGINT)
        said = octave.communicate(self.AFTERWARDS, timeout=60)[0]
        self.assertEqual(octave.returncode, 0, said)
        return said

    def test_keeps_what_a_check_has_done(self):
        said = self.stopped(self.CODE)
        self.assertIn("capeOpenCheck was stopped after 2 checks; capeOpenCheck('last') gives what was done", said)
        self.assertRegex(said, r"kept: casNumbers constants, complete: 0, verdict: passed, [1-9]\d+ asked")
        self.assertIn("0 packages, basis mol / m3", said)
        self.assertIn("the same as without: 1", said)
        self.assertNotIn("not stopped", said)

    def test_keeps_what_a_sample_has_done(self):
        code = self.CODE.replace("'command', 22, 'property', 'density'", "'command', 24, 'property', ''")
        code = code.replace("@waiting", "@fifth_waits")
        said = self.stopped(code)
        self.assertIn("capeOpenCheck was stopped after 4 flashes of its sample; capeOpenCheck('last') gives what was done", said)
        self.assertIn("kept: , complete: 0, verdict: passed, 0 asked", said)
        self.assertIn("4 flashes kept, 4 solved", said)
        self.assertIn("0 packages, basis mol / m3", said)
        self.assertNotIn("not stopped", said)

    def test_keeps_what_workers_have_done(self):
        said = self.stopped(self.CODE.replace("'Quiet', true", "'Quiet', true, 'Parallel', true"), 2)
        self.assertIn("capeOpenCheck was stopped after 2 checks; capeOpenCheck('last') gives what was done", said)
        self.assertRegex(said, r"kept: casNumbers constants, complete: 0, verdict: passed, [1-9]\d+ asked")
        self.assertRegex(said, r"[1-9]\d flashes kept")
        self.assertIn("0 packages, basis mol / m3", said)
        self.assertIn("the same as without: 1", said)
        self.assertNotIn("not stopped", said)


class Plain(unittest.TestCase):
    """The client for Octave on Windows, which has its answer before Ctrl-C takes effect, and asks another host then."""

    CODE = f"""
addpath('{sys.argv[4]}'); disp('begun'), fflush(stdout); Verdanth('wait', 2); disp('not stopped');
"""
    AFTERWARDS = """
printf('the next: %d\\n', Verdanth('echo', 7));
"""

    def test_starts_a_new_host(self):
        with tempfile.TemporaryDirectory() as folder:
            noted = pathlib.Path(folder, "id")
            octave = started(self, VERDANTH_TEST_HOST=os.path.join(HERE, "windows", "plain", "host.py"),
                             VERDANTH_TEST_PID=str(noted))
            octave.stdin.write(self.CODE)
            octave.stdin.flush()
            read_until(octave.stdout, "begun")
            time.sleep(1) # into the two seconds of the call
            first = noted.read_text(encoding="ascii")
            octave.send_signal(signal.SIGINT) # the host goes on
            said = octave.communicate(self.AFTERWARDS, timeout=60)[0]
            self.assertEqual(octave.returncode, 0, said)
            self.assertIn("the next: 7", said)
            self.assertNotIn("not stopped", said)
            self.assertNotEqual(noted.read_text(encoding="ascii"), first)


def screen(text):
    """What is left to be seen of what went to a terminal: a backspace goes back, and what follows is written over."""
    seen, at = [], 0
    for char in text:
        if char == "\b":
            at -= 1
        else:
            seen[at:at + 1] = char
            at += 1
    return "".join(seen)


class Progress(unittest.TestCase):
    """What a terminal shows of a call of several seconds: of a library whose rows take their time on any machine."""

    SLOW_CALL = f"""
addpath('{sys.argv[3]}', '{os.path.join(HERE, "slow_library")}');
global seconds_per_row, seconds_per_row = %g;
v = capeOpenMultiFlash(1, 1, 'Temperature', (1:%d).', 'Pressure', 1e5, 'Unspecified', 'vaporFraction');
disp(nnz(v) > 0), exit
"""

    def shown(self, options, code):
        terminal, end = pty.openpty()
        octave = subprocess.Popen([OCTAVE[0], "--quiet", "--norc", "--no-history", "--no-line-editing", *options], stdin=end,
                                  stdout=end, stderr=end)
        timer = threading.Timer(100, octave.kill)
        timer.start()
        self.addCleanup(timer.cancel)
        os.close(end)
        os.write(terminal, code.encode())
        text = b""
        try:
            while part := os.read(terminal, 4096):
                text += part
        except OSError: # the other end was closed
            pass
        os.close(terminal)
        self.assertEqual(octave.wait(100), 0, text)
        return text.decode()

    def test_is_shown_to_a_person_alone(self):
        progress = re.compile(r"\d+ of 300 rows, [\d.]+ rows/s, \d+ s left")
        code = self.SLOW_CALL % (0.01, 300)
        text = self.shown([], code)
        self.assertRegex(text, progress)
        self.assertNotRegex(screen(text), r"of 300 rows")
        with tempfile.NamedTemporaryFile("w", suffix=".m") as script:
            script.write("1;\n" + code)
            script.flush()
            self.assertNotRegex(self.shown([script.name], ""), progress)
        done = subprocess.run(OCTAVE, text=True, input=code, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=True)
        self.assertNotRegex(done.stdout, progress)

    def test_is_not_shown_of_a_short_call(self):
        self.assertNotIn("rows/s", self.shown([], self.SLOW_CALL % (0.001, 400)))

    def test_tells_which_check_runs(self):
        code = f"""
addpath('{sys.argv[3]}', '{sys.argv[4]}');
capeOpenCheck('Verdanth Reference Packages', 'Natural gas', 'Level', 'quick', 'Checks', {{'constants', 'bases'}}), exit
"""
        text = self.shown([], code)
        for part in ("1 of 2: constants", "2 of 2: bases"):
            self.assertIn(part, text)
            self.assertNotIn(part, screen(text))


TESTS = {test: group for group in (Interrupt, Check, Plain, Progress) for test in dir(group) if test.startswith("test_")}

if __name__ == "__main__":
    outcome = unittest.TextTestRunner().run(TESTS[sys.argv[1]](sys.argv[1]))
    sys.exit(not outcome.wasSuccessful())

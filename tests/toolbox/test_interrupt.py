"""Ctrl-C in the middle of a call:  test_interrupt.py OCTAVE TOOLBOX VERDANTH

Octave's prompt is there again when the call has come to its end, and packages and library go on as if nothing had been.
"""

import signal
import subprocess
import sys
import time
import unittest

SETTING_UP = f"""
addpath('{sys.argv[2]}', '{sys.argv[3]}');
h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
T = linspace(200, 300, 150000).';
expected = capeOpenMultiFlash(h, X, 'Temperature', 220, 'Pressure', 40e5, 'Unspecified', 'vaporFraction');
"""
LONG_CALL = """
disp('begun'); fflush(stdout); v = capeOpenMultiFlash(h, X, 'Temperature', T, 'Pressure', 40e5, 'Unspecified', 'vaporFraction'); disp('not stopped');
"""
AFTERWARDS = """
if exist('v', 'var'), disp('assigned after all'), end
v = capeOpenMultiFlash(h, X, 'Temperature', 220, 'Pressure', 40e5, 'Unspecified', 'vaporFraction');
printf('%d package, the same: %d\\n', numel(capeOpenHandleList()), v == expected);
capeOpenRelease(h)
disp('the end')
"""


class Interrupt(unittest.TestCase):
    def test_leaves_the_library_usable(self):
        octave = subprocess.Popen([sys.argv[1], "--interactive", "--quiet", "--norc", "--no-history", "--no-line-editing"],
                                  text=True, bufsize=1, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.addCleanup(octave.kill)
        octave.stdin.write(SETTING_UP + LONG_CALL)
        octave.stdin.flush()
        lines = []
        while "begun" not in "".join(lines):
            lines.append(octave.stdout.readline())
            self.assertTrue(lines[-1], "".join(lines))
        time.sleep(0.3) # into the middle of it
        octave.send_signal(signal.SIGINT)
        octave.stdin.write(AFTERWARDS)
        said = octave.communicate(timeout=100)[0]
        self.assertEqual(octave.returncode, 0, said)
        self.assertIn("1 package, the same: 1", said)
        self.assertIn("the end", said)
        self.assertNotIn("not stopped", said)
        self.assertNotIn("assigned after all", said)


if __name__ == "__main__":
    outcome = unittest.TextTestRunner().run(Interrupt("test_leaves_the_library_usable"))
    sys.exit(not outcome.wasSuccessful())

"""Octave with the library under Wine, and all that can go wrong there:  test_under_wine.py TEST OCTAVE SOURCE LINUX_BUILD

Processes of a test are known by a variable of their environment.
"""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
import uuid

OCTAVE, SOURCE, LINUX = sys.argv[2], pathlib.Path(sys.argv[3]), sys.argv[4]
BUILD = SOURCE / "build"
HOST = "VerdanthHost64.exe"
COMMAND = [OCTAVE, "--interactive", "--quiet", "--norc", "--no-history", "--no-line-editing"]
BEGINNING = f"""
PS1(''); PS4('');
addpath('{SOURCE}/toolbox', '{LINUX}');
Z = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
natural_gas = @() capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
density = @(h) capeOpenSinglePhaseProp(h, 'density', 300, 1e5, Z, 'Vapor');
function say(action)
    try
        disp(action());
    catch problem
        printf('error: %s\\n', problem.message);
    end
    fflush(stdout);
end
"""
LOST = "error: Invalid property package handle: its package was lost with its process ({})"
# What a package does when it is opened, and what is told of it.
DEEDS = {
    "writes to null": "access violation in ill_packages.dll",
    "calls null": "access violation in ill_packages.dll",
    "executes a trap": "illegal instruction in ill_packages.dll",
    "overflows the stack": "stack overflow in ill_packages.dll",
    "crashes on another thread": "access violation in ill_packages.dll",
    "calls exit": "exit",
    "aborts": "abort",
    "ends the process": "exit code 7",
}


class UnderWine(unittest.TestCase):
    def setUp(self):
        self.mark = uuid.uuid4().hex
        self.environment = {**os.environ, "VERDANTH_BACKEND": "windows", "VERDANTH_TEST_MARK": self.mark,
                            "VERDANTH_WINEPREFIX": str(BUILD / "wine-octave-ill")}

    def octave(self, code, **variables):
        done = subprocess.run(COMMAND, input=BEGINNING + code, env={**self.environment, **variables}, text=True, timeout=110,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        self.assertEqual(done.returncode, 0, done.stdout)
        return done.stdout

    def started(self, code):
        octave = subprocess.Popen(COMMAND, env=self.environment, text=True, bufsize=1, stdin=subprocess.PIPE,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True)
        self.addCleanup(octave.stdout.close)
        self.addCleanup(octave.kill)
        self.type(octave, BEGINNING + code)
        return octave

    @staticmethod
    def type(octave, code):
        octave.stdin.write(code + "\n")
        octave.stdin.flush()

    def read_until(self, octave, words):
        said = ""
        while words not in said:
            line = octave.stdout.readline()
            self.assertTrue(line, said)
            said += line
        return said

    def hosts(self):
        """The process ids of the library's programs that this test has started, also by way of others."""
        found = []
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if HOST.encode() in (process / "cmdline").read_bytes() and \
                        f"VERDANTH_TEST_MARK={self.mark}".encode() in (process / "environ").read_bytes():
                    found.append(int(process.name))
            except OSError: # it has ended
                pass
        return found

    def assert_all_gone(self):
        end = time.monotonic() + 20
        while self.hosts():
            self.assertLess(time.monotonic(), end, f"still there: {self.hosts()}")
            time.sleep(0.05)

    def test_a_package_that_ends_its_process_is_told_of(self):
        for deed, reason in DEEDS.items():
            with self.subTest(deed):
                said = self.octave(f"""
                    h = natural_gas(); a = density(h);
                    say(@() capeOpenCreate('{deed}', ''));
                    say(@() density(h));
                    h = natural_gas();
                    printf('goes on: %d, packages: %d\\n', isequal(a, density(h)), numel(capeOpenHandleList()));""")
                told = re.search(r"error: The property package ended its process: (.*), in capeOpenCreate", said)
                self.assertTrue(told, said)
                self.assertIn(reason, told.group(1))
                self.assertIn(LOST.format(told.group(1)), said)
                self.assertIn("goes on: 1, packages: 1", said)
        self.assert_all_gone()

    def test_what_a_package_prints_does_no_harm(self):
        self.assertIn("opened: 1", self.octave("h = capeOpenCreate('prints', ''); printf('opened: %d\\n', isa(h, 'int32'));"))

    def test_a_package_that_loops_is_ended_after_its_time(self):
        said = self.octave("""
            capeOpenBackend('windows', 'TimeLimit', 4);
            h = natural_gas();
            begun = tic(); say(@() capeOpenCreate('loops', '')); printf('%.1f s\\n', toc(begun));
            say(@() density(h)); capeOpenBackend('windows', 'TimeLimit', Inf); say(@() density(natural_gas()) > 40);""")
        self.assertIn("error: The property package did not answer within 4 s, and its process was ended, in capeOpenCreate", said)
        self.assertIn(LOST.format("it did not answer within 4 s"), said)
        self.assertLess(float(re.search(r"([\d.]+) s\n", said).group(1)), 6)
        self.assertTrue(said.rstrip().endswith("1"), said)
        self.assert_all_gone()

    def test_the_second_interrupt_ends_a_package_that_loops(self):
        octave = self.started("h = natural_gas(); disp('begun'); fflush(stdout); capeOpenCreate('loops', ''); disp('not stopped')")
        self.read_until(octave, "begun")
        time.sleep(1)
        os.killpg(octave.pid, signal.SIGINT)
        self.type(octave, "disp('prompt again'); fflush(stdout); density(h), disp('not stopped')")
        begun = time.monotonic()
        said = self.read_until(octave, "prompt again")
        self.assertLess(time.monotonic() - begun, 1)
        self.assertEqual(len(self.hosts()), 1) # it may come to its end
        said += self.read_until(octave, "Verdanth: waiting for the call that was stopped; Ctrl-C ends its process")
        os.killpg(octave.pid, signal.SIGINT)
        self.type(octave, "say(@() density(h)); say(@() density(natural_gas()) > 40); exit")
        said += octave.communicate(timeout=60)[0]
        self.assertNotIn("not stopped", said)
        self.assertIn(LOST.format("it was ended by Ctrl-C"), said)
        self.assertTrue(said.rstrip().endswith("1"), said)
        self.assert_all_gone()

    def test_octave_that_is_killed_leaves_no_process(self):
        for code in ("natural_gas(); disp('ready'); fflush(stdout); pause(100)",
                     "natural_gas(); disp('ready'); fflush(stdout); capeOpenCreate('loops', '')"):
            octave = self.started(code)
            self.read_until(octave, "ready")
            time.sleep(0.5)
            self.assertEqual(len(self.hosts()), 1)
            octave.kill()
            octave.wait()
            self.assert_all_gone()

    def test_octave_that_ends_or_clears_all_leaves_no_process(self):
        octave = self.started("natural_gas(); clear all; disp('cleared'); fflush(stdout);")
        self.read_until(octave, "cleared")
        self.assertEqual(self.hosts(), [])
        self.type(octave, f"addpath('{SOURCE}/toolbox', '{LINUX}'); capeOpenHandleList()")
        octave.communicate("exit\n", timeout=60)
        self.assertEqual(octave.returncode, 0)
        self.assertEqual(self.hosts(), [])

    def test_a_process_that_is_killed_is_replaced(self):
        octave = self.started("h = natural_gas(); disp('ready'); fflush(stdout);")
        self.read_until(octave, "ready")
        os.kill(self.hosts()[0], signal.SIGKILL)
        time.sleep(0.2)
        said = octave.communicate("say(@() density(h)); say(@() density(natural_gas()) > 40); exit\n", timeout=60)[0]
        self.assertIn(LOST.format("signal 9"), said)
        self.assertTrue(said.rstrip().endswith("1"), said)

    def test_two_at_once_do_not_hinder_each_other(self):
        octaves = [self.started("h = natural_gas(); disp('ready'); fflush(stdout); for k = 1:200, density(h); end") for _ in range(2)]
        for octave in octaves:
            self.read_until(octave, "ready")
        self.assertEqual(len(self.hosts()), 2)
        for octave in octaves:
            said = octave.communicate("capeOpenCreate('writes to null', '')\nsay(@() density(natural_gas()) > 40)\nexit\n",
                                      timeout=60)[0]
            self.assertTrue(said.rstrip().endswith("1"), said)

    def test_another_back_end_closes_the_packages_of_the_one_before(self):
        said = self.octave("""
            h = natural_gas(); a = density(h);
            capeOpenBackend('native')
            say(@() density(h));
            printf('%d open, the same: %d\\n', numel(capeOpenHandleList()), isequal(a, density(natural_gas())));
            disp(capeOpenBackend()); [~, where] = capeOpenVersion()
            capeOpenBackend('windows');
            printf('then %d open\\n', numel(capeOpenHandleList())); [~, where] = capeOpenVersion()""")
        self.assertIn("error: Invalid property package handle\n  No package is open", said)
        self.assertIn("0 open, the same: 1", said)
        self.assertIn("where = native", said)
        self.assertIn("then 0 open", said)
        self.assertRegex(said, "where = windows: wine.*wine-octave-ill")
        self.assert_all_gone()

    def test_a_back_end_that_can_not_be_leaves_the_one_before(self):
        said = self.octave("""
            h = natural_gas();
            say(@() capeOpenBackend('windows', 'Prefix', '/proc/self/fdinfo/wine'));
            say(@() capeOpenBackend('mac'));
            say(@() capeOpenBackend('native', 'Prefix', '/'));
            say(@() capeOpenBackend('windows', 'Color', 1));
            say(@() capeOpenBackend('windows', 'Prefix', 1));
            say(@() capeOpenBackend('windows', 'TimeLimit', -1));
            say(@() capeOpenBackend('windows', 'TimeLimit'));
            printf('%s, as before: %d\\n', capeOpenBackend(), density(h) > 40);
            setenv('VERDANTH_BACKEND', 'other'); say(@() density(h));""", VERDANTH_BACKEND="native")
        option = "error: Expected 'Prefix' or 'TimeLimit' and a value for it\n"
        for line in ("error: The Wine prefix /proc/self/fdinfo/wine can not be made: No such file or directory.",
                     "error: Unknown back end \"mac\"; there are 'native', 'isolated' and 'windows'\n", option + option,
                     "error: Expected text for 'Prefix'\n", "error: Expected a positive number for 'TimeLimit'\n" + option,
                     "native, as before: 1", "error: VERDANTH_BACKEND is 'native' or 'windows', not 'other'"):
            self.assertIn(line, said)

    def test_an_interrupted_choice_leaves_the_one_before(self):
        with tempfile.NamedTemporaryFile("w", dir=BUILD, suffix=".sh", delete=False) as loader:
            self.addCleanup(os.remove, loader.name)
            loader.write("#!/bin/sh\nexec sleep 100\n")
        os.chmod(loader.name, 0o700)
        self.environment |= {"VERDANTH_BACKEND": "native", "VERDANTH_WINE_LOADER": loader.name}
        octave = self.started("h = natural_gas(); disp('begun'); fflush(stdout); capeOpenBackend('windows', 'TimeLimit', 5)")
        self.read_until(octave, "begun")
        time.sleep(1)
        os.killpg(octave.pid, signal.SIGINT)
        said = octave.communicate("printf('%s %s, as before: %d\\n', capeOpenBackend(), getenv('VERDANTH_TIME_LIMIT'), "
                                  "density(h) > 40)\nexit\n", timeout=60)[0]
        self.assertIn("native , as before: 1", said)

    def test_a_prefix_stays_the_same_in_another_folder(self):
        self.assertIn("the same: 1", self.octave(f"""
            cd('{BUILD}'); capeOpenBackend('windows', 'Prefix', 'wine-octave-ill'); h = natural_gas(); cd('/proc');
            printf('the same: %d\\n', density(h) > 40);""", VERDANTH_BACKEND=""))

    def test_a_warning_comes_once(self):
        said = self.octave("""
            a = Verdanth(25, natural_gas(), Z, 'Temperature', NaN, 'Pressure', 1e5, 'Unspecified', 1, 'vaporFraction');
            [~, where] = capeOpenBackend(); setenv('VERDANTH_BACKEND', 'other'); say(@() capeOpenVersion());""")
        self.assertIn("error: VERDANTH_BACKEND is", said)
        self.assertEqual(said.count("Temperature is not set"), 1, said)

    def test_a_prefix_is_made_at_first_use(self):
        """In folders with blanks and letters of other alphabets, of a user who has none yet."""
        with tempfile.TemporaryDirectory(prefix="Vérdanth ж ", dir=BUILD) as folder:
            lib = pathlib.Path(folder, "lib")
            (lib / "windows").mkdir(parents=True)
            for file in [*pathlib.Path(LINUX).glob("*.so"), pathlib.Path(LINUX, "Verdanth.mex")]:
                shutil.copy(file, lib)
            shutil.copytree(pathlib.Path(LINUX, "registry.d"), lib / "registry.d")
            for file in (HOST, "Verdanth.mexw64", "libmx.dll", "libmex.dll", "VerdanthReference.dll"):
                shutil.copy(BUILD / "windows-x64" / file, lib / "windows")
            for file in ("Verdanth6432Relay.exe", "CapeOpen11.tlb"):
                shutil.copy(BUILD / "windows-x86" / file, lib / "windows")
            del self.environment["VERDANTH_WINEPREFIX"]
            said = self.octave(f"""
                addpath('{lib}'); capeOpenBackend('windows'); printf('%s\\n', capeOpenManagerList(){{:}});
                [phases, fractions] = capeOpenFlash(natural_gas(), Z, 'Temperature', 220, 'Pressure', 40e5)""",
                XDG_DATA_HOME=f"{folder}/data", VERDANTH_BACKEND="")
            self.assertIn(f"Verdanth: a Wine prefix is made in {folder}/data/verdanth/wine, once", said)
            self.assertIn("Verdanth Natural Gas (stand-alone)\nVerdanth Reference Packages\n", said)
            self.assertRegex(said, r"0\.7911\s*0\.2089")
            subprocess.run(["wineserver", "-w"], env={**os.environ, "WINEPREFIX": f"{folder}/data/verdanth/wine"}, check=False,
                           timeout=60)


if __name__ == "__main__":
    outcome = unittest.TextTestRunner().run(UnderWine("test_" + sys.argv[1]))
    sys.exit(not outcome.wasSuccessful())

"""How scripts/run_suite.py and scripts/count_tests.py count:  test_run_suite.py SCRIPTS COMMAND...

COMMAND starts the program of broken_suites.cpp.
"""

import pathlib
import subprocess
import sys
import tempfile
import time
import unittest


class Runner(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # The first start under Wine may take longer than a case may that hangs.
        subprocess.run([*COMMAND, "--gtest_list_tests"], stdout=subprocess.DEVNULL, check=True)

    def setUp(self):
        folder = tempfile.TemporaryDirectory(dir=".")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()

    def start_by(self, *command):
        """Has the rest of a test start the program in another way."""
        self.addCleanup(globals().update, COMMAND=COMMAND)
        globals().update(COMMAND=list(command))

    def run_suite(self, suite, count, seconds=60):
        """The exit code, and what is noted of the suite."""
        cases = self.folder / "cases" / f"{suite.replace('/', '_')}.txt"
        command = [SCRIPTS / "run_suite.py", "--seconds", str(seconds), f"test.{suite}", cases, suite, str(count), *COMMAND]
        ended = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        self.said = ended.stdout
        name, *outcomes = cases.read_text(encoding="utf-8").splitlines()
        self.assertEqual(name, f"test.{suite}")
        return ended.returncode, outcomes

    def test_a_sound_suite_passes(self):
        self.assertEqual(self.run_suite("Sound", 2), (0, ["passed Sound.Passes", "passed Sound.PassesToo"]))

    def test_a_failure_is_its_own_alone(self):
        self.assertEqual(self.run_suite("Failing", 2), (1, ["passed Failing.Passes", "failed Failing.Fails"]))
        self.assertIn("on purpose", self.said)

    def test_a_skipped_case_is_neither(self):
        self.assertEqual(self.run_suite("Skipping", 2), (0, ["passed Skipping.Passes", "skipped Skipping.Skips"]))

    def test_a_crash_hides_no_other_case(self):
        expected = ["passed Crashing.Passes", "failed Crashing.Traps", "passed Crashing.PassesToo"]
        self.assertEqual(self.run_suite("Crashing", 3), (1, expected))
        self.assertIn("[  FAILED  ] Crashing.Traps: the program left no report", self.said)

    def test_a_program_that_leaves_with_success_has_not_passed(self):
        expected = ["passed Leaving.Passes", "failed Leaving.EndsTheProgramAsIfAllWereWell", "passed Leaving.PassesToo"]
        self.assertEqual(self.run_suite("Leaving", 3), (1, expected))

    def test_a_case_that_hangs_is_ended(self):
        self.assertEqual(self.run_suite("Hanging", 1, seconds=2), (1, ["failed Hanging.Hangs"]))
        self.assertIn("[  FAILED  ] Hanging.Hangs: the program took longer than 2 s", self.said)

    def test_what_a_program_leaves_behind_is_not_waited_for(self):
        self.start_by("sh", "-c", 'sleep 60 & exec "$0" "$@"', *COMMAND)
        begun = time.monotonic()
        self.assertEqual(self.run_suite("Failing", 2), (1, ["passed Failing.Passes", "failed Failing.Fails"]))
        self.assertLess(time.monotonic() - begun, 30)
        self.assertIn("on purpose", self.said)

    def test_cases_that_do_not_bear_each_other_fail_as_a_suite(self):
        expected = ["passed Quarrelling.First", "passed Quarrelling.Second", "failed Quarrelling.* in one process"]
        self.assertEqual(self.run_suite("Quarrelling", 2), (1, expected))

    def test_cases_with_parameters_keep_their_names(self):
        expected = [f"{'failed' if i == 2 else 'passed'} Numbers/OfEach.IsLessThanTwo/{i}" for i in range(3)]
        self.assertEqual(self.run_suite("Numbers/OfEach", 3), (1, expected))

    def test_a_case_that_is_missing_is_seen(self):
        self.assertEqual(self.run_suite("Sound", 3)[0], 1)
        self.assertIn("ran 2 cases of 3", self.said)

    def test_a_program_that_does_not_start_has_failed_with_all_its_cases(self):
        self.start_by("false")
        self.assertEqual(self.run_suite("Sound", 2), (1, ["failed Sound.*"] * 2))


class Counter(unittest.TestCase):
    def count(self, tests, suites):
        """The lines that count_tests.py writes for CTest's tests, pairs of a name and a content, and suites."""
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            results = folder / "results.xml"
            results.write_text(f"<testsuite>{''.join(tests)}</testsuite>", encoding="utf-8")
            for suite, outcomes in suites.items():
                (folder / f"{suite}.txt").write_text("\n".join([suite, *outcomes]) + "\n", encoding="utf-8")
            return subprocess.run([SCRIPTS / "count_tests.py", results, folder], stdout=subprocess.PIPE, text=True,
                                  check=True).stdout.splitlines()

    PASSED = '<testcase name="{}" status="run"/>'
    FAILED = '<testcase name="{}" status="fail"><failure message=""/></testcase>'
    NOT_RUN = '<testcase name="{}" status="notrun"><skipped message="Unable to find executable"/></testcase>'
    SKIPPED = '<testcase name="{}" status="notrun"><skipped message="SKIP_RETURN_CODE=77"/></testcase>'

    def test_a_test_without_cases_is_one(self):
        tests = [self.PASSED.format("a"), self.PASSED.format("b"), self.FAILED.format("c"), self.NOT_RUN.format("d"),
                 self.SKIPPED.format("e")]
        self.assertEqual(self.count(tests, {}), ["failed: c", "failed: d", "2 2 1"])

    def test_what_failed_is_named_with_the_end_of_what_it_said(self):
        said = "<system-out>{}</system-out></testcase>".format("\n".join(["first", *["more"] * 18, "why", "end", ""]))
        tests = [self.FAILED.format("a").replace("</testcase>", said),
                 '<testcase name="b" status="run"><system-out>nothing</system-out></testcase>']
        self.assertEqual(self.count(tests, {}), ["failed: a", *["    more"] * 18, "    why", "    end", "1 1 0"])

    def test_a_suite_counts_as_its_cases(self):
        tests = [self.PASSED.format("a"), self.FAILED.format("b")]
        suites = {"a": ["passed A.x", "passed A.y"], "b": ["passed B.x", "failed B.y", "skipped B.z"]}
        self.assertEqual(self.count(tests, suites), ["failed: b B.y", "3 1 1"])

    def test_a_suite_that_ctest_ended_fails_whatever_it_noted(self):
        self.assertEqual(self.count([self.FAILED.format("a")], {"a": ["passed A.x"]}), ["failed: a", "1 1 0"])

    def test_notes_of_suites_that_did_not_run_are_not_counted(self):
        self.assertEqual(self.count([self.PASSED.format("a")], {"b": ["passed B.x"]}), ["1 0 0"])


SCRIPTS = pathlib.Path(sys.argv[1])
COMMAND = sys.argv[2:]

if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

#!/usr/bin/env python3
"""Runs one suite of a GoogleTest program in one process and notes how each of its cases ended:

    run_suite.py [--seconds N] NAME CASES SUITE COUNT COMMAND...

NAME is what CTest calls the suite, CASES the file for the outcome, COUNT how many cases the suite has. COMMAND starts the
program. A case has passed when the program's own report says so and the program ended well. A program that crashed,
hung or found fault with itself at its end tells nothing about single cases, so then each runs by itself. If they all
pass, the suite as a whole has failed, which counts as a case more. --seconds is how long one process may take.

The first line of CASES is NAME, and every other one "passed", "failed" or "skipped" and a case: see count_tests.py.
"""

import argparse
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import xml.etree.ElementTree


class Suite:
    def __init__(self, arguments):
        self.cases = pathlib.Path(arguments.cases)
        self.report = self.cases.with_suffix(".xml")
        self.command = arguments.command
        self.seconds = arguments.seconds

    def run(self, cases):
        """Runs the cases that match in one process. Gives the outcome of each that it reports, and what was wrong with
        the process: None if it ended well, or with an exit code that reported failures explain."""
        self.report.unlink(missing_ok=True)
        # Relative, because a Windows program takes a path that begins with a slash for one below its folder.
        report = os.path.relpath(self.report)
        command = [*self.command, f"--gtest_filter={cases}", f"--gtest_output=xml:{report}", "--gtest_brief=1"]
        status = self.wait(command)
        outcomes = self.reported()
        if status is None:
            return {}, f"took longer than {self.seconds} s"
        if outcomes is None:
            return {}, f"left no report and ended with {status}"
        if status != 0 and "failed" not in outcomes.values():
            return outcomes, f"ended with {status}"
        return outcomes, None

    def wait(self, command):
        """The exit code, or None for a process that took too long.

        What it says goes through a file: something of Wine's that it leaves behind would hold a pipe, of which CTest waits
        for the end, for good."""
        with tempfile.TemporaryFile() as said:
            process = subprocess.Popen(command, start_new_session=True, stdout=said, stderr=subprocess.STDOUT)
            try:
                return process.wait(self.seconds)
            except subprocess.TimeoutExpired:
                return None
            finally:
                if process.poll() is None:
                    os.killpg(process.pid, signal.SIGKILL)
                    process.wait()
                said.seek(0)
                print(said.read().decode(errors="replace"), end="", flush=True)

    def reported(self):
        """What the program said of each case; None without a whole report."""
        try:
            root = xml.etree.ElementTree.parse(self.report).getroot()
        except (FileNotFoundError, xml.etree.ElementTree.ParseError):
            return None
        self.report.unlink()
        return {f"{suite.get('name')}.{case.get('name')}": outcome(case) for suite in root for case in suite}

    def alone(self, case):
        """The outcome of one case in a process of its own."""
        outcomes, fault = self.run(case)
        if fault or list(outcomes) != [case]:
            print(f"[  FAILED  ] {case}: the program {fault or 'did not run it'}")
            return "failed"
        return outcomes[case]

    def names(self, cases):
        listed = subprocess.run([*self.command, f"--gtest_filter={cases}", "--gtest_list_tests"],
                                stdout=subprocess.PIPE, text=True, timeout=120, check=False).stdout
        names = []
        for line in listed.splitlines():
            words = line.split("#")[0].rstrip()
            if words.endswith(".") and not words.startswith(" "):
                suite = words
            elif words.startswith("  "):
                names.append(suite + words.strip())
        return names

    def write(self, name, outcomes):
        self.cases.parent.mkdir(parents=True, exist_ok=True)
        lines = [name, *(f"{result} {case}" for case, result in outcomes)]
        self.cases.write_text("\n".join(lines) + "\n", encoding="utf-8")


def outcome(case):
    if case.find("failure") is not None:
        return "failed"
    if case.get("status") != "run" or case.get("result") == "skipped":
        return "skipped"
    return "passed" if case.get("result") == "completed" else "failed"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--seconds", type=int, default=120)
    parser.add_argument("name")
    parser.add_argument("cases")
    parser.add_argument("suite")
    parser.add_argument("count", type=int)
    parser.add_argument("command", nargs=argparse.REMAINDER)
    arguments = parser.parse_args()

    suite = Suite(arguments)
    # What stands there if this script does not live to tell more.
    suite.write(arguments.name, [(f"{arguments.suite}.*", "failed")] * arguments.count)

    all_cases = f"{arguments.suite}.*"
    outcomes, fault = suite.run(all_cases)
    if not fault and len(outcomes) != arguments.count:
        fault = f"ran {len(outcomes)} cases of {arguments.count}"
    if fault:
        print(f"{all_cases}: the program {fault}; now each case by itself", flush=True)
        names = suite.names(all_cases)
        if len(names) != arguments.count:
            print(f"[  FAILED  ] {all_cases}: the program lists {len(names)} cases of {arguments.count}")
            return 1
        outcomes = {case: suite.alone(case) for case in names}
        if "failed" not in outcomes.values():
            print(f"[  FAILED  ] {all_cases}: the program {fault}, though each case passes by itself")
            outcomes[f"{all_cases} in one process"] = "failed"
    suite.write(arguments.name, outcomes.items())
    return 1 if "failed" in outcomes.values() else 0


if __name__ == "__main__":
    sys.exit(main())

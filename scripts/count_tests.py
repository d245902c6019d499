#!/usr/bin/env python3
"""Counts what CTest wrote down about its tests:  count_tests.py RESULTS CASES

RESULTS is CTest's JUnit file. CASES is the folder in which run_suite.py notes how the cases of a suite ended: such a
suite counts as its cases, any other test as one. Names what failed, with the end of what it said; the last line has
three numbers: how many passed, failed and were skipped. Whatever could not be run has failed.
"""

import collections
import pathlib
import sys
import xml.etree.ElementTree


def cases_of_suites(folder):
    """By CTest's name of the suite: pairs of an outcome and a case."""
    suites = {}
    for file in sorted(folder.glob("*.txt")):
        name, *lines = file.read_text(encoding="utf-8").splitlines()
        suites[name] = [tuple(line.split(" ", 1)) for line in lines]
    return suites


def outcome(test):
    if test.get("status") == "run":
        return "passed"
    skipped = test.find("skipped")
    return "skipped" if skipped is not None and skipped.get("message", "").startswith("SKIP_") else "failed"


def end_of_output(test):
    """The last lines that a test wrote, indented."""
    lines = (test.findtext("system-out") or "").rstrip().splitlines()
    return [f"    {line}\n" for line in lines[-20:]]


def main():
    suites = cases_of_suites(pathlib.Path(sys.argv[2]))
    counts = collections.Counter()
    for test in xml.etree.ElementTree.parse(sys.argv[1]).getroot().iter("testcase"):
        name = test.get("name")
        cases = suites.get(name, [(outcome(test), "")])
        if outcome(test) == "failed" and all(result != "failed" for result, _ in cases):
            cases = [*cases, ("failed", "")]
        for result, case in cases:
            counts[result] += 1
            if result == "failed":
                print(f"failed: {name} {case}".rstrip())
        if any(result == "failed" for result, _ in cases):
            print("".join(end_of_output(test)), end="")
    print(counts["passed"], counts["failed"], counts["skipped"])


if __name__ == "__main__":
    main()

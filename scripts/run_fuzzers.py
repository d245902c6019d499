#!/usr/bin/env python3
"""Runs targets of libFuzzer for a while each and says what came of it:

    run_fuzzers.py --minutes N --jobs N BUILD NAME...

A target has had its time when its processes have used that much of a processor, or when it has found something, which
then lies in BUILD/findings/NAME/. It starts from fuzz/corpus/NAME/ and from what it has gathered itself in
BUILD/corpus/NAME/; fuzz/NAME.dict, if there is one, is its dictionary. The exit code is 1 if anything was found.
"""

import argparse
import concurrent.futures
import os
import pathlib
import re
import resource
import subprocess
import sys

root = pathlib.Path(__file__).resolve().parent.parent
SANITIZERS = {
    "ASAN_OPTIONS": "detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1",
    "UBSAN_OPTIONS": "print_stacktrace=1",
}
TIMEOUT = 70  # libFuzzer's exit code


class Target:
    def __init__(self, name, build, seconds):
        self.name = name
        self.seconds = seconds  # of processor time
        self.program = build / f"fuzz_{name}"
        self.seeds = root / "fuzz" / "corpus" / name
        self.corpus = build / "corpus" / name
        self.findings = build / "findings" / name
        self.log = build / "findings" / f"{name}.log"
        self.used = 0.0
        self.executions = 0
        self.edges = 0
        self.files = 0
        self.found = []

    def run(self):
        for folder in (self.seeds, self.corpus, self.findings):
            folder.mkdir(parents=True, exist_ok=True)
        self.log.write_bytes(b"")
        start = self.log.stat().st_mtime  # what an earlier run has found may be found and written once more
        while not self.found and self.used < self.seconds:
            status = self.run_once(max(1, round(self.seconds - self.used)))
            written = sorted(file for file in self.findings.iterdir() if file.stat().st_mtime >= start)
            self.found = [file for file in written if not self.was_slow(file)]
            was_only_slow = status == TIMEOUT and written
            if status != 0 and not self.found and not was_only_slow:
                self.found = [self.log]
        return self

    def was_slow(self, file):
        """libFuzzer's clock goes on while the machine does something else: whether a file only took long then.

        A flash at neither temperature nor pressure that is refused after all that one may try, 1.6 s as it ships, takes
        40 with sanitizers, and an input may ask for several."""
        if not file.name.startswith(("timeout-", "slow-unit-")):
            return False
        again = subprocess.run([self.program, file], capture_output=True, check=False,
                               preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_CPU, (300, 300)))
        if again.returncode == 0:
            file.unlink()
        return again.returncode == 0

    def run_once(self, seconds):
        """A process of so many seconds, in which a busy machine gives it less of the processor."""
        command = [
            self.program, f"-max_total_time={seconds}", "-timeout=120", "-rss_limit_mb=2048", "-detect_leaks=1",
            "-print_final_stats=1", f"-artifact_prefix={self.findings}/", self.corpus, self.seeds,
        ]
        dictionary = root / "fuzz" / f"{self.name}.dict"
        if dictionary.exists():
            command.insert(1, f"-dict={dictionary}")
        start = self.log.stat().st_size
        with open(self.log, "ab") as log:
            process = subprocess.Popen(command, stdout=log, stderr=log, env={**os.environ, **SANITIZERS})
            _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.used += usage.ru_utime + usage.ru_stime
        self.read(self.log.read_bytes()[start:].decode(errors="replace"))
        return process.returncode

    def read(self, text):
        """What libFuzzer says of one process."""
        progress = re.findall(r"^#(\d+)\t.*? cov: (\d+) .*?corp: (\d+)/", text, re.MULTILINE)
        executed = re.findall(r"^stat::number_of_executed_units: *(\d+)", text, re.MULTILINE)
        if progress:
            self.edges, self.files = int(progress[-1][1]), int(progress[-1][2])
        if executed or progress:
            self.executions += int(executed[-1] if executed else progress[-1][0])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--minutes", type=float, required=True)
    parser.add_argument("--jobs", type=int, required=True)
    parser.add_argument("build", type=lambda path: pathlib.Path(path).resolve())
    parser.add_argument("names", nargs="+")
    arguments = parser.parse_args()

    targets = [Target(name, arguments.build, 60 * arguments.minutes) for name in arguments.names]
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for target in concurrent.futures.as_completed([pool.submit(target.run) for target in targets]):
            print(f"{target.result().name} has had its time.", flush=True)

    print(f"\n{'target':18} {'minutes':>8} {'executions':>12} {'exec/s':>8} {'cov':>7} {'corpus':>7} {'findings':>9}")
    for target in targets:
        print(f"{target.name:18} {target.used / 60:8.1f} {target.executions:12} "
              f"{target.executions / max(target.used, 0.01):8.0f} {target.edges:7} {target.files:7} {len(target.found):9}")
    for target in targets:
        for file in target.found:
            print(f"\n{target.name}: {file.relative_to(root)}; what was wrong: {target.log.relative_to(root)}\n"
                  f"once more: {target.program.relative_to(root)} {file.relative_to(root)}")
    return 1 if any(target.found for target in targets) else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""What scripts/tidy.py remembers, in a small project with a stand-in for clang-tidy: it finds fault with a source that
says FAULT, and keeps a list of what it has looked at."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

TIDY = pathlib.Path(sys.argv[1]).resolve()

CLANG_TIDY = """#!/bin/sh
[ "$1" != --version ] || { echo stand-in 1; exit; }
for source in "$@"; do :; done
echo "${source##*/}" >>looked_at
! grep FAULT "$source"
"""

NINJA = """
rule compile
    command = g++ -MD -MF $out.d -o $out -c $in
    depfile = $out.d
    deps = gcc
build build.ninja: phony
build one.o: compile ../one.cpp
build two.o: compile ../two.cpp
"""


class TidyTest(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)
        for folder in ("scripts", "build", "bin"):
            (self.root / folder).mkdir()
        shutil.copy(TIDY, self.root / "scripts")
        self.write("bin/clang-tidy", CLANG_TIDY)
        (self.root / "bin/clang-tidy").chmod(0o755)
        self.write("build/build.ninja", NINJA)
        self.write(".clang-tidy", "Checks: all\n")
        self.write("shared.h", "int shared();\n")
        self.write("one.cpp", '#include "shared.h"\n')
        self.write("two.cpp", "int two();\n")

    def write(self, name, text):
        """An earlier change than those that the script takes for one that happens while it runs."""
        (self.root / name).write_text(text, encoding="ascii")
        os.utime(self.root / name, (time.time() - 1, time.time() - 1))

    def build(self):
        subprocess.run(["ninja", "--quiet", "-C", self.root / "build"], check=True)
        commands = subprocess.run(["ninja", "-C", "build", "-t", "compdb", "compile"], cwd=self.root, check=True, capture_output=True)
        (self.root / "build/compile_commands.json").write_bytes(commands.stdout)

    def looked_at(self, *options, clean=True):
        """The sources that a run after a build looks at."""
        self.build()
        log = self.root / "looked_at"
        log.write_text("")
        path = f"{self.root / 'bin'}:{os.environ['PATH']}"
        run = subprocess.run([sys.executable, "-B", "scripts/tidy.py", *options, "build"], cwd=self.root, capture_output=True,
                             text=True, env={**os.environ, "PATH": path})
        self.assertEqual(run.returncode, 0 if clean else 1, run.stdout + run.stderr)
        return sorted(log.read_text().split())

    def test_a_first_run_looks_at_all_and_a_second_at_nothing(self):
        self.assertEqual(self.looked_at(), ["one.cpp", "two.cpp"])
        self.assertEqual(self.looked_at(), [])

    def test_all_looks_at_what_is_clean(self):
        self.looked_at()
        self.assertEqual(self.looked_at("--all"), ["one.cpp", "two.cpp"])

    def test_a_source_is_looked_at_when_it_changes(self):
        self.looked_at()
        self.write("two.cpp", "int three();\n")
        self.assertEqual(self.looked_at(), ["two.cpp"])

    def test_a_header_brings_back_those_that_include_it(self):
        self.looked_at()
        self.write("shared.h", "int altered();\n")
        self.assertEqual(self.looked_at(), ["one.cpp"])

    def test_a_file_with_a_new_time_is_the_same_file(self):
        self.looked_at()
        self.write("shared.h", "int shared();\n")
        self.assertEqual(self.looked_at(), [])

    def test_what_was_clean_once_is_known_when_it_comes_back(self):
        self.looked_at()
        self.write("two.cpp", "int three();\n")
        self.looked_at()
        self.write("two.cpp", "int two();\n")
        self.assertEqual(self.looked_at(), [])

    def test_other_checks_bring_back_all(self):
        self.looked_at()
        self.write(".clang-tidy", "Checks: more\n")
        self.assertEqual(self.looked_at(), ["one.cpp", "two.cpp"])

    def test_another_compile_command_brings_back_all(self):
        self.looked_at()
        self.write("build/build.ninja", NINJA.replace("g++", "g++ -DMORE"))
        self.assertEqual(self.looked_at(), ["one.cpp", "two.cpp"])

    def test_another_clang_tidy_brings_back_all(self):
        self.looked_at()
        self.write("bin/clang-tidy", CLANG_TIDY.replace("stand-in 1", "stand-in 2"))
        self.assertEqual(self.looked_at(), ["one.cpp", "two.cpp"])

    def test_a_finding_is_looked_at_until_it_is_gone(self):
        self.write("two.cpp", "// FAULT\n")
        self.assertEqual(self.looked_at(clean=False), ["one.cpp", "two.cpp"])
        self.assertEqual(self.looked_at(clean=False), ["two.cpp"])
        self.write("two.cpp", "int two();\n")
        self.assertEqual(self.looked_at(), ["two.cpp"])
        self.assertEqual(self.looked_at(), [])

    def test_what_changes_during_the_run_is_not_remembered(self):
        self.write("bin/clang-tidy", CLANG_TIDY + 'status=$?\ncase $source in */two.cpp) touch "$source" ;; esac\nexit $status\n')
        self.looked_at()
        self.assertEqual(self.looked_at(), ["two.cpp"])

    def test_what_is_not_built_is_not_remembered(self):
        self.looked_at()
        (self.root / "build/.ninja_deps").unlink()
        (self.root / "build/build.ninja").write_text(NINJA.replace("deps = gcc\n", "\n"))
        self.assertEqual(self.looked_at(), ["one.cpp", "two.cpp"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

#!/usr/bin/env python3
"""Runs clang-tidy over the sources of a build folder, as many at a time as there are processors.

    scripts/tidy.py [--all] BUILD

A source that was clean is left out while all that clang-tidy would read is as it was: the source, every file that it
includes, its compile command, the lists of checks, clang-tidy itself. BUILD/clang-tidy has a mark for every such state,
so that one that comes back is known again. With --all the marks don't count. BUILD has to be built with Ninja, whose log
tells what each source includes; what is not in the log is looked at every time.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent


def normal(folder, path):
    return pathlib.Path(os.path.normpath(folder / path))


def sources_of_project(build):
    """The compile commands of each source, without those of libraries elsewhere and of what the build has written."""
    sources = {}
    for unit in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        source = normal(build, unit["file"])
        if source.is_relative_to(ROOT) and not source.is_relative_to(build):
            sources.setdefault(source, []).append(unit["command"])
    return sources


def recorded_dependencies(build):
    """What each output of the build was made from. A precompiled header counts as what it was made from itself."""
    recorded, files = {}, None
    log = subprocess.run(["ninja", "-C", build, "-t", "deps"], check=True, capture_output=True, text=True).stdout
    for line in log.splitlines():
        if line.startswith(" "):
            files.add(normal(build, line.strip()))
        elif ": #deps " in line:
            files = recorded.setdefault(normal(build, line.partition(": #deps ")[0]), set())
    for files in recorded.values():
        for output in files & recorded.keys():
            files.remove(output)
            files |= recorded[output]
    return recorded


class States:
    """Gives the state of a source, its commands included, a name: the same one while nothing changes."""

    def __init__(self, build):
        self.build = build
        self.dependencies = recorded_dependencies(build)
        self.version = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True).stdout
        self.start = time.time()
        self.hashes = {}

    def hash_of(self, path):
        if path not in self.hashes:
            self.hashes[path] = hashlib.sha256(path.read_bytes()).digest()
        return self.hashes[path]

    def files_read(self, source, commands):
        """None unless it is known for each command."""
        files = {folder / ".clang-tidy" for folder in source.parents if (folder / ".clang-tidy").is_file()}
        for command in commands:
            words = shlex.split(command)
            included = self.dependencies.get(normal(self.build, words[words.index("-o") + 1]))
            if not included:
                return None
            files |= included
        return files | {source}

    def name(self, source, commands):
        """None for a source that can't be remembered, be it for a file that is being written just now."""
        files = self.files_read(source, commands)
        if files is None or not all(path.is_file() and path.stat().st_mtime < self.start for path in files):
            return None
        state = hashlib.sha256(self.version)
        for text in sorted(commands):
            state.update(text.encode())
        for path in sorted(files):
            state.update(bytes(path) + self.hash_of(path))
        return state.hexdigest()


def look(build, states, marks, source, commands):
    """True if the source is clean; otherwise what clang-tidy finds has been printed."""
    tidy = subprocess.run(["clang-tidy", "--quiet", "-p", build, source], capture_output=True, text=True)
    if tidy.returncode != 0:
        print(tidy.stdout + tidy.stderr, flush=True)
        return False
    if state := states.name(source, commands):
        (marks / state).touch()
    return True


def main():
    *options, build = sys.argv[1:] or [""]
    if options not in ([], ["--all"]) or not pathlib.Path(build, "compile_commands.json").is_file():
        sys.exit(__doc__)
    build = pathlib.Path(build).resolve()
    marks = build / "clang-tidy"
    marks.mkdir(exist_ok=True)

    sources, states = sources_of_project(build), States(build)
    known = set() if options else {mark.name for mark in marks.iterdir()}
    wanted = [source for source in sorted(sources) if states.name(source, sources[source]) not in known]
    print(f"{len(wanted)} of {len(sources)} sources to look at", flush=True)
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        clean = list(pool.map(lambda source: look(build, states, marks, source, sources[source]), wanted))
    sys.exit(not all(clean))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Plants one fault at a time into the sources, builds, runs the tests and puts the source back.

A fault that no test notices marks a place where the tests do not earn their lines. The faults are
listed in scripts/faults.txt; each names a file, the text to find (exactly once) and what to put in
its place. Run from the project folder after a normal build:

    python3 scripts/plant-faults.py [--build-dir build] [--only WORD] [--from N] [--jobs 2]
                                    [--tests REGEX]

--tests runs only the tests whose names match (ctest -R), for a quicker pass while working on one
area; the full run is the one that counts.

It prints a line per fault (caught, MISSED, "not planted" when the text is no longer in the file
exactly once, "does not build" when the fault breaks the build) and the catch rate. The source is always restored, also when the run is interrupted.
"""
import argparse
import os
import subprocess
import sys
from dataclasses import dataclass

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


@dataclass
class Fault:
    title: str
    path: str = ""
    old: str = ""
    new: str = ""


def unescape(text):
    return text.replace("\\n", "\n")


def read_faults(list_path):
    faults = []
    with open(list_path, encoding="utf-8") as listing:
        for line in listing.read().splitlines():
            if line.startswith("## "):
                faults.append(Fault(line[3:].strip()))
            elif not faults or not line.strip() or line.startswith("#"):
                continue
            elif line.startswith("file: "):
                faults[-1].path = line[6:].strip()
            elif line.startswith("-"):
                faults[-1].old = unescape(line[1:])
            elif line.startswith("+"):
                faults[-1].new = unescape(line[1:])
    return faults


def run(command, cwd, timeout):
    try:
        return subprocess.run(command, cwd=cwd, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              timeout=timeout).returncode
    except subprocess.TimeoutExpired:
        return -1  # a hang counts as noticed: the test run failed


def try_fault(fault, build_dir, jobs, tests_regex):
    path = os.path.join(ROOT, fault.path)
    with open(path, encoding="utf-8") as source:
        original = source.read()
    if original.count(fault.old) != 1:
        return "not planted"
    try:
        with open(path, "w", encoding="utf-8") as source:
            source.write(original.replace(fault.old, fault.new))
        if run(["cmake", "--build", build_dir, "-j", str(jobs)], ROOT, 1800) != 0:
            return "does not build"
        selection = ["-R", tests_regex] if tests_regex else []
        tests = run(["ctest", "-j", str(jobs), "--timeout", "120"] + selection, build_dir, 1800)
        return "caught" if tests != 0 else "MISSED"
    finally:
        with open(path, "w", encoding="utf-8") as source:
            source.write(original)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build-dir", default=os.path.join(ROOT, "build"))
    parser.add_argument("--list", default=os.path.join(ROOT, "scripts", "faults.txt"))
    parser.add_argument("--only", help="plant only the faults whose title contains this word")
    parser.add_argument("--from", dest="first", type=int, default=1,
                        help="start with the n-th fault of the list (counting from 1)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count() or 2)
    parser.add_argument("--tests", help="run only the tests whose names match this regular expression")
    args = parser.parse_args()

    faults = read_faults(args.list)[max(args.first, 1) - 1:]
    faults = [f for f in faults if not args.only or args.only in f.title]
    results = []
    for fault in faults:
        outcome = try_fault(fault, os.path.abspath(args.build_dir), args.jobs, args.tests)
        results.append(outcome)
        print(f"{outcome:15} {fault.title}", flush=True)
    # Rebuild the restored sources so that the build folder matches the tree again.
    run(["cmake", "--build", os.path.abspath(args.build_dir), "-j", str(args.jobs)], ROOT, 1800)
    planted = [r for r in results if r in ("caught", "MISSED")]
    caught = [r for r in planted if r == "caught"]
    print(f"{len(caught)} of {len(planted)} planted faults caught"
          + (f", {len(results) - len(planted)} not planted or not built" if len(planted) < len(results) else ""))
    return 0 if len(caught) == len(planted) else 1


if __name__ == "__main__":
    sys.exit(main())

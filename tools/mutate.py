#!/usr/bin/env python3
"""Do the tests notice small faults? mutate.py [--work FOLDER] [--program NAME]...

Puts the faults of tests/mutations.json one at a time into a copy of the tree, builds what they change, and runs the
test program of that core, which ought to fail. Fails itself where fewer than 95 % are caught, or where a
fault's old text does not stand exactly once in its file. A work folder that is given is kept, so that the next run
builds less. With programs named, only their faults are tried.
"""
import argparse
import collections
import json
import pathlib
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
LEAST_SHARE = 0.95
PATIENCE = 300  # seconds for a test program that a fault keeps from ending


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)


def copy_tree(tree):
    """As git sees the files, with their changes; what is the same stays as it is, so that it isn't built again."""
    names = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                           capture_output=True, check=True, text=True).stdout.split("\0")
    for name in filter(None, names):
        source, target = ROOT / name, tree / name
        if not source.is_file() or (target.is_file() and target.read_bytes() == source.read_bytes()):
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(source.read_bytes())
        target.chmod(source.stat().st_mode)


def build(folder, programs):
    return run(["cmake", "--build", folder, "--target", *programs]).returncode == 0


def test_fails(folder, program):
    try:
        return run([folder / "bin" / program, "--gtest_brief=1", "--gtest_fail_fast"], cwd=folder,
                   env={"PATH": "/usr/bin:/bin", "QT_QPA_PLATFORM": "offscreen"}, timeout=PATIENCE).returncode != 0
    except subprocess.TimeoutExpired:
        return True


def outcome_of(mutation, tree, folder):
    path = tree / mutation["file"]
    text = path.read_text()
    if text.count(mutation["old"]) != 1:
        return "not found once"
    try:
        path.write_text(text.replace(mutation["old"], mutation["new"]))
        if not build(folder, [mutation["program"]]):
            return "not built"
        return "caught" if test_fails(folder, mutation["program"]) else "slipped"
    finally:
        path.write_text(text)


def check(mutations, work):
    tree, folder = work / "tree", work / "build"
    copy_tree(tree)
    programs = sorted({mutation["program"] for mutation in mutations})
    if not (folder / "build.ninja").exists():
        run(["cmake", "-S", tree, "-B", folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
             "-DCMAKE_CXX_FLAGS_DEBUG=-O0"], check=True)
    if not build(folder, programs):
        sys.exit("The tree does not build")
    for program in programs:
        if test_fails(folder, program):
            sys.exit(f"{program} fails without a fault")
    outcomes = collections.Counter()
    for mutation in mutations:
        start = time.monotonic()
        outcome = outcome_of(mutation, tree, folder)
        outcomes[outcome] += 1
        print(f"{outcome:14} {time.monotonic() - start:4.0f} s  {mutation['file']}: {mutation['old']}  ->  "
              f"{mutation['new']}", flush=True)
    return outcomes


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--work", type=pathlib.Path)
    arguments.add_argument("--program", action="append")
    chosen = arguments.parse_args()
    work = chosen.work
    mutations = [mutation for mutation in json.loads((ROOT / "tests/mutations.json").read_text())
                 if not chosen.program or mutation["program"] in chosen.program]
    if work:
        outcomes = check(mutations, work.resolve())
    else:
        with tempfile.TemporaryDirectory(prefix="korvel-mutations-") as folder:
            outcomes = check(mutations, pathlib.Path(folder))
    print(", ".join(f"{count} {outcome}" for outcome, count in sorted(outcomes.items())), "of", len(mutations))
    return 0 if outcomes["caught"] >= LEAST_SHARE * len(mutations) and not outcomes["not found once"] else 1


if __name__ == "__main__":
    sys.exit(main())

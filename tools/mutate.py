#!/usr/bin/env python3
"""Do the tests notice small faults? mutate.py [--count N] [--seed N] [--room FOLDER]... [--list] [--afresh]

Draws faults (tools/faults.py) over all lines of the cores with a seed, puts them in one at a time, and runs the test
programs of the room, which ought to fail. A fault that does not compile is drawn anew. Fails where less than 97 % of those
that change something are caught. tests/mutations.json names faults that change nothing, with the reason; so does the
compiler, where the optimised code stays the same.

Works on a copy in build/mutation and keeps there what came out, so that it can be stopped and started again; what slipped
is tried again where the test programs have changed. Draws are stable: a line that moves or comes in changes no others.
"""
import argparse
import collections
import hashlib
import json
import os
import pathlib
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import time

import faults
import tracked

ROOT = pathlib.Path(__file__).resolve().parent.parent
LEAST_SHARE = 0.97
LEAST_PATIENCE, PATIENCE = 10, 12  # seconds, and times the program's own, until a program counts as hung
MOST_OBJECTS = 3  # a header that more object files of a program include is left out
QUICK = "0.1"      # of the rounds of tests with random input, in a first run of long programs
FLAGS = "-w -D_GLIBCXX_ASSERTIONS"  # no warnings; what runs over a container's end stops, as it does under the sanitizers
HEADERS = ("algorithm", "array", "charconv", "cmath", "functional", "map", "memory", "optional", "set", "span", "string",
           "string_view", "variant", "vector")  # compiled once, before all mutants: that halves the time of each
MEMORY, FILE_SIZE = 6 << 30, 1 << 30

# The test programs of a room, where it isn't named after its folder alone. What passes the first goes to the next.
PROGRAMS = {
    "src/basic": ["basic_tests", "form_scaling_tests", "results_tests"],
    "src/drawing": ["drawing_tests", "graphs_draw_tests", "reports_tests"],
    "src/global": ["runs_tests", "results_tests", "graphs_setup_tests", "graphs_draw_tests", "app_tests"],
    "src/platform": ["platform_tests", "reports_tests"],
}
# Windows, callers run as programs of their own, and what another system compiles.
WITHOUT_CORE = ("src/toolkit/", "src/drawing/paint/", "src/commands/", "src/explore/tables/", "src/explore/window/",
                "engine/windows/")


def is_core(name):
    path = pathlib.PurePosixPath(name)
    return (path.suffix in (".cpp", ".h") and path.parts[0] in ("src", "engine") and not path.name.startswith("frm")
            and path.name != "main.cpp" and not name.startswith(WITHOUT_CORE))


def room_of(name):
    return name.rpartition("/")[0]


def programs_of(room):
    return PROGRAMS.get(room) or [room.replace("src/", "").replace("/", "_") + "_tests"]


def rank(seed, *words):
    return hashlib.sha256(json.dumps([seed, *words]).encode()).hexdigest()


def drawn(all_faults, seed):
    """One fault of each line, in the order of the draw."""
    chosen = {}
    for fault in all_faults:
        line = (fault.file, fault.line)
        if line not in chosen or rank(seed, *fault.key()) < rank(seed, *chosen[line].key()):
            chosen[line] = fault
    return sorted(chosen.values(), key=lambda fault: rank(seed, "line", fault.file, fault.old_line, fault.nth))


class Known:
    """Faults that change nothing, each with its reason: {file: [{"old", "new", "reason"}...]}."""

    def __init__(self, path):
        self.reasons = {(file, entry["old"], entry["new"], entry.get("nth", 1)): entry["reason"]
                        for file, entries in json.loads(path.read_text()).items() for entry in entries}

    def stale(self, all_faults):
        """Entries whose line is not there any more."""
        there = {fault.key() for fault in all_faults}
        return [key for key in self.reasons if key not in there]


class Results:
    """What came out, a line each, appended as it comes."""

    def __init__(self, path):
        self.path = path
        self.by_key = {}
        for line in path.read_text().splitlines() if path.exists() else ():
            result = json.loads(line)
            self.by_key[tuple(result["key"])] = result

    def put(self, fault, outcome, seconds, tests):
        result = {"key": fault.key(), "kind": fault.kind, "outcome": outcome, "seconds": round(seconds, 1), "tests": tests}
        self.by_key[fault.key()] = result
        with self.path.open("a") as file:
            file.write(json.dumps(result) + "\n")

    def outcome(self, fault, tests):
        """None where it has to be tried: never seen, or it slipped through other tests than today's."""
        result = self.by_key.get(fault.key())
        if result is None or (result["outcome"] == "slipped" and result["tests"] != tests):
            return None
        return result["outcome"]


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)


def limit():
    os.setsid()
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_SIZE, FILE_SIZE))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Workshop:
    """A copy of the tree, built once; mutants are compiled beside it, so that nothing has to be put back."""

    def __init__(self, work):
        self.work, self.tree, self.build = work, work / "tree", work / "build"
        self.headers = work / "headers/std.h"
        self.links, self.seconds, self.digests = {}, {}, {}

    def prepare(self, programs):
        copy_tree(self.tree)
        made = run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    f"-DCMAKE_CXX_FLAGS={FLAGS}", "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=gold"])
        if made.returncode:
            sys.exit(made.stdout)
        made = run(["cmake", "--build", self.build, "-j1", "--target", *programs])
        if made.returncode:
            sys.exit(made.stdout[-3000:] + "The tree does not build")
        commands = self.ninja("commands", *programs).splitlines()
        self.compiles = {words[words.index("-o") + 1]: words for words in map(shlex.split, commands) if "-c" in words}
        for program in programs:
            link = shlex.split(self.ninja("commands", "-s", f"bin/{program}"))
            self.links[program] = [word for word in link[link.index("&&") + 1:]][:-2]
        self.includers = self.read_includers()
        self.compile_headers()
        for program in programs:
            self.measure(program)

    def compile_headers(self):
        self.headers.parent.mkdir(exist_ok=True)
        self.headers.write_text("".join(f"#include <{name}>\n" for name in HEADERS))
        compiler = next(iter(self.compiles.values()))[0]
        run([compiler, "-std=c++20", "-O0", *FLAGS.split(), "-x", "c++-header", self.headers, "-o", f"{self.headers}.gch"])

    def ninja(self, tool, *arguments):
        return subprocess.run(["ninja", "-C", self.build, "-t", tool, *arguments], capture_output=True, text=True,
                              check=True).stdout

    def read_includers(self):
        """Which object files a file of the tree is built into."""
        includers, target = collections.defaultdict(set), ""
        for line in self.ninja("deps").splitlines():
            if line.startswith(" "):
                path = pathlib.Path(os.path.normpath(self.build / line.strip()))
                if path.is_relative_to(self.tree) and target in self.compiles:
                    includers[path.relative_to(self.tree).as_posix()].add(target)
            else:
                target = line.partition(":")[0]
        return includers

    def measure(self, program):
        begin = time.monotonic()
        if self.fails(self.build / "bin" / program, 600):
            sys.exit(f"{program} fails without a fault")
        self.seconds[program] = time.monotonic() - begin
        self.digests[program] = hashlib.sha256((self.build / "bin" / program).read_bytes()).hexdigest()[:16]

    def tests(self, programs):
        return " ".join(self.digests[program] for program in programs)

    def fails(self, program, patience, share=None):
        scratch = self.work / "scratch"
        shutil.rmtree(scratch, ignore_errors=True)
        scratch.mkdir()
        surroundings = {"PATH": "/usr/bin:/bin", "QT_QPA_PLATFORM": "offscreen", "TMPDIR": str(scratch), "HOME": str(scratch)}
        if share:
            surroundings["KORVEL_TEST_ROUNDS_SHARE"] = share
        process = subprocess.Popen([program, "--gtest_brief=1", "--gtest_fail_fast"], cwd=self.build, env=surroundings,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   preexec_fn=limit)
        try:
            return process.wait(patience) != 0
        except subprocess.TimeoutExpired:
            return True
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)  # and what it has started
            except ProcessLookupError:
                pass
            process.wait()

    def objects_of(self, file, program):
        """The object files of a program that a fault changes."""
        link = self.links[program]
        own = {word for word in link if word.endswith(".o")}
        archives = {word for word in link if word.endswith(".a")}
        rooms = {pathlib.PurePosixPath(archive).stem.removeprefix("lib") for archive in archives}
        return sorted(name for name in self.includers[file]
                      if name in own or name.partition("CMakeFiles/")[2].partition(".dir")[0] in rooms)

    def can_try(self, fault):
        """Not where a header would have half a program built anew."""
        objects = [self.objects_of(fault.file, program) for program in programs_of(room_of(fault.file))]
        if not any(objects) and fault.file.endswith(".cpp"):
            sys.exit(f"No test program of {room_of(fault.file)} holds {fault.file}")
        return any(objects) and len(objects[0]) <= MOST_OBJECTS

    def compile(self, name, into, optimisation="-O0"):
        words, overlay = list(self.compiles[name]), self.work / "overlay"
        source = pathlib.Path(words[words.index("-c") + 1])
        mutated = overlay / source.relative_to(self.tree)
        for option in ("-MF", "-MT"):
            if option in words:
                at = words.index(option)
                del words[at:at + 2]
        words = [optimisation if word == "-O0" else word for word in words if word not in ("-MD", "ccache")]
        words[words.index("-o") + 1] = str(into)
        words[words.index("-c") + 1] = str(mutated if mutated.exists() else source)
        # Before all other folders: what includes the changed header gets it.
        words[1:1] = [f"-I{overlay / 'src'}", f"-I{overlay}", "-iquote", str(source.parent)]
        if optimisation == "-O0":
            words[1:1] = ["-include", str(self.headers)]
        return run(words, cwd=self.build).returncode == 0

    def put_in(self, file, text):
        shutil.rmtree(self.work / "overlay", ignore_errors=True)
        path = self.work / "overlay" / file
        path.parent.mkdir(parents=True)
        path.write_text(text)

    def build_mutant(self, file, program, objects):
        """The program with these object files compiled anew. Those that an archive holds come first: they win."""
        link, first = list(self.links[program]), []
        for name in self.objects_of(file, program):
            if name not in objects:
                objects[name] = str(self.work / f"mutant{len(objects)}.o")
                if not self.compile(name, objects[name]):
                    return None
            if name in link:
                link[link.index(name)] = objects[name]
            else:
                first.append(objects[name])
        mutant = self.work / "mutant"
        at = link.index("-o")
        link[at:at + 2] = ["-o", str(mutant), *first]
        return mutant if run(link, cwd=self.build).returncode == 0 else None

    def same_code(self, file, text, objects):
        """Whether the program's optimised object files stay what they are without the fault."""
        codes = []
        for shown in ((self.tree / file).read_text(), text):
            self.put_in(file, shown)
            for name in objects:
                if name.startswith("tests/"):
                    continue
                if not self.compile(name, self.work / "same.o", "-O2"):
                    return False
                codes.append((self.work / "same.o").read_bytes())
        return codes[:len(codes) // 2] == codes[len(codes) // 2:]

    def outcome_of(self, fault):
        text, objects = fault.put_into((self.tree / fault.file).read_text()), {}
        self.put_in(fault.file, text)
        for program in programs_of(room_of(fault.file)):
            mutant = self.build_mutant(fault.file, program, objects)
            if mutant is None:
                return "not built"
            patience = max(LEAST_PATIENCE, PATIENCE * self.seconds[program])
            if self.seconds[program] > 3 and self.fails(mutant, patience, QUICK):
                return "caught"
            if self.fails(mutant, patience):
                return "caught"
        return "same code" if self.same_code(fault.file, text, objects) else "slipped"


def copy_tree(tree):
    """As git sees the files, with their changes; what is the same stays as it is, so that it isn't built again."""
    wanted = {path.relative_to(ROOT) for path in tracked.tracked_files()}
    for old in [path for path in tree.rglob("*") if path.is_file() and path.relative_to(tree) not in wanted]:
        old.unlink()
    for name in wanted:
        source, target = ROOT / name, tree / name
        if target.is_file() and target.read_bytes() == source.read_bytes():
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(source, target)
        target.chmod(source.stat().st_mode)


def cores_faults(rooms):
    found = []
    for path in tracked.tracked_files():
        name = path.relative_to(ROOT).as_posix()
        if is_core(name) and (not rooms or room_of(name) in rooms):
            found += faults.faults_of(name, path.read_text())
    return found


def told(outcome, fault, reason=""):
    return f"{outcome:10} {fault.file}:{fault.line}: {fault.old_line}  ->  {fault.new_line}{reason and '  # ' + reason}"


def try_faults(order, count, workshop, results, known):
    """Until `count` are caught, slipped or known to change nothing. Returns what each came to."""
    outcomes = []
    for fault in order:
        if len(outcomes) == count:
            break
        tests = workshop.tests(programs_of(room_of(fault.file)))
        outcome = results.outcome(fault, tests)
        if outcome is None:
            if not workshop.can_try(fault):
                continue
            begin = time.monotonic()
            outcome = workshop.outcome_of(fault)
            results.put(fault, outcome, time.monotonic() - begin, tests)
            print(f"{len(outcomes):4}", told(outcome, fault), flush=True)
        if outcome != "not built":
            outcomes.append((fault, "listed" if outcome == "slipped" and fault.key() in known.reasons else outcome))
    return outcomes


def summary(outcomes, known):
    """The lines of the report, and whether enough were caught."""
    counts = collections.Counter(outcome for _, outcome in outcomes)
    matter = counts["caught"] + counts["slipped"]
    share = counts["caught"] / matter if matter else 0
    lines = [told(outcome, fault) for fault, outcome in outcomes if outcome == "slipped"]
    wrong = [told("caught", fault, "listed as changing nothing") for fault, outcome in outcomes
             if outcome == "caught" and fault.key() in known.reasons]
    total = (f"{len(outcomes)} drawn: {counts['same code']} leave the code as it is, {counts['listed']} are listed as changing "
             f"nothing; of the other {matter}, {counts['caught']} caught ({100 * share:.1f} %)")
    return lines + wrong + [total], share >= LEAST_SHARE and not wrong


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--count", type=int, default=300)
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--room", action="append", default=[], help="a folder of cores, such as src/basic; default: all")
    arguments.add_argument("--list", action="store_true", help="show the draw and try nothing")
    arguments.add_argument("--afresh", action="store_true", help="forget what came out earlier")
    chosen = arguments.parse_args()
    found = cores_faults(chosen.room)
    order = drawn(found, chosen.seed)
    if not order:
        sys.exit("There is nothing to draw from")
    if chosen.list:
        print("\n".join(told(fault.kind, fault) for fault in order[:chosen.count]))
        return 0
    os.nice(10)
    work = ROOT / "build/mutation"
    work.mkdir(parents=True, exist_ok=True)
    if chosen.afresh:
        (work / "results.jsonl").unlink(missing_ok=True)
    known = Known(ROOT / "tests/mutations.json")
    for key in known.stale(found) if not chosen.room else ():
        print("No longer there:", *key)
    workshop = Workshop(work)
    workshop.prepare(sorted({program for fault in found for program in programs_of(room_of(fault.file))}))
    lines, enough = summary(try_faults(order, chosen.count, workshop, Results(work / "results.jsonl"), known), known)
    print("\n".join(lines))
    return 0 if enough else 1


if __name__ == "__main__":
    sys.exit(main())

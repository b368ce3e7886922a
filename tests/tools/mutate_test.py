"""Faults put into a made-up project: what is drawn, what is caught, what is remembered, what counts."""

import contextlib
import io
import json
import re
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import faults  # noqa: E402
import mutate  # noqa: E402

PROJECT = {
    "CMakeLists.txt": "cmake_minimum_required(VERSION 3.20)\nproject(made_up LANGUAGES CXX)\ninclude_directories(src)\n"
                      "set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)\n"
                      "add_library(room STATIC src/room/Room.cpp)\n"
                      "add_executable(room_tests tests/RoomTest.cpp)\ntarget_link_libraries(room_tests room)\n",
    "src/room/Room.h": "#pragma once\ninline int limit() { return 5; }\nint doubled(int);\nint unasked();\n",
    "src/room/Room.cpp": '#include "room/Room.h"\nint doubled(int a) {\n    int sum = 0;\n    for (int i = 0; i < 2; ++i)\n'
                         "        sum += a;\n    if (sum >= 1000 && sum == 3) return 1;\n    return sum;\n}\n"
                         "int unasked() { return 7; }\n",
    "tests/RoomTest.cpp": '#include "room/Room.h"\nint main() { return doubled(limit()) == 10 && unasked() > 0 ? 0 : 1; }\n',
}
OUTCOMES = {  # of faults by the line that they make
    "for (int i = 0; i <= 2; ++i)": "caught",
    "for (int i = 0; i < 2; --i)": "caught",  # never ends, or ends with the program
    "inline int limit() { return 6; }": "caught",
    "int unasked() { return 8; }": "slipped",
    "if (sum >= 999 && sum == 3) return 1;": "same code",
    "sum -= a;": "caught",
    "int sum = 1;": "caught",
}


def made_up(count):
    text = "".join(f"int f{k}(int a) {{ return a + {k + 2}; }}\n" for k in range(count))
    return text, faults.faults_of("src/basic/A.cpp", text)


def known_faults(folder, entries):
    path = Path(folder) / "mutations.json"
    path.write_text(json.dumps(entries))
    return mutate.Known(path)


class DrawTest(unittest.TestCase):
    def test_knows_the_cores(self):
        for name in ("src/basic/Text.cpp", "src/graphs/draw/Panel.h", "engine/DataRow.cpp", "src/drawing/Axis.cpp"):
            self.assertTrue(mutate.is_core(name), name)
        for name in ("src/help/frmHelp.cpp", "src/app/main.cpp", "src/toolkit/forms/Form.cpp", "src/commands/Words.cpp",
                     "src/drawing/paint/GlyphFonts.cpp", "src/explore/window/Icons.cpp", "tests/basic/TextTest.cpp",
                     "src/basic/CMakeLists.txt"):
            self.assertFalse(mutate.is_core(name), name)

    def test_finds_each_rooms_programs(self):
        self.assertEqual(mutate.programs_of("src/runs"), ["runs_tests"])
        self.assertEqual(mutate.programs_of("src/graphs/draw"), ["graphs_draw_tests"])
        self.assertEqual(mutate.programs_of("engine"), ["engine_tests"])
        self.assertEqual(mutate.programs_of("src/basic")[0], "basic_tests")

    def test_knows_a_test_program_of_every_room_that_is_there(self):
        lists = (path.read_text() for path in (mutate.ROOT / "tests").rglob("CMakeLists.txt"))
        programs = {name for text in lists for name in re.findall(r"korvel_test\((\w+)", text)}
        names = [path.relative_to(mutate.ROOT).as_posix() for path in mutate.tracked.tracked_files()]
        for room in sorted({mutate.room_of(name) for name in names if mutate.is_core(name)}):
            self.assertLessEqual(set(mutate.programs_of(room)), programs, room)

    def test_draws_one_fault_of_a_line_by_the_seed(self):
        _, found = made_up(40)
        order = mutate.drawn(found, 1)
        self.assertEqual(len({fault.line for fault in order}), len(order))
        self.assertEqual(len(order), 40)
        self.assertEqual(order, mutate.drawn(list(reversed(found)), 1))
        self.assertNotEqual(order, mutate.drawn(found, 2))
        self.assertGreater(len({fault.kind for fault in order}), 1)

    def test_draws_the_same_from_lines_that_have_moved(self):
        text, found = made_up(40)
        moved = faults.faults_of("src/basic/A.cpp", "// new\n\nint g() { return 3; }\n" + text)
        kept = [fault.key() for fault in mutate.drawn(moved, 1) if fault.line > 3]
        self.assertEqual(kept, [fault.key() for fault in mutate.drawn(found, 1)])


class RecordTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.found = made_up(6)[1]

    def test_tries_again_only_what_slipped_through_other_tests(self):
        results = mutate.Results(self.folder / "results.jsonl")
        for fault, outcome in zip(self.found, ("caught", "slipped", "not built", "same code")):
            results.put(fault, outcome, 1.5, "tests A")
        again = mutate.Results(self.folder / "results.jsonl")
        expected = [("caught", "caught"), ("slipped", None), ("not built", "not built"), ("same code", "same code"),
                    (None, None)]
        for fault, (same_tests, other_tests) in zip(self.found, expected):
            self.assertEqual(again.outcome(fault, "tests A"), same_tests)
            self.assertEqual(again.outcome(fault, "tests B"), other_tests)

    def test_counts_only_what_changes_something(self):
        known = known_faults(self.folder, {})
        outcomes = list(zip(self.found, ["caught"] * 2 + ["same code", "listed", "slipped"]))
        lines, enough = mutate.summary(outcomes, known)
        self.assertFalse(enough)
        self.assertEqual(lines[-1], "5 drawn: 1 leave the code as it is, 1 are listed as changing nothing; of the other 3, 2 "
                                    "caught (66.7 %)")
        self.assertTrue(lines[0].startswith("slipped"))
        self.assertTrue(mutate.summary(outcomes[:4], known)[1])
        self.assertFalse(mutate.summary(outcomes[2:4], known)[1])

    def test_refuses_a_list_that_names_what_the_tests_catch(self):
        fault = self.found[0]
        known = known_faults(self.folder, {fault.file: [{"old": fault.old_line, "new": fault.new_line, "reason": "x"}]})
        lines, enough = mutate.summary([(fault, "caught")], known)
        self.assertFalse(enough)
        self.assertIn("listed as changing nothing", lines[0])

    def test_names_entries_of_the_list_that_are_gone(self):
        fault = self.found[0]
        known = known_faults(self.folder, {fault.file: [{"old": fault.old_line, "new": fault.new_line, "reason": "x"},
                                                        {"old": "gone", "new": "away", "reason": "x"}]})
        self.assertEqual(known.stale(self.found), [(fault.file, "gone", "away", 1)])


class WorkshopTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve() / "project"
        for name, text in PROJECT.items():
            path = self.root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        files = [self.root / name for name in PROJECT]
        for patch in (mock.patch.object(mutate, "ROOT", self.root), mock.patch.object(mutate, "LEAST_PATIENCE", 2),
                      mock.patch.object(mutate.tracked, "tracked_files", lambda: files)):
            patch.start()
            self.addCleanup(patch.stop)

    def test_catches_what_the_tests_notice(self):
        workshop = mutate.Workshop(self.root / "work")
        workshop.prepare(["room_tests"])
        found = {fault.new_line: fault for fault in mutate.cores_faults([])}
        self.assertEqual(mutate.cores_faults(["src/other"]), [])
        for new_line, expected in OUTCOMES.items():
            with self.subTest(fault=new_line):
                self.assertTrue(workshop.can_try(found[new_line]))
                self.assertEqual(workshop.outcome_of(found[new_line]), expected)
        broken = mutate.faults.Fault("src/room/Room.cpp", "statement", 0, 10, "nonsense")
        self.assertEqual(workshop.outcome_of(broken), "not built")
        for name, text in PROJECT.items():
            self.assertEqual((self.root / name).read_text(), text)

        known = known_faults(self.root, {"src/room/Room.cpp": [
            {"old": "int unasked() { return 7; }", "new": "int unasked() { return 8; }", "reason": "only its sign counts"}]})
        results = mutate.Results(self.root / "results.jsonl")
        order = [found[line] for line in ("sum -= a;", "int unasked() { return 8; }", "int sum = 1;")]
        with contextlib.redirect_stdout(io.StringIO()):
            first = mutate.try_faults([broken, *order], 2, workshop, results, known)
        self.assertEqual([outcome for _, outcome in first], ["caught", "listed"])
        with mock.patch.object(workshop, "outcome_of", side_effect=AssertionError("tried again")):
            self.assertEqual(mutate.try_faults([broken, *order], 2, workshop, results, known), first)

    def test_takes_over_what_has_changed_and_gone(self):
        mutate.copy_tree(self.root / "tree")
        (self.root / "tree/src/room/Old.cpp").write_text("")
        (self.root / "src/room/Room.h").write_text("// new\n")
        mutate.copy_tree(self.root / "tree")
        self.assertFalse((self.root / "tree/src/room/Old.cpp").exists())
        self.assertEqual((self.root / "tree/src/room/Room.h").read_text(), "// new\n")


if __name__ == "__main__":
    unittest.main()

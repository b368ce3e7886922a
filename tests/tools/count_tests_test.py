"""The count of tests on made-up records."""

import contextlib
import io
import json
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import count_tests  # noqa: E402


def test_record(result="COMPLETED", failed=False):
    return {"result": result, **({"failures": [{"failure": "no"}]} if failed else {})}


class CountTestsTest(unittest.TestCase):
    def counted(self, statuses, records):
        """The last line and the exit status for ctest entries (name to status) and programs (name to tests)."""
        with tempfile.TemporaryDirectory() as folder:
            cases = "".join(f'<testcase name="{name}" status="{status}"/>' for name, status in statuses.items())
            (Path(folder) / "ctest.xml").write_text(f"<testsuite>{cases}</testsuite>", encoding="utf-8")
            for name, tests in records.items():
                text = json.dumps({"testsuites": [{"testsuite": tests}]})
                (Path(folder) / f"{name}.json").write_text(text, encoding="utf-8")
            printed = io.StringIO()
            with contextlib.redirect_stdout(printed):
                status = count_tests.main([folder, folder])
            return printed.getvalue(), status

    def test_sums_programs_and_commands(self):
        counted = self.counted({"a": "run", "tool": "run"}, {"a": [test_record(), test_record()]})
        self.assertEqual(counted, ("6 passed, 0 failed\n", 0))

    def test_counts_failures(self):
        tests = [test_record(), test_record(failed=True)]
        self.assertEqual(self.counted({"a": "fail"}, {"a": tests}), ("2 passed, 2 failed\n", 1))
        self.assertEqual(self.counted({"tool": "fail"}, {}), ("0 passed, 2 failed\n", 1))

    def test_counts_a_program_that_crashed_or_was_not_built(self):
        self.assertEqual(self.counted({"a": "fail", "b": "notrun"}, {}), ("0 passed, 4 failed\n", 1))
        self.assertEqual(self.counted({"a": "fail"}, {"a": [test_record()]}), ("2 passed, 2 failed\n", 1))

    def test_leaves_out_what_was_skipped(self):
        tests = [test_record(), test_record("SKIPPED"), test_record("SUPPRESSED")]
        self.assertEqual(self.counted({"a": "run"}, {"a": tests}), ("2 passed, 0 failed\n", 0))

    def test_leaves_out_a_command_that_the_machine_cannot_run(self):
        with tempfile.TemporaryDirectory() as name:
            cases = "".join(f'<testcase name="{case}" status="notrun"><skipped message="{message}"/></testcase>'
                            for case, message in [("a", "SKIP_RETURN_CODE=77"), ("b", "Unable to find executable")])
            (Path(name) / "ctest.xml").write_text(f"<testsuite>{cases}</testsuite>", encoding="utf-8")
            self.assertEqual(count_tests.count_folder(Path(name)), (0, 1))

    def test_counts_a_build_that_failed(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(count_tests.count_folder(Path(folder)), (0, 1))

    def test_fails_where_nothing_ran(self):
        self.assertEqual(self.counted({}, {}), ("0 passed, 2 failed\n", 1))


if __name__ == "__main__":
    unittest.main()

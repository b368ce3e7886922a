"""The table of the long checks: what is recorded stands on the page, the newest of each check, nothing else changes."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import check_table  # noqa: E402

PAGE = f"# Page\n\nbefore\n\n{check_table.BEGIN}\nold\n{check_table.END}\n\nafter\n"


class CheckTableTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.results, self.page, self.log = (self.folder / name for name in ("results.tsv", "page.md", "log"))
        self.page.write_text(PAGE, encoding="utf-8")

    def record(self, check, outcome, seconds, said):
        self.log.write_text(said, encoding="utf-8")
        self.assertEqual(
            check_table.main(["record", str(self.results), check, outcome, str(seconds), str(self.log)]), 0)

    def written(self):
        self.assertEqual(check_table.main(["write", str(self.results), str(self.page)]), 0)
        return self.page.read_text(encoding="utf-8")

    def test_puts_what_was_recorded_between_the_marks(self):
        self.record("tidy", "passed", 1441, "one\n  \x1b[31mno warning\x1b[0m \n\n")
        text = self.written()
        self.assertRegex(text, r"\n\| tidy \| passed \| 24 min \| \S+ \| no warning \|\n")
        self.assertTrue(text.startswith("# Page\n\nbefore\n\n") and text.endswith("\n\nafter\n"))
        self.assertNotIn("old", text)

    def test_keeps_the_newest_of_each_check(self):
        self.record("tidy", "failed", 60, "two warnings")
        self.record("fuzz", "passed", 5400, "no finding")
        self.record("tidy", "passed", 120, "no warning")
        text = self.written()
        self.assertNotIn("two warnings", text)
        self.assertLess(text.index("| tidy | passed | 2 min |"), text.index("| fuzz | passed | 90 min |"))

    def test_leaves_no_mark_of_a_table_in_what_was_said(self):
        self.record("package", "skipped", 1, "a | b\tc")
        self.assertIn("| a / b c |", self.written())

    def test_says_nothing_of_an_empty_log(self):
        self.record("package", "failed", 0, "\n")
        self.assertIn("| package | failed | 0 min |", self.written())
        self.assertIn("| nothing |", self.written())

    def test_refuses_a_page_without_a_place(self):
        self.page.write_text("# Page\n", encoding="utf-8")
        with self.assertRaises(SystemExit):
            self.written()

    def test_refuses_other_words(self):
        self.assertEqual(check_table.main(["record", "a"]), 2)


if __name__ == "__main__":
    unittest.main(buffer=True)

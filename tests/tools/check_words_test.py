"""The words' check on made-up folders."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import check_words  # noqa: E402

REFUSED = ["see " + "Part" + " 3.1", "Parts" + " 1. and 2", "spec" + ".md", "contract" + ".md", "../" + "shared/x",
           "the " + "speci" + "fication", "as the " + "original program", "/work" + "/main/x"]
ACCEPTED = ["Part 8.1", "a part of it", "design", "inspect.md5", "shared state", "specific", "network/main"]


class CheckWordsTest(unittest.TestCase):
    def found(self, text):
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "a.txt").write_text(f"first line\n{text}\n", encoding="utf-8")
            return check_words.problems(Path(folder))

    def test_refuses_papers_outside_the_repository(self):
        for text in REFUSED:
            with self.subTest(text=text):
                self.assertEqual(len(self.found(text)), 1)
                self.assertTrue(self.found(text)[0].startswith("a.txt:2: "))

    def test_accepts_other_words(self):
        for text in ACCEPTED:
            with self.subTest(text=text):
                self.assertEqual(self.found(text), [])


if __name__ == "__main__":
    unittest.main()

"""Fuzz corpora: packed and unpacked they are the same; what is damaged is refused."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOL = Path(__file__).resolve().parents[2] / "tools/corpus.py"
sys.path.insert(0, str(TOOL.parent))
import corpus  # noqa: E402

INPUTS = {"empty": b"", "lines": b"a\n\n", "like-a-head": b"korvel corpus 1\nx 1\nb\n", "bytes": bytes(range(256))}
DAMAGED = [b"", b"korvel corpus 1\n", b"corpus 1\na 1\nb\n", b"korvel corpus 2\na 1\nb\n", b"korvel corpus 0\na 1\nb\n",
           b"korvel corpus 1\na 2\nb\n", b"korvel corpus 1\na 1\nb", b"korvel corpus 1\na 1\nbc\n",
           b"korvel corpus 2\na 1\nb\na 1\nc\n", b"korvel corpus 1\n../a 1\nb\n"]


class CorpusTest(unittest.TestCase):
    def test_gives_back_what_was_packed(self):
        self.assertEqual(corpus.unpacked(corpus.packed(INPUTS)), INPUTS)
        self.assertEqual(corpus.unpacked(corpus.packed({})), {})

    def test_packs_the_same_inputs_always_the_same(self):
        self.assertEqual(corpus.packed(dict(reversed(INPUTS.items()))), corpus.packed(INPUTS))

    def test_refuses_damaged_files_and_names_that_cannot_be_kept(self):
        for data in DAMAGED:
            with self.subTest(data=data), self.assertRaises(ValueError):
                corpus.unpacked(data)
        for name in ("", "two words", "a/b", "a\n"):
            with self.subTest(name=name), self.assertRaises(ValueError):
                corpus.packed({name: b""})

    def test_packs_counts_and_unpacks_folders(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            (folder / "in").mkdir()
            for input_name, data in INPUTS.items():
                (folder / "in" / input_name).write_bytes(data)
            for words in (["pack", folder / "in", folder / "x.corpus"], ["unpack", folder / "x.corpus", folder / "out"]):
                self.assertEqual(subprocess.run([TOOL, *words]).returncode, 0)
            self.assertEqual({path.name: path.read_bytes() for path in (folder / "out").iterdir()}, INPUTS)
            counted = subprocess.run([TOOL, "count", folder / "x.corpus"], capture_output=True, text=True)
            self.assertEqual(counted.stdout, "4\n")
            self.assertEqual(subprocess.run([TOOL, "pack", folder], capture_output=True).returncode, 2)


if __name__ == "__main__":
    unittest.main()

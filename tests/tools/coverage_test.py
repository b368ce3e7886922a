"""What counts as a core and what as a form where lines are counted."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import coverage  # noqa: E402

KINDS = {
    "src/basic/Text.cpp": "cores",
    "src/graphs/draw/Panel.h": "cores",
    "src/drawing/Axis.cpp": "cores",
    "engine/DataRow.cpp": "cores",
    "src/help/frmHelp.cpp": "forms",
    "src/toolkit/paper/PdfJob.cpp": "forms",
    "src/drawing/paint/GlyphFonts.cpp": "forms",
    "src/app/main.cpp": None,
    "src/commands/Words.cpp": None,
    "engine/main.cpp": None,
    "tests/basic/TextTest.cpp": None,
}


class CoverageTest(unittest.TestCase):
    def test_parts_cores_from_forms(self):
        for name, kind in KINDS.items():
            with self.subTest(file=name):
                self.assertEqual(coverage.kind_of(Path(name)), kind)


if __name__ == "__main__":
    unittest.main()

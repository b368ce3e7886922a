"""The layers' check on made-up trees: what follows the layers passes, each way of breaking them is refused."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import check_layers  # noqa: E402

GOOD = {
    "src/basic/Text.h": "#include <string>\n",
    "src/platform/Files.h": '#include "basic/Text.h"\n',
    "src/platform/Paper.h": '#include "drawing/Drawing.h"\n',
    "src/global/GLOBAL.h": '#include "basic/Text.h"\n',
    "src/results/Reader.h": '#include "basic/Text.h"\n#include "platform/Files.h"\n',
    "src/results/LoadResultsFile.cpp": '#include "global/GLOBAL.h"\n#include "results/Reader.h"\n',
    "src/toolkit/Painter.cpp": '#include <QProcess>\n#include "drawing/Drawing.h"\nvoid a() { fork(); }\n',
    "src/toolkit/Form.h": "#include <QWidget>\n",
    "src/drawing/Drawing.h": '#include "basic/Text.h"\n',
    "src/graphs/draw/Panel.h": '#include "results/Reader.h"\n#include "drawing/Drawing.h"\n',
    "src/graphs/draw/frmGraph.h": '#include <QWidget>\n#include "toolkit/Form.h"\n#include "graphs/draw/Panel.h"\n',
    "src/graphs/setup/Choices.h": '#include "drawing/Drawing.h"\n',
    "src/graphs/setup/frmSetup.h": '#include "graphs/setup/Choices.h"\n#include "graphs/draw/frmGraph.h"\n',
    "src/runs/Run.h": '#include "global/GLOBAL.h"\n',
    "src/app/frmStart.cpp": '#include "runs/Run.h"\n#include "graphs/setup/frmSetup.h"\n',
    "src/app/main.cpp": '#include "app/frmStart.h"\n#include "commands/info.h"\n#include "toolkit/Form.h"\n',
    "src/app/frmStart.h": '#include "toolkit/Form.h"\nint n = dialog.exec(); // fork() and QMessageBox are for others\n',
    "src/commands/info.h": '#include "results/Reader.h"\n#include "graphs/draw/Panel.h"\n#include <QImage>\n',
    "engine/Reach.h": '#include "basic/Text.h"\n',
    "engine/main.cpp": '#include "Reach.h"\n#include "engine/Reach.h"\nconst char* say = "QProcess";\n',
}

BAD = [
    ("src/basic/New.h", '#include "platform/Files.h"\n', "basic may not include platform/Files.h"),
    ("src/basic/New.h", '#include "drawing/Drawing.h"\n', "basic may not include drawing/Drawing.h"),
    ("src/drawing/New.h", '#include "platform/Files.h"\n', "drawing may not include platform/Files.h"),
    ("src/drawing/New.h", "#include <QImage>\n", "a core uses Qt: QImage"),
    ("src/drawing/paint/New.h", '#include "toolkit/Form.h"\n', "drawing/paint may not include toolkit/Form.h"),
    ("src/study/New.h", '#include "global/GLOBAL.h"\n', "study may not include global/GLOBAL.h"),
    ("src/analysis/New.h", '#include "global/GLOBAL.h"\n', "analysis may not include global/GLOBAL.h"),
    ("src/toolkit/forms/New.h", '#include "global/GLOBAL.h"\n', "toolkit may not include global/GLOBAL.h"),
    ("src/platform/New.h", '#include "global/GLOBAL.h"\n', "platform may not include global/GLOBAL.h"),
    ("src/global/New.h", '#include "results/Reader.h"\n', "global may not include results/Reader.h"),
    ("src/results/New.h", '#include "global/GLOBAL.h"\n', "results may not include global/GLOBAL.h"),
    ("src/results/New.h", '#include "runs/Run.h"\n', "results may not include runs/Run.h"),
    ("src/runs/New.h", '#include "graphs/draw/Panel.h"\n', "runs may not include graphs/draw/Panel.h"),
    ("src/runs/New.h", '#include "toolkit/Form.h"\n', "runs may not include toolkit/Form.h"),
    ("src/runs/New.h", '#include "app/frmStart.h"\n', "runs may not include app/frmStart.h"),
    ("src/runs/frmNew.h", '#include "graphs/draw/Panel.h"\n', "form may not include graphs/draw/Panel.h"),
    ("src/runs/frmNew.h", '#include "commands/info.h"\n', "form may not include commands/info.h"),
    ("src/app/frmStart.cpp", '#include "graphs/draw/Panel.h"\n', "form may not include graphs/draw/Panel.h"),
    ("src/graphs/setup/New.h", '#include "graphs/draw/Panel.h"\n', "graphs/setup may not include graphs/draw/Panel.h"),
    ("src/toolkit/New.h", '#include "global/GLOBAL.h"\n', "toolkit may not include global/GLOBAL.h"),
    ("src/toolkit/New.h", '#include "graphs/draw/Panel.h"\n', "toolkit may not include graphs/draw/Panel.h"),
    ("src/commands/New.h", '#include "app/frmStart.h"\n', "commands may not include app/frmStart.h"),
    ("src/app/main.cpp", '#include "runs/Run.h"\n', "main may not include runs/Run.h"),
    ("engine/New.h", '#include "platform/Files.h"\n', "engine may not include platform/Files.h"),
    ("engine/New.h", '#include "drawing/Drawing.h"\n', "engine may not include drawing/Drawing.h"),
    ("src/runs/New.h", '#include "runs/Nothing.h"\n', "no such header: runs/Nothing.h"),
    ("src/runs/New.h", '#include "../graphs/draw/Panel.h"\n', "runs may not include graphs/draw/Panel.h"),
    ("src/runs/New.h", "  #  include <QString>\n", "a core uses Qt: QString"),
    ("src/results/New.h", "#include <QtCore/QString>\n", "a core uses Qt: QtCore/QString"),
    ("src/graphs/draw/New.h", "#include <qglobal.h>\n", "a core uses Qt: qglobal.h"),
    ("engine/New.h", "#include <QString>\n", "a core uses Qt: QString"),
    ("src/runs/frmNew.cpp", "#include <QProcess>\nQProcess p;\n", "only the toolkit may use QProcess"),
    ("src/runs/frmNew.cpp", "QMessageBox::warning(this);\n", "only the toolkit may use QMessageBox"),
    ("src/commands/New.cpp", "QFileDialog d;\n", "only the toolkit may use QFileDialog"),
    ("src/reports/frmNew.cpp", "QPrinter p;\n", "only the toolkit may use QPrinter"),
    ("src/reports/frmNew.cpp", "QPrintDialog p;\n", "only the toolkit may use QPrintDialog"),
    ("src/app/main.cpp", "int a = fork();\n", "only the toolkit may use fork"),
    ("src/runs/New.cpp", 'int a = execvp("a", b);\n', "only the toolkit may use execvp"),
    ("src/runs/New.cpp", 'int a = ::execl("a", b);\n', "only the toolkit may use execl"),
    ("src/runs/New.cpp", "posix_spawn(&a);\n", "only the toolkit may use posix_spawn"),
    ("src/runs/New.cpp", 'std::system("ls");\n', "only the toolkit may use system"),
    ("engine/New.cpp", 'popen("ls", "r");\n', "only the toolkit may use popen"),
]


class CheckLayersTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for name, text in GOOD.items():
            self.put(name, text)

    def put(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def test_accepts_a_tree_that_follows_the_layers(self):
        self.assertEqual(check_layers.problems(self.root), [])
        self.assertEqual(check_layers.main([str(self.root)]), 0)

    def test_refuses_each_way_of_breaking_them(self):
        for name, text, problem in BAD:
            with self.subTest(file=name, text=text):
                before = GOOD.get(name)
                self.put(name, text)
                self.assertIn(f"{name}: {problem}", check_layers.problems(self.root))
                self.assertEqual(check_layers.main([str(self.root)]), 1)
                self.put(name, before) if before else (self.root / name).unlink()

    def test_refuses_a_folder_without_files(self):
        with tempfile.TemporaryDirectory() as empty:
            self.assertEqual(check_layers.main([empty]), 1)


if __name__ == "__main__":
    unittest.main(buffer=True)

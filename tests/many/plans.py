"""What the tests of `korvel runs` share: a folder with a plan, catchments, an application folder, and what is read back."""
import json
import os
import pathlib
import shutil
import subprocess
import tempfile

CATCHMENT = """DEMONSTRATION RIVER DATA
[RUN]
title = Small River
shots = 20
seed = 1957
spacing = 0
[DETERMINANDS]
1, BOD, mg/l, 2, 3, 0.25, 4, 30
[REACHES]
1, Upper River, 8.5, 2, 7.5, 0.35, 1, 1, 0, 0, 0
2, Lower River, 5.0, 0, 7.5, 0.35, 0, 0, 0, 0, 0
[FEATURES]
1, 1, 2.4, sewage, Holme STW, 2, 1
[FLOWS]
1, 22, 3.4, 0.95
2, 12, 1.6, 0.95
[QUALITIES]
1, 1, 1.5, 0.7
"""

# Stands for the engine: tells that it begins, waits, leaves the results that lie ready, tells that it ends. The name of
# its folder is the name of the row and of the row's data file.
FAKE_ENGINE = """#!/bin/sh
name=${PWD##*/}
echo "begin $name" >>"$KORVEL_TEST/log"
if [ -e "$KORVEL_TEST/$name.bad" ]; then echo "ERROR: bad data"; exit 1; fi
sleep "${KORVEL_TEST_SLEEP:-0}" || sleep 60 # told to end, it is ended, too, and does not go on before
cp "$KORVEL_TEST/whole" "$KORVEL_TEST/$name.SGR"
echo "end $name" >>"$KORVEL_TEST/log"
"""


class Plans:
    """A folder of its own. `program`: the korvel under test; its engine is taken too, unless the fake one is asked for."""

    def __init__(self, program, parent=None):
        self.program = pathlib.Path(program)
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="korvel-runs-", dir=parent))
        self.folder.chmod(0o755)
        self.app = self.folder / "app"
        self.app.mkdir()
        shutil.copy(self.program.parent / "korvelf157.exe", self.app)
        self.environment = {**os.environ, "KORVEL_HOME": str(self.app), "KORVEL_TEST": str(self.folder)}

    def remove(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def put(self, name, text):
        path = self.folder / name
        path.write_text(text)
        return path

    def catchments(self, count, engine="real"):
        """A plan with rows R1, R2 ... of type 0, each with a data file of its name."""
        names = [f"R{k}" for k in range(1, count + 1)]
        for name in names:
            self.put(f"{name}.DAT", CATCHMENT)
        self.put("plan.csv", "name,data_file,type\n" + "".join(f"{n},{n}.DAT,0\n" for n in names))
        if engine == "fake":
            self.use_fake_engine()
        return names

    def use_fake_engine(self, text=FAKE_ENGINE):
        self.make_whole_results()
        engine = self.app / "korvelf157.exe"
        engine.unlink()
        engine.write_text(text)
        engine.chmod(0o755)

    def make_whole_results(self):
        self.put("WHOLE.DAT", CATCHMENT)
        self.run("run", "WHOLE.DAT", "--wait", check=True)
        (self.folder / "WHOLE.SGR").rename(self.folder / "whole")
        for left in self.folder.glob("WHOLE.*"):
            left.unlink()

    def command(self, *arguments):
        return [str(self.program), *arguments]

    def run(self, *arguments, check=False, timeout=60, **changes):
        result = subprocess.run(self.command(*arguments), cwd=self.folder, capture_output=True, text=True,
                                timeout=timeout, env={**self.environment, **changes})
        if check and result.returncode != 0:
            raise AssertionError(result)
        return result

    def start(self, *arguments, **changes):
        return subprocess.Popen(self.command(*arguments), cwd=self.folder, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True, env={**self.environment, **changes},
                                start_new_session=True)

    def lines(self):
        """Every whole line of the record; one that is broken may be the last only."""
        text = (self.folder / "plan.runs.jsonl").read_text() if (self.folder / "plan.runs.jsonl").exists() else ""
        *whole, rest = text.split("\n")
        return [json.loads(line) for line in whole]

    def last(self):
        return {line["name"]: line for line in self.lines()}

    def states(self):
        return {name: line["state"] for name, line in self.last().items()}

    def log(self, word="begin"):
        path = self.folder / "log"
        return [line.split()[1] for line in path.read_text().splitlines() if line.startswith(word)] if path.exists() else []

    def left_folders(self):
        runs = self.folder / "plan.runs"
        return sorted(path.name for path in runs.iterdir()) if runs.exists() else []

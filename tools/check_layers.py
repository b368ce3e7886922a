"""Keeps the folders of src/ and engine/ apart: who may include whom, and what only the toolkit may touch.

Usage: check_layers.py [FOLDER]   FOLDER is the project's root.

A room is a folder. Its forms are the files frm*.h and frm*.cpp, main.cpp is a room of its own, and the rest is the
folder's core. Forms, commands, main, the toolkit and the painter may use Qt; a core may not.
"""

import re
import sys
from pathlib import Path

GROUND = {"results", "global", "tables", "platform", "drawing", "basic"}
STUDIES = {"study", "results", "platform", "drawing", "basic"}  # rooms from here on know no shared state
ANALYSES = {"analysis", "tables"} | STUDIES
CORES = {"app", "runs", "graphs/setup", "graphs/draw", "reports", "help"}
EXPLORER = {"explore", "explore/rows", "panels"} | ANALYSES
EXPLORER_WINDOW = {"explore/window", "explore/tables", "publish", "toolkit", "drawing/paint"} | EXPLORER
STUDY_CORES = {"study", "analysis", "panels", "explore", "publish", "many"}
WITH_QT = {"form", "commands", "main", "toolkit", "drawing/paint", "explore/window", "explore/tables"}
MAY_INCLUDE = {
    "basic": {"basic"},
    "drawing": {"drawing", "basic"},
    "drawing/paint": {"drawing/paint", "drawing", "basic"},
    "platform": {"platform", "drawing", "basic"},
    "global": {"global", "basic"},
    "tables": {"tables", "platform", "drawing", "basic"},
    "results": {"results", "platform", "basic"},
    "study": STUDIES,
    "analysis": ANALYSES,
    "panels": {"panels"} | ANALYSES,
    "explore": EXPLORER,
    "explore/rows": EXPLORER,
    "explore/window": EXPLORER_WINDOW,
    "explore/tables": EXPLORER_WINDOW - {"explore/window"},
    "publish": {"publish", "panels"} | ANALYSES,
    "many": {"many"} | STUDIES,
    "toolkit": {"toolkit", "drawing/paint", "drawing", "platform", "basic"},
    "commands": {"commands", "toolkit", "drawing/paint"} | CORES | STUDY_CORES | GROUND,
    "engine": {"engine", "basic"},
    "engine/windows": {"engine/windows", "engine", "basic"},
}
# The main form's menus open data files and start runs; both belong to the runs. Of the results only the procedure that
# the given forms call knows the shared state. The engine's window judges what a run has left, for the main form's list. The
# Explorer's form is made of its window's parts.
ALSO_INCLUDES = {
    "app/frmStart": {"runs"},
    "app/frmStartRuns": {"runs"},
    "results/LoadResultsFile": {"global"},
    "runs/frmEngineNotes": {"analysis", "study"},
    "explore/frmExplore": EXPLORER_WINDOW,
}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)
COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.DOTALL)
TOOLKIT_ONLY = re.compile(
    r"\bQMessageBox\b|\bQFileDialog\b|\bQPrint\w*|\bQProcess\b|\bv?fork\s*\(|\bf?exec(?:l|v)p?e?\s*\("
    r"|\bposix_spawnp?\b|\bpopen\s*\(|(?<![\w.>])system\s*\("
)


def room_of(name: str) -> str:
    """The room of a file, named from the root of includes: basic/Text.h, graphs/draw/Panel.h, engine/Reach.h."""
    folder, _, file = name.rpartition("/")
    if file.startswith("frm"):
        return "form"
    if name == "app/main.cpp":
        return "main"
    return "toolkit" if folder.startswith("toolkit/") else folder


def allowed_rooms(room: str, name: str) -> set[str]:
    return general_rooms(room, name) | ALSO_INCLUDES.get(name.rpartition(".")[0], set())


def general_rooms(room: str, name: str) -> set[str]:
    folder = name.rpartition("/")[0]
    if room in MAY_INCLUDE:
        return MAY_INCLUDE[room]
    if room == "form":
        return {folder, "form", "toolkit", "drawing/paint"} | GROUND
    if room == "main":
        return {folder, "form", "commands", "toolkit", "drawing/paint"} | GROUND
    return {room} | GROUND


def is_qt(header: str) -> bool:
    return re.match(r"Q[A-Z]|Qt[A-Z]?\w*/|q[a-z]+\.h$", header) is not None


def resolve(root: Path, including: Path, header: str) -> str | None:
    """A quoted header as named from the root of includes."""
    for base, prefix in ((including.parent, None), (root / "src", ""), (root, "")):
        if (base / header).is_file():
            found = (base / header).resolve()
            return name_of(root, found) if prefix is None else header
    return None


def name_of(root: Path, path: Path) -> str:
    source = (root / "src").resolve()
    path = path.resolve()
    return str(path.relative_to(source if path.is_relative_to(source) else root.resolve()))


def include_problem(root: Path, path: Path, bracket: str, header: str) -> str | None:
    name = name_of(root, path)
    room = room_of(name)
    if bracket == "<":
        return f"a core uses Qt: {header}" if is_qt(header) and room not in WITH_QT else None
    target = resolve(root, path, header)
    if target is None:
        return f"no such header: {header}"
    if room_of(target) in allowed_rooms(room, name):
        return None
    return f"{room} may not include {target}"


def problems_in(root: Path, path: Path) -> list[str]:
    text = path.read_text(encoding="utf-8")
    found = [include_problem(root, path, *match.groups()) for match in INCLUDE.finditer(text)]
    if room_of(name_of(root, path)) != "toolkit":
        code = COMMENT_OR_TEXT.sub(" ", text)
        found += [f"only the toolkit may use {match.group().strip('( ')}" for match in TOOLKIT_ONLY.finditer(code)]
    return [f"{path.relative_to(root)}: {problem}" for problem in found if problem]


def problems(root: Path) -> list[str]:
    files = [path for folder in ("src", "engine") for path in (root / folder).rglob("*") if path.suffix in {".h", ".cpp"}]
    if not files:
        return [f"{root}: no C++ files in src/ or engine/"]
    return [problem for path in sorted(files) for problem in problems_in(root, path)]


def main(arguments: list[str]) -> int:
    root = Path(arguments[0] if arguments else Path(__file__).resolve().parent.parent)
    found = problems(root.resolve())
    print("\n".join(found) or "every include follows the layers")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

"""No picture of the documents can grow old unseen: each that a document shows is made by a script from the running program, each
that a script makes lies there, and none lies there that no script makes or no document shows.

guide_pictures_test.py SOURCE
"""

import pathlib
import re
import sys

SOURCE = pathlib.Path(sys.argv[1])
PICTURES = SOURCE / "docs/pictures"
SCRIPTS = ("make_pictures.sh", "page_pictures.py", "document_pictures.py")
MADE = re.compile(r'(?:^|\|\| |&& |; )\s*picture ([a-z0-9-]+)(?: #.*)?$|'
                  r'^cut [a-z0-9-]+ ([a-z0-9-]+) |'
                  r'\b(?:take|keep)\(.*?"((?:page|workbook|atlas|database)-[a-z0-9-]+)"', re.MULTILINE)


def made():
    for script in SCRIPTS:
        text = (SOURCE / "tools" / script).read_text(encoding="utf-8")
        yield from ("".join(groups) for groups in MADE.findall(text))


def shown():
    for document in (SOURCE / "README.md", *(SOURCE / "docs").rglob("*.md")):
        yield from re.findall(r"pictures/([a-z0-9-]+)\.png", document.read_text(encoding="utf-8"))


def main():
    lists = {"made by a script": set(made()), "in docs/pictures": {path.stem for path in PICTURES.glob("*.png")},
             "shown by a document": set(shown())}
    everything = set().union(*lists.values())
    problems = [f"{name}.png is not {where}" for where, names in lists.items() for name in sorted(everything - names)]
    for problem in problems:
        print(problem)
    print(f"{len(everything)} pictures, {len(problems)} failures")
    return 1 if problems or len(everything) < 10 else 0


sys.exit(main())

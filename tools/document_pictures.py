"""Makes the pictures of workbook, database and atlas from the samples, as their readers show them:
document_pictures.py APP PICTURES"""

import math
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
APP, PICTURES = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
RUNS = ["ALDER.SGR", "ALDER2.SGR"]
NEEDED = ["soffice", "pdftoppm", "pdftotext", "sqlite3", "convert"]


def korvel(folder, *words):
    subprocess.run([APP / "korvel", *words], cwd=folder, check=True, stdout=subprocess.DEVNULL)


def keep(path, name, *changes):
    target = PICTURES / f"{name}.png"
    subprocess.run(["convert", path, *changes, "-strip", "-dither", "None", "-colors", "64", "-define",
                    "png:compression-level=9", f"PNG8:{target}"], check=True)
    print(target)


def page_of(folder, document, number, resolution):
    subprocess.run(["pdftoppm", "-r", str(resolution), "-png", "-singlefile", "-f", str(number), "-l", str(number), document,
                    "page"], cwd=folder, check=True)
    return folder / "page.png"


def page_with(folder, document, words):
    text = subprocess.run(["pdftotext", document, "-"], cwd=folder, check=True, capture_output=True, text=True).stdout
    return 1 + next(number for number, page in enumerate(text.split("\f")) if words in page)


def take_workbook(folder):
    korvel(folder, "compliance", *RUNS, "--output", "compliance.xlsx")
    korvel(folder, "table", *RUNS, "--series", "BOD (Conc)", "--statistics", "mean", "--output", "values.xlsx")
    subprocess.run(["soffice", f"-env:UserInstallation=file://{folder}/office", "--headless", "--convert-to", "pdf",
                    "compliance.xlsx", "values.xlsx"], cwd=folder, check=True, stdout=subprocess.DEVNULL)
    cut = ["-trim", "-bordercolor", "white", "-border", "16"]
    keep(page_of(folder, "compliance.pdf", 1, 100), "workbook-about", *cut)
    chart = page_with(folder, "values.pdf", "km from the head")
    keep(page_of(folder, "values.pdf", chart, 130), "workbook-chart", "-gravity", "North", "-crop", "100%x40%+0+0", "+repage",
         *cut)


def take_atlas(folder):
    korvel(folder, "atlas", *RUNS, "--title", "River Alder: the river today and with the scheme")
    keep(page_of(folder, "ALDER-atlas.pdf", 1, 90), "atlas-title", "-bordercolor", "#888", "-border", "1")
    river = page_with(folder, "ALDER-atlas.pdf", "km, 6 reaches")
    keep(page_of(folder, "ALDER-atlas.pdf", river, 90), "atlas-river", "-bordercolor", "#888", "-border", "1")


def take_database(folder):
    """The guide's fourth question, as the shell answers it."""
    korvel(folder, "table", *RUNS, "--output", "runs.sqlite")
    guide = (ROOT / "docs/guide/database.md").read_text()
    question = re.findall(r'^\$ sqlite3 -box runs.sqlite "(.*)"$', guide, re.MULTILINE)[3]
    answer = subprocess.run(["sqlite3", "-box", "runs.sqlite", question], cwd=folder, check=True, capture_output=True,
                            text=True).stdout
    lines = answer.rstrip("\n").split("\n")
    size = f"{math.ceil(9.1 * max(map(len, lines)))}x{18 * len(lines)}"
    words = "\n".join(lines).replace("\\", "\\\\").replace("%", "%%")
    subprocess.run(["convert", "-size", size, "xc:white", "-fill", "#1c242d", "-font", "DejaVu-Sans-Mono", "-pointsize", "15",
                    "-gravity", "NorthWest", "-annotate", "+0+0", words, "answer.png"], cwd=folder, check=True)
    keep(folder / "answer.png", "database-answer", "-bordercolor", "white", "-border", "12")


def main():
    missing = [name for name in NEEDED if not shutil.which(name)]
    if missing:
        print("no pictures of workbook, database and atlas: there is no", ", no ".join(missing))
        return 0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for sample in (ROOT / "samples").glob("*.DAT"):
            shutil.copy(sample, folder)
            korvel(folder, "run", sample.name, "--wait")
        take_workbook(folder)
        take_atlas(folder)
        take_database(folder)
    return 0


sys.exit(main())

"""The texts of a printed report stand where the page's geometry puts them, within a hundredth of an inch.

report_geometry_test.py BUILD SAMPLES
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

APP, SAMPLES = pathlib.Path(sys.argv[1]) / "app", pathlib.Path(sys.argv[2])
LONG, SHORT = 11.69 / 1.09, 8.26 / 1.043
A4 = {"portrait": (210 / 25.4, 297 / 25.4), "landscape": (297 / 25.4, 210 / 25.4)}
PAGES = {"portrait": (SHORT, LONG, 0.4, 7.7, 10.2), "landscape": (LONG, SHORT, 0.3, 10.7, 7.3)}
HUNDREDTH = 0.01
WORD = re.compile(r'<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">(.*?)</word>')
failures = []


def run(*arguments, folder=None):
    environment = {"PATH": os.environ["PATH"], "HOME": "/nonexistent"}
    return subprocess.run(arguments, capture_output=True, text=True, timeout=120, check=True, cwd=folder,
                          env=environment).stdout


def near(found, expected, what):
    if abs(found - expected) > HUNDREDTH:
        failures.append(f"{what}: {found:.4f} instead of {expected:.4f} inch")


def lines_of(pdf, page, orientation):
    """The page's lines of words in page units, from the top: (top, [(left, right, text)...])."""
    sheet, area = A4[orientation], PAGES[orientation][:2]
    left, top = (sheet[0] - area[0]) / 2, (sheet[1] - area[1]) / 2
    lines = {}
    for x1, y1, x2, _, text in WORD.findall(run("pdftotext", "-f", str(page), "-l", str(page), "-bbox", pdf, "-")):
        key = next((y for y in lines if abs(y - float(y1)) < 2), float(y1))
        lines.setdefault(key, []).append((float(x1) / 72 - left, float(x2) / 72 - left, text))
    return [(y / 72 - top, sorted(lines[y])) for y in sorted(lines)]


def check_report(folder, determinands, statistics, columns, orientation):
    run(APP / "korvel", "report", "ALDER.SGR", "--determinands", determinands, "--statistics", statistics, "--output",
        "report.pdf", folder=folder)
    _, _, left, right, lowest = PAGES[orientation]
    width = (right - 2.8) / columns
    inset = width / 10
    lines = lines_of(folder / "report.pdf", 1, orientation)
    heading = next(line for line in lines if line[1][-1][2] == "RESULTS" or line[1][0][2] == "Demonstration")
    near(heading[0], 0.5, f"{orientation}: top of the title")
    words = [word for line in lines for word in line[1]]
    near(next(w for w in words if w[2] == "Demonstration")[0], left, f"{orientation}: left of the title")
    near(next(w for w in words if w[2] == "RESULTS")[1], right, f"{orientation}: right of KORVEL RESULTS")
    near(next(w for w in words if re.fullmatch(r"\d\d/\d\d/\d{4}", w[2]))[1], right, f"{orientation}: right of the date")
    feature = next(w for w in words if w[2] == "Feature")
    near((feature[0] + feature[1]) / 2, (left + 2.8) / 2, f"{orientation}: middle of Feature")
    near(next(line for line in lines if line[1][0][2] == "High")[1][0][0], left + inset / 2, f"{orientation}: reach name")
    rows = [line for line in lines if len([w for w in line[1] if w[0] > 2.8]) == columns
            and re.fullmatch(r"[\d.]+", line[1][-1][2])]
    if len(rows) < 10:
        failures.append(f"{orientation}: only {len(rows)} rows of {columns} values")
    for top, row in rows:
        near(row[0][0], left + inset, f"{orientation}: label at {top:.2f}")
        for k, value in enumerate([w for w in row if w[0] > 2.8], 1):
            near(value[1], 2.8 + k * width - inset, f"{orientation}: value {k} at {top:.2f}")
    if not lowest - 0.5 < rows[-1][0] <= lowest + HUNDREDTH:
        failures.append(f"{orientation}: the last row of the page stands at {rows[-1][0]:.3f}")


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    shutil.copy(SAMPLES / "ALDER.DAT", folder)
    for file in ["korvel", "korvelf157.exe"]:
        os.symlink(APP / file, folder / file)
    run(APP / "korvel", "--application-folder", folder, "run", "ALDER.DAT", "--wait", folder=folder)
    check_report(folder, "1,2", "mean,95", 4, "portrait")
    check_report(folder, "1,2,3,4,5,6", "mean,95", 12, "landscape")
for failure in failures[:20]:
    print(failure)
sys.exit(1 if failures else 0)

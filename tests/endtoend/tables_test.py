"""Reads workbooks and databases back and holds them against the same tables as CSV.

tables_test.py SOURCE BUILD

Cells are read from the workbook's own parts, then once more from what LibreOffice makes of them; databases by Python's
SQLite and by the sqlite3 shell. Readers that are not installed are named at the end. Databases are also written to with
the program killed at random moments, stopped, and on a disk that is full.
"""

import csv
import io
import os
import pathlib
import random
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time
import xml.etree.ElementTree as tree
import zipfile

SOURCE, BUILD = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
PROGRAM = BUILD / "app/korvel"
MAIN = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
RELATED = "{http://schemas.openxmlformats.org/officeDocument/2006/relationships}id"
COLUMNS = ("run,reach,reach_name,distance,to_mouth,feature,side,type,series,statistic,value,low,high,observed,"
           "target").split(",")
failures, skipped, checks = [], [], 0


def check(holds, words):
    global checks
    checks += 1
    if not holds:
        failures.append(words)


def run(folder, *arguments, status=0, **environment):
    result = subprocess.run([str(PROGRAM), *map(str, arguments)], cwd=folder, capture_output=True, text=True, timeout=300,
                            env={"PATH": os.environ["PATH"], "HOME": str(folder), "LC_ALL": "C.UTF-8", **environment})
    check(result.returncode == status, f"{arguments} ends with {result.returncode}: {result.stderr}")
    return result.stdout + result.stderr


# Workbooks

def unescaped(text):
    return re.sub("_x([0-9A-Fa-f]{4})_", lambda match: chr(int(match[1], 16)), text)


def cell_value(cell):
    kind = cell.get("t", "n")
    if kind == "inlineStr":
        return unescaped("".join(part.text or "" for part in cell.iter(MAIN + "t")))
    value = cell.find(MAIN + "v")
    if value is None:
        return ""
    return value.text == "1" if kind == "b" else float(value.text)


def column_of(reference):
    number = 0
    for letter in re.match("[A-Z]+", reference)[0]:
        number = number * 26 + ord(letter) - ord("A") + 1
    return number - 1


class Workbook:
    def __init__(self, path):
        self.parts = zipfile.ZipFile(path)
        check(self.parts.testzip() is None, f"{path}: a part is damaged")
        for name in self.parts.namelist():
            if name.endswith((".xml", ".rels")):
                tree.fromstring(self.parts.read(name))
        book = tree.fromstring(self.parts.read("xl/workbook.xml"))
        targets = {each.get("Id"): each.get("Target")
                   for each in tree.fromstring(self.parts.read("xl/_rels/workbook.xml.rels"))}
        self.sheets = {sheet.get("name"): "xl/" + targets[sheet.get(RELATED)] for sheet in book.iter(MAIN + "sheet")}

    def sheet(self, name):
        return tree.fromstring(self.parts.read(self.sheets[name]))

    def rows(self, name):
        rows = []
        for row in self.sheet(name).iter(MAIN + "row"):
            cells = {}
            for cell in row:
                cells[column_of(cell.get("r"))] = cell_value(cell)
            rows.append([cells.get(column, "") for column in range(max(cells, default=-1) + 1)])
        return rows


def same_cell(cell, text):
    """A cell of a workbook, and the field of the CSV file."""
    if isinstance(cell, bool):
        return text == ("true" if cell else "false")
    if isinstance(cell, float):
        return text != "" and abs(cell - float(text)) <= 1e-15 * abs(cell)  # sixteen digits are written
    return cell == (text[1:] if re.match("'[=+@\t\r-]", text) else text)


def check_rows(name, rows, fields):
    check(len(rows) == len(fields), f"{name}: {len(rows)} rows, the CSV file has {len(fields)}")
    for row, line in zip(rows, fields):
        row = row + [""] * (len(line) - len(row))
        if len(row) != len(line) or not all(map(same_cell, row, line)):
            check(False, f"{name}: {row} is {line} in the CSV file")
            return
    check(True, name)


def csv_of(folder, *arguments):
    text = run(folder, *arguments, "--format", "csv")
    return list(csv.reader(io.StringIO(text)))


def check_sheet(book, name, row_count):
    sheet = book.sheet(name)
    pane = sheet.find(f".//{MAIN}pane")
    check(pane is not None and pane.get("ySplit") == "1" and pane.get("state") == "frozen", f"{name}: headings scroll away")
    area = sheet.find(f".//{MAIN}autoFilter")
    check(area is not None and area.get("ref").endswith(str(row_count)), f"{name}: the filter is not over all rows")
    widths = [float(column.get("width")) for column in sheet.iter(MAIN + "col")]
    check(len(widths) > 0 and all(4 < width < 52 for width in widths), f"{name}: columns are {widths} wide")
    check(sheet.find(f".//{MAIN}hyperlink") is None, f"{name}: a text became a link")
    check(sheet.find(f".//{MAIN}f") is None, f"{name}: a text became a formula")


def sheet_of(folder, title, *arguments, others=()):
    """The workbook of a command, whose sheet of this title has the rows of the CSV file."""
    run(folder, *arguments, "--output", "book.xlsx")
    book = Workbook(folder / "book.xlsx")
    check(list(book.sheets) == ["About", title, *others], f"{arguments}: the sheets are {list(book.sheets)}")
    rows = book.rows(title)
    check_rows(f"{arguments}", rows, csv_of(folder, *arguments))
    check_sheet(book, title, len(rows))
    return book


def check_workbooks(folder):
    both = ["ALDER.SGR", "ALDER2.SGR"]
    book = sheet_of(folder, "Rows", "table", *both, "--statistics", "mean,95", others=["Profile"])
    chart = book.parts.read("xl/charts/chart1.xml").decode()
    check(chart.count("<c:ser>") == 2 and "ALDER2.SGR" in chart, "the profile has no line a run")
    about = {row[0]: row[1] for row in book.rows("About") if len(row) > 1 and row[0]}
    check(about["Runs"] == "ALDER.SGR; ALDER2.SGR" and about["Statistics"] == "mean; 95", f"it is about {about}")
    version = run(folder, "--version").strip().upper()
    check(about["Written by"] == version, f"it says that it was written by {about['Written by']}")
    core = book.parts.read("docProps/core.xml").decode()
    check("1980-01-01T00:00:00Z" in core and "All values" in core, f"the properties are {core}")
    for by in ("reach", "river", "point"):
        sheet_of(folder, {"reach": "Reaches", "river": "Rivers", "point": "Points"}[by], "changes", *both, "--by", by)
    sheet_of(folder, "Reaches", "compliance", *both, others=["Overall"])
    for by, title in (("river", "Rivers"), ("determinand", "Determinands"), ("point", "Points"), ("station", "Stations")):
        book = sheet_of(folder, title, "compliance", *both, "--by", by)
        words = " ".join(str(cell) for row in book.rows("About") for cell in row)
        check("bad when high" in words, "it does not say which side is bad")
    sheet_of(folder, "Series", "fit", *both)
    sheet_of(folder, "Sources", "sources", *both, "--determinand", "BOD")
    sheet_of(folder, "Kinds", "sources", *both, "--determinand", "BOD", "--by", "kind", others=["Losses"])
    check_report(folder)
    check_same_bytes(folder)
    check_refusals(folder)


def check_report(folder):
    """One sheet with the columns of the printed report, every row, and the values themselves."""
    run(folder, "report", "ALDER.SGR", "--reaches", "1,11", "--determinands", "1,2", "--statistics", "mean,95", "--targets",
        "--output", "report.xlsx")
    book = Workbook(folder / "report.xlsx")
    check(list(book.sheets) == ["Report"], f"the report has the sheets {list(book.sheets)}")
    rows = book.rows("Report")
    expected = ["Reach", "Feature"] + [f"{name} (Conc) {what}" for name in ("Chloride", "BOD")
                                       for what in ("Mean", "95%-ile", "Target")]
    check(rows[0] == expected, f"the report's columns are {rows[0]}")
    check_sheet(book, "Report", len(rows))
    run(folder, "csv", "ALDER.SGR", "--reaches", "1,11", "--determinands", "1,2", "--statistics", "mean,95", "--targets",
        "--output", "report.csv")
    fields = list(csv.reader(io.StringIO((folder / "report.csv").read_text())))[5:]
    check(len(fields) == len(rows) - 1, f"the report has {len(rows) - 1} rows, the spreadsheet file {len(fields)}")
    for row, line in zip(rows[1:], fields):
        same = row[0] == line[0].strip() and row[1] == line[1]
        check(same and all(abs(cell - float(text)) <= 5e-4 * abs(cell) + 1e-7 for cell, text in zip(row[2:], line[2:])),
              f"the report has {row}, the spreadsheet file {line}")


def check_same_bytes(folder):
    for name in ("one.xlsx", "two.XLSX"):
        run(folder, "changes", "ALDER.SGR", "ALDER2.SGR", "--output", name, TZ="Asia/Tokyo" if name[0] == "t" else "UTC")
        time.sleep(1.1)
    check((folder / "one.xlsx").read_bytes() == (folder / "two.XLSX").read_bytes(), "the same call gives another file")


def check_refusals(folder):
    for words in (["table", "ALDER.SGR", "--format", "xlsx"], ["table", "ALDER.SGR", "--format", "sqlite"],
                  ["changes", "ALDER.SGR", "ALDER2.SGR", "--output", "x.sqlite"],
                  ["fit", "ALDER.SGR", "--format", "sqlite", "--output", "x.sqlite"]):
        run(folder, *words, status=2)
    check(not (folder / "x.sqlite").exists(), "a refused call leaves a file")
    (folder / "broken").mkdir()
    (folder / "broken/libxlsxwriter.so.4").write_bytes(b"no library")
    for words in (["changes", "ALDER.SGR", "ALDER2.SGR"], ["report", "ALDER.SGR"]):
        told = run(folder, *words, "--output", "x.xlsx", status=1, LD_LIBRARY_PATH=str(folder / "broken"))
        check("The library that writes workbooks can't be loaded" in told and "file too short" in told, f"{words}: {told}")
        check(not (folder / "x.xlsx").exists(), "without its library a call leaves a file")


# LibreOffice

def check_in_libreoffice(folder):
    office = shutil.which("soffice") or shutil.which("libreoffice")
    if not office:
        skipped.append("LibreOffice is not installed: workbooks were not opened in it")
        return
    arguments = ["changes", "ALDER.SGR", "ALDER2.SGR", "--by", "point", "--series", "BOD (Conc)"]
    run(folder, *arguments, "--output", "office.xlsx")
    run(folder, "table", "ALDER.SGR", "ALDER2.SGR", "--series", "BOD (Conc)", "--statistics", "mean", "--output", "profile.xlsx")
    every_sheet = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,false,false,false,false,-1"
    for kind, books in ((every_sheet, ["office.xlsx", "nasty.xlsx"]), ("pdf", ["office.xlsx", "profile.xlsx"])):
        done = subprocess.run([office, f"-env:UserInstallation=file://{folder}/office", "--headless", "--convert-to", kind,
                               *books], cwd=folder, capture_output=True, text=True, timeout=300)
        check(done.returncode == 0, f"LibreOffice says {done.stdout}{done.stderr}")
    with open(folder / "office-Points.csv", encoding="utf-8", newline="") as file:
        read = list(csv.reader(file))
    fields = csv_of(folder, *arguments)
    check(len(read) == len(fields), f"LibreOffice reads {len(read)} rows of {len(fields)}")
    for row, line in zip(read, fields):
        line = [field[1:] if re.match("'[=+@\t\r-]", field) else field for field in line]
        if not all(map(same_in_office, row, line)):
            check(False, f"LibreOffice reads {row} for {line}")
            break
    nasty = (folder / "nasty-Rows.csv").read_text(encoding="utf-8")
    for text in ("=1+1 ", "+cmd|' /C calc'!A0 ", "\u05e9\u05dc\u05d5\u05dd", "_x0041_"):
        check(text.strip() in nasty, f"LibreOffice does not show {text}")
    pages = subprocess.run(["pdftotext", "-layout", "profile.pdf", "-"], cwd=folder, capture_output=True, text=True).stdout
    check("All values" in pages and "km from the head" in pages, "the pages lack the first sheet or the chart")


def same_in_office(shown, field):
    try:
        return abs(float(shown) - float(field)) <= 1e-9 * abs(float(field))
    except ValueError:
        return shown == field


# Texts that are more than text

LABELS = ["=1+1", "+cmd|' /C calc'!A0", "-2", "@x", "http://example.org/", "a\u0001b\u007fc", "_x0041_", "\u05e9\u05dc\u05d5\u05dd",
          "'; DROP TABLE runs; --", "L" * 100000, "caf\u00e9 \U0001f41f", "&<>\"]]>".replace('"', "")]


def check_nasty(folder):
    source = (folder / "ALDER.SGR").read_bytes()
    labels = re.findall(rb'"([^"\r\n]{12,}?)"', source)
    replaced, used = source, []
    for label in LABELS:
        while labels:
            old = labels.pop()
            if replaced.count(b'"' + old + b'"') == 1:
                replaced = replaced.replace(b'"' + old + b'"', b'"' + label.encode() + old[-3:] + b'"')
                used.append(label)
                break
    check(used == LABELS, f"only {len(used)} labels found their place")
    (folder / "nasty.SGR").write_bytes(replaced)
    arguments = ["table", "nasty.SGR", "--series", "Flow", "--statistics", "mean"]
    fields = csv_of(folder, *arguments)
    run(folder, *arguments, "--output", "nasty.xlsx")
    book = Workbook(folder / "nasty.xlsx")
    check_sheet(book, "Rows", len(fields))
    shown = {row[5] for row in book.rows("Rows") if len(row) > 5}
    for label in LABELS:
        expected = label if len(label) < 32768 else label[:32766] + "\u2026"
        check(any(str(cell).startswith(expected) for cell in shown), f"{label[:40]} is not among the texts")
    about = {row[0]: row[1] for row in book.rows("About") if len(row) > 1 and row[0]}
    check(about.get("Texts cut", "").startswith("2 "), f"nothing is said of the text that is cut: {about}")
    run(folder, *arguments, "--output", "nasty.sqlite")
    compare_tidy(folder, "nasty.sqlite", ["nasty.SGR"], "--series", "Flow", "--statistics", "mean")


# Databases

def unquoted(field):
    return field[1:] if re.match("'[=+@\t\r-]", field) else field


def same_stored(value, field):
    if value is None:
        return field == ""
    if isinstance(value, (int, float)):
        return field != "" and float(field) == value
    return value == unquoted(field)


def compare_tidy(folder, name, files, *options):
    database = sqlite3.connect(folder / name)
    for table_run in files:
        rows = database.execute("SELECT * FROM tidy WHERE run = ?", [table_run]).fetchall()
        fields = csv_of(folder, "table", table_run, *options)
        check(fields[0] == COLUMNS, f"the columns are {fields[0]}")
        check(len(rows) == len(fields) - 1, f"{name}, {table_run}: {len(rows)} rows, the CSV file has {len(fields) - 1}")
        for row, line in zip(rows, fields[1:]):
            if not all(map(same_stored, row, line)):
                check(False, f"{name}: {row} is {line} in the CSV file")
                break
    columns = [each[0] for each in database.execute("SELECT * FROM tidy LIMIT 0").description]
    check(columns == COLUMNS, f"the columns of tidy are {columns}")
    check_sound(database, name)
    database.close()


def check_sound(database, name):
    check(database.execute("PRAGMA integrity_check").fetchall() == [("ok",)], f"{name} is not sound")
    check(database.execute("PRAGMA foreign_key_check").fetchall() == [], f"{name}: keys lead nowhere")
    check(database.execute("PRAGMA journal_mode").fetchone() == ("delete",), f"{name} is more than one file")


def contents(path):
    database = sqlite3.connect(path)
    lines = list(database.iterdump())
    database.close()
    return lines


def check_databases(folder):
    run(folder, "table", "ALDER.SGR", "ALDER2.SGR", "--output", "runs.sqlite")
    compare_tidy(folder, "runs.sqlite", ["ALDER.SGR", "ALDER2.SGR"])
    before = contents(folder / "runs.sqlite")
    run(folder, "table", "ALDER.SGR", "--output", "runs.sqlite")
    check(contents(folder / "runs.sqlite") == before, "a run that replaces itself changes something")
    run(folder, "table", "ALDER2.SGR", "--interpolated", "--series", "0,2", "--statistics", "mean", "--format", "sqlite",
        "--output", "runs.sqlite")
    compare_tidy(folder, "runs.sqlite", ["ALDER.SGR"])
    compare_tidy(folder, "runs.sqlite", ["ALDER2.SGR"], "--interpolated", "--series", "0,2", "--statistics", "mean")
    database = sqlite3.connect(folder / "runs.sqlite")
    facts = database.execute("SELECT name, percentile_mode FROM runs ORDER BY id").fetchall()
    check([name for name, _ in facts] == ["ALDER.SGR", "ALDER2.SGR"], f"the runs are {facts}")
    series = database.execute("SELECT name, kind, determinand FROM series WHERE determinand = 'BOD' OR id = 1").fetchall()
    check(series == [("Flow", "flow", None), ("BOD (Conc)", "concentration", "BOD"), ("BOD (Load)", "load", "BOD")],
          f"the series are {series}")
    database.execute("PRAGMA foreign_keys = ON")
    database.execute("DELETE FROM runs WHERE name = 'ALDER2.SGR'")
    database.commit()
    left = [database.execute(f"SELECT count(*) FROM {table} WHERE run NOT IN (SELECT id FROM runs)").fetchone()[0]
            for table in ("reaches", "points", "statistics", "observed", "targets")]
    check(left == [0] * 5, f"of a run that is deleted there is left {left}")
    database.close()
    check_strangers(folder)
    check_in_shell(folder)


def check_strangers(folder):
    (folder / "text.sqlite").write_text("name,value\n")
    other = sqlite3.connect(folder / "other.sqlite")
    other.execute("CREATE TABLE runs (a)")
    other.commit()
    other.close()
    for name in ("text.sqlite", "other.sqlite"):
        before = (folder / name).read_bytes()
        told = run(folder, "table", "ALDER.SGR", "--output", name, status=1)
        check(f"Database: {name} is no database of Korvel results" in told, f"{name}: {told}")
        check((folder / name).read_bytes() == before, f"{name} was changed")
    (folder / "folder.sqlite").mkdir()
    run(folder, "table", "ALDER.SGR", "--output", "folder.sqlite", status=1)


def check_in_shell(folder):
    if not shutil.which("sqlite3"):
        skipped.append("the sqlite3 shell is not installed")
        return
    run(folder, "table", "ALDER.SGR", "--output", "shell.sqlite")
    shell = subprocess.run(["sqlite3", "shell.sqlite", "SELECT count(*) FROM tidy; .schema statistics"], cwd=folder,
                           capture_output=True, text=True)
    count = len(csv_of(folder, "table", "ALDER.SGR")) - 1
    check(shell.stdout.splitlines()[:1] == [str(count)], f"the shell says {shell.stdout}{shell.stderr}")


def start_writing(folder, name, output):
    return subprocess.Popen([str(PROGRAM), "table", name, "--output", output], cwd=folder, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL)


def check_killed(folder):
    """A run is replaced by one of other values; the database holds the old or the new one, whenever it is killed."""
    (folder / "new").mkdir()
    shutil.copy(folder / "ALDER2.SGR", folder / "new/ALDER.SGR")
    run(folder, "table", "ALDER.SGR", "--output", "kill.sqlite")
    run(folder, "table", "new/ALDER.SGR", "--output", "after.sqlite")
    begun = time.monotonic()
    run(folder, "table", "new/ALDER.SGR", "--output", "kill.sqlite")
    duration = time.monotonic() - begun
    old_state, new_state = None, contents(folder / "kill.sqlite")
    run(folder, "table", "ALDER.SGR", "--output", "kill.sqlite")
    old_state = contents(folder / "kill.sqlite")
    chance = random.Random(1)
    old, new = 0, 0
    for _ in range(40):
        writing = start_writing(folder, "new/ALDER.SGR", "kill.sqlite")
        time.sleep(chance.uniform(0, 1.1) * duration)
        writing.send_signal(signal.SIGKILL)
        writing.wait()
        database = sqlite3.connect(folder / "kill.sqlite")
        check_sound(database, "after a kill, kill.sqlite")
        database.close()
        state = contents(folder / "kill.sqlite")
        check(state in (old_state, new_state), "after a kill the database is neither the old nor the new one")
        old, new = old + (state == old_state), new + (state == new_state)
        if state == new_state:
            run(folder, "table", "ALDER.SGR", "--output", "kill.sqlite")
    print(f"40 kills: {old} left the old run, {new} the new one")
    check(old > 0, "no kill came before the end")
    for wait in (0.3, 0.6, 0.9):
        writing = start_writing(folder, "new/ALDER.SGR", "fresh.sqlite")
        time.sleep(wait * duration)
        writing.send_signal(signal.SIGKILL)
        writing.wait()
        if (folder / "fresh.sqlite").exists():
            check(contents(folder / "fresh.sqlite") == contents(folder / "after.sqlite"), "a new database is not whole")
            (folder / "fresh.sqlite").unlink()
    run(folder, "table", "ALDER.SGR", "--output", "fresh.sqlite")
    left = [name for name in os.listdir(folder) if name.startswith(".korvel-")]
    check(left == [], f"a killed program's {left} are left when the next one has written")


def check_stopped(folder):
    """Ctrl+C while it writes leaves the old state, without a journal beside it."""
    large = folder / "stop"
    large.mkdir()
    names = []
    for number in range(8):
        names.append(f"R{number}.SGR")
        shutil.copy(folder / "ALDER.SGR", large / names[-1])
    run(large, "table", "R0.SGR", "--output", "s.sqlite")
    before = contents(large / "s.sqlite")
    for wait in (0, 0.1, 0.2):
        writing = subprocess.Popen([str(PROGRAM), "table", *names, "--interpolated", "--output", "s.sqlite"], cwd=large,
                                   stderr=subprocess.PIPE, text=True)
        while not (large / "s.sqlite-journal").exists() and writing.poll() is None:
            time.sleep(0.002)
        time.sleep(wait)
        writing.send_signal(signal.SIGINT)
        told = writing.communicate()[1]
        check("Stopped; nothing was written." in told and writing.returncode == 1, f"Ctrl+C: {told}")
        check(contents(large / "s.sqlite") == before, "a stopped call changes the database")
        check(sorted(os.listdir(large)) == sorted([*names, "s.sqlite"]), f"a stopped call leaves {os.listdir(large)}")


ON_SMALL_DISK = """mount -t tmpfs -o size=$2k none disk || exit 97
cp kept.sqlite disk/d.sqlite
"$1" table new/ALDER.SGR --interpolated --output disk/d.sqlite; status=$?
ls -A disk > names; cp disk/d.sqlite left.sqlite; exit $status
"""


def check_full_disk(folder):
    run(folder, "table", "ALDER.SGR", "--output", "kept.sqlite")
    (folder / "disk").mkdir()
    size = (folder / "kept.sqlite").stat().st_size // 1024
    for room in (64, 400, size):
        words = ["unshare", "-Urm", "sh", "-c", ON_SMALL_DISK, "sh", str(PROGRAM), str(size + room)]
        done = subprocess.run(words, cwd=folder, capture_output=True, text=True, timeout=300)
        if done.returncode not in (0, 1) or not (folder / "names").exists():
            skipped.append(f"no user may mount a small disk here: {done.stderr.strip()}")
            return
        check(done.returncode == 1 and "Run-time error '61': Disk full" in done.stderr, f"a full disk: {done.stderr}")
        check((folder / "names").read_text().split() == ["d.sqlite"], "a full disk: something is left")
        check(contents(folder / "left.sqlite") == contents(folder / "kept.sqlite"), "a full disk changes the database")


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for sample in (SOURCE / "samples").glob("*.DAT"):
            shutil.copy(sample, folder)
            run(folder, "run", sample.name, "--wait")
        for part in (check_workbooks, check_nasty, check_in_libreoffice, check_databases, check_killed, check_stopped,
                     check_full_disk):
            begun = time.monotonic()
            part(folder)
            print(f"{part.__name__}: {time.monotonic() - begun:.1f} s")
    print("\n".join([*failures, *(f"Skipped: {each}" for each in skipped)]))
    print(f"{checks} checks, {len(failures)} failures")
    return 1 if failures or checks == 0 else 0


sys.exit(main())

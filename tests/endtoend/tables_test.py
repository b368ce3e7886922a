"""Reads workbooks and databases back and holds them against the same tables as CSV.

tables_test.py SOURCE BUILD

Cells are read from the workbook's own parts, then once more from what LibreOffice makes of them; databases by Python's
SQLite and by the sqlite3 shell. Readers that are not installed are named at the end. Databases are also written to with
the program killed at random moments, stopped, and on a disk that is full.
"""

import csv
import io
import pathlib
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time

from tables_faults import check_atlas, check_full_disk, check_full_disk_for_books, check_killed, check_stopped
from tables_looks import check_looks
from tables_readers import check_decimal_commas, check_in_languages, check_in_libreoffice, check_in_shell
from tables_tools import (COLUMNS, SOURCE, Workbook, check, check_rows, check_sheet, check_sound, contents, counted,
                          csv_of, failures, run, skipped)


# Workbooks

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
    for library in ("libxlsxwriter.so.4", "libsqlite3.so.0"):
        (folder / "broken" / library).write_bytes(b"no library")
    for kind, name, *words in (["workbooks", "x.xlsx", "changes", "ALDER.SGR", "ALDER2.SGR"], ["workbooks", "x.xlsx", "report", "ALDER.SGR"],
                               ["databases", "x.sqlite", "table", "ALDER.SGR"]):
        told = run(folder, *words, "--output", name, status=1, LD_LIBRARY_PATH=str(folder / "broken"))
        check(f"The library that writes {kind} can't be loaded" in told and "file too short" in told, f"{words}: {told}")
        check(not (folder / name).exists(), "without its library a call leaves a file")


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
    check_nasty_atlas(folder)


def check_nasty_atlas(folder):
    run(folder, "atlas", "nasty.SGR", "--series", "Flow,BOD (Conc)", "--title", "\u05e9\u05dc\u05d5\u05dd =1+1 " + "T" * 100000)
    if not shutil.which("qpdf") or not shutil.which("pdftotext"):
        skipped.append("qpdf or pdftotext is not installed: no atlas of hostile texts was read")
        return
    checked = subprocess.run(["qpdf", "--check", "nasty-atlas.pdf"], cwd=folder, capture_output=True, text=True)
    check(checked.returncode == 0, f"qpdf says {checked.stdout}{checked.stderr}")
    words = subprocess.run(["pdftotext", "nasty-atlas.pdf", "-"], cwd=folder, capture_output=True, text=True).stdout
    check("=1+1" in words and "1 of " in words, "the atlas of hostile texts lacks its own")


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
    check_ways(folder)
    check_strangers(folder)
    check_in_shell(folder)
    check_in_languages(folder)


def check_ways(folder):
    """The guide's questions find their values by keys, not by going through all of them."""
    guide = (SOURCE / "docs/guide/database.md").read_text()
    questions = re.findall(r'^\$ sqlite3 -box runs.sqlite "(.*)"$', guide, re.MULTILINE)
    check(len(questions) == 5, f"the guide has {len(questions)} questions")
    run(folder, "table", "ALDER.SGR", "ALDER2.SGR", "--output", "ways.sqlite")
    database = sqlite3.connect(folder / "ways.sqlite")
    for question in questions:
        plan = [row[3] for row in database.execute("EXPLAIN QUERY PLAN " + question)]
        scans = [step for step in plan if re.match("SCAN (statistics|points|observed|targets)", step)]
        check(scans == [], f"{question}: {plan}")
        if "AS before" in question or "AS p90" in question:  # a few values of one or two runs
            ways = [step for step in plan if "SEARCH statistics" in step]
            check(ways and all("point=? AND series=? AND statistic=?" in way for way in ways), f"{question}: {plan}")
    database.close()


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


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for sample in (SOURCE / "samples").glob("*.DAT"):
            shutil.copy(sample, folder)
            run(folder, "run", sample.name, "--wait")
        for part in (check_workbooks, check_looks, check_nasty, check_in_libreoffice, check_decimal_commas, check_databases, check_killed,
                     check_stopped, check_full_disk, check_full_disk_for_books, check_atlas):
            begun = time.monotonic()
            part(folder)
            print(f"{part.__name__}: {time.monotonic() - begun:.1f} s")
    print("\n".join([*failures, *(f"Skipped: {each}" for each in skipped)]))
    print(f"{len(counted)} checks, {len(failures)} failures")
    return 1 if failures or not counted else 0


sys.exit(main())

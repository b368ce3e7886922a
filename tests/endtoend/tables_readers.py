"""Workbooks and databases in the programs that their receivers have: LibreOffice, the sqlite3 shell, Python and R."""

import csv
import re
import shutil
import sqlite3
import subprocess
import sys

from tables_tools import SOURCE, check, csv_of, run, skipped


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


GERMAN = """<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Setup/L10N"><prop oor:name="ooSetupSystemLocale" oor:op="fuse"><value>de-DE</value></prop></item>
</oor:items>
"""


def check_decimal_commas(folder):
    """Where numbers have decimal commas, those of a workbook are the same numbers, and no texts."""
    office = shutil.which("soffice") or shutil.which("libreoffice")
    if not office:
        return
    (folder / "german/user").mkdir(parents=True)
    (folder / "german/user/registrymodifications.xcu").write_text(GERMAN)
    texts_quoted = "csv:Text - txt - csv (StarCalc):59,34,76,1,,0,true,true,false,false,false,-1"
    arguments = ["table", "ALDER.SGR", "ALDER2.SGR", "--series", "BOD (Conc)", "--statistics", "mean"]
    done = subprocess.run([office, f"-env:UserInstallation=file://{folder}/german", "--headless", "--convert-to", texts_quoted,
                           "--outdir", "german", "profile.xlsx"], cwd=folder, capture_output=True, text=True, timeout=300)
    check(done.returncode == 0, f"LibreOffice says {done.stdout}{done.stderr}")
    with open(folder / "german/profile-Rows.csv", encoding="utf-8", newline="") as file:
        lines = file.read().splitlines()
    fields = csv_of(folder, *arguments)
    check(len(lines) == len(fields), f"with decimal commas LibreOffice reads {len(lines)} rows of {len(fields)}")
    commas = 0
    for line, row in zip(lines[1:], fields[1:]):
        cells = line.split(";")
        commas += line.count(",")
        same = [cell == f'"{field}"' or cell == field == "" or
                (cell[:1] != '"' and same_in_office(cell.replace(",", "."), field)) for cell, field in zip(cells, row)]
        if len(cells) != len(row) or not all(same):
            check(False, f"with decimal commas LibreOffice reads {line} for {row}")
            break
    check(commas > 1000, f"LibreOffice shows {commas} decimal commas")


def same_in_office(shown, field):
    try:
        return abs(float(shown) - float(field)) <= 1e-9 * abs(float(field))
    except ValueError:
        return shown == field


def check_in_shell(folder):
    if not shutil.which("sqlite3"):
        skipped.append("the sqlite3 shell is not installed")
        return
    run(folder, "table", "ALDER.SGR", "--output", "shell.sqlite")
    shell = subprocess.run(["sqlite3", "shell.sqlite", "SELECT count(*) FROM tidy", ".schema statistics"], cwd=folder,
                           capture_output=True, text=True)
    count = len(csv_of(folder, "table", "ALDER.SGR")) - 1
    check(shell.stdout.splitlines()[:1] == [str(count)], f"the shell says {shell.stdout}{shell.stderr}")
    for words in ("-- in the units of the model's data file", "-- confidence limits; NULL for the flow"):
        check(words in shell.stdout, f"the schema does not say {words}: {shell.stdout}")


def answer_of(folder, question):
    database = sqlite3.connect(folder / "ways.sqlite")
    rows = database.execute(question).fetchall()
    database.close()
    return rows


def check_in_languages(folder):
    """The lines that the guide gives for Python and R, as they stand there."""
    guide = (SOURCE / "docs/guide/database.md").read_text()
    shutil.copy(folder / "ways.sqlite", folder / "runs.sqlite")
    for language, program in (("python", [sys.executable]), ("r", ["Rscript", "--vanilla"])):
        lines = re.search(f"```{language}\n(.*?)```", guide, re.DOTALL)[1]
        check(lines.count("\n") == 3, f"{language} takes {lines.count(chr(10))} lines")
        if not shutil.which(program[0]):
            skipped.append(f"{program[0]} is not installed: the guide's lines for it were not tried")
            continue
        (folder / f"guide.{language}").write_text(lines)
        done = subprocess.run([*program, f"guide.{language}"], cwd=folder, capture_output=True, text=True, timeout=120)
        if "there is no package called" in done.stderr:
            skipped.append("R lacks the package RSQLite: the guide's lines for it were not tried")
            continue
        question = re.search(r'"(SELECT.*?)"', lines)[1]
        for name, value in answer_of(folder, question):
            told = next((line for line in re.split(r"\n|\), \(", done.stdout) if name in line), "")
            check(f"{value:g}" in told, f"{language} says {done.stdout}{done.stderr}, not {name} {value}")

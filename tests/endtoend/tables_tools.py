"""What the tests of workbooks and databases share: calls of the program, and reading of what it wrote."""

import csv
import io
import os
import pathlib
import re
import sqlite3
import subprocess
import sys
import xml.etree.ElementTree as tree
import zipfile

SOURCE, BUILD = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
PROGRAM = BUILD / "app/korvel"
MAIN = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
RELATED = "{http://schemas.openxmlformats.org/officeDocument/2006/relationships}id"
COLUMNS = ("run,reach,reach_name,distance,to_mouth,feature,side,type,series,statistic,value,low,high,observed,"
           "target").split(",")
failures, skipped, counted = [], [], []


def check(holds, words):
    counted.append(words)
    if not holds:
        failures.append(words)


def run(folder, *arguments, status=0, **environment):
    result = subprocess.run([str(PROGRAM), *map(str, arguments)], cwd=folder, capture_output=True, text=True, timeout=300,
                            env={"PATH": os.environ["PATH"], "HOME": str(folder), "LC_ALL": "C.UTF-8", **environment})
    check(result.returncode == status, f"{arguments} ends with {result.returncode}: {result.stderr}")
    return result.stdout + result.stderr


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


def check_sound(database, name):
    check(database.execute("PRAGMA integrity_check").fetchall() == [("ok",)], f"{name} is not sound")
    check(database.execute("PRAGMA foreign_key_check").fetchall() == [], f"{name}: keys lead nowhere")
    check(database.execute("PRAGMA journal_mode").fetchone() == ("delete",), f"{name} is more than one file")


def contents(path):
    database = sqlite3.connect(path)
    lines = list(database.iterdump())
    database.close()
    return lines

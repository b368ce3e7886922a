"""How workbooks look: the format of each number, the pages that they are printed on, the heights of long texts."""

import math
import re
import xml.etree.ElementTree as tree

from tables_tools import MAIN, Workbook, cell_value, check, column_of, run

PLACES = ("distance", "to_mouth", "km")  # are shown as they stand in the file
WHOLE = ("reach", "type", "n", "points", "within_limits", "bounded", "clear_rises", "clear_falls", "judged_points",
         "failing_points", "sure_fails", "sure_passes", "unsure", "reaches_failing", "reaches_judged", "at_reach")


def expected_format(heading, value):
    size = abs(value)
    if size == 0 or heading in WHOLE or heading.endswith(PLACES):
        return "General"
    if size >= 1e9 or size < 1e-5:
        return "0.000E+00"
    if size >= 1000:
        return "#,##0"
    figures = 3 - math.floor(math.log10(size))
    for exponent in range(-5, 3):  # decimal powers are not always what their logarithm says
        if size >= float(f"1e{exponent}"):
            figures = 3 - exponent
    return "0." + "0" * figures


def formats_of(book):
    """The number format of each look of a cell."""
    styles = tree.fromstring(book.parts.read("xl/styles.xml"))
    own = {each.get("numFmtId"): each.get("formatCode") for each in styles.iter(MAIN + "numFmt")}
    built_in = {"0": "General", "1": "0", "2": "0.00", "3": "#,##0", "4": "#,##0.00", "11": "0.00E+00"}
    looks = styles.find(MAIN + "cellXfs")
    return [own.get(look.get("numFmtId")) or built_in[look.get("numFmtId")] for look in looks]


def check_number_formats(book, title):
    formats, headings, seen = formats_of(book), {}, set()
    for row in book.sheet(title).iter(MAIN + "row"):
        for cell in row:
            column, value = column_of(cell.get("r")), cell_value(cell)
            if row.get("r") == "1":
                headings[column] = value
            elif isinstance(value, float):
                look, expected = formats[int(cell.get("s", "0"))], expected_format(headings[column], value)
                seen.add(look)
                if look != expected:
                    check(False, f"{title}: {headings[column]} {value} is shown as {look}, not as {expected}")
                    return
    check(len(seen) > 2, f"{title}: numbers of any size are shown as {seen}")


def page_of(book, title):
    setup = book.sheet(title).find(MAIN + "pageSetup")
    return setup.get("orientation"), int(setup.get("fitToWidth", "1")), setup.get("fitToHeight")


def titles_of(book, title):
    """The rows and columns that each printed page begins with."""
    names = tree.fromstring(book.parts.read("xl/workbook.xml"))
    index = list(book.sheets).index(title)
    found = [name.text for name in names.iter(MAIN + "definedName")
             if name.get("name") == "_xlnm.Print_Titles" and name.get("localSheetId") == str(index)]
    return found[0] if found else ""


def check_printing(book, title, repeated):
    """A page as wide as 220 characters can be read; what is wider goes on beside it, after its first columns."""
    widths = []
    for column in book.sheet(title).iter(MAIN + "col"):
        count = int(column.get("max")) - int(column.get("min")) + 1
        widths += [float(column.get("width")) - 0.7109375] * count
    orientation, across, down = page_of(book, title)
    check(orientation == "landscape" and down == "0", f"{title} is printed {orientation}, {down} pages high")
    again = sum(widths[:repeated])
    pages = 1 if repeated == 0 else math.ceil((sum(widths) - again) / (220 - again))
    check(across == pages, f"{title}: columns of {sum(widths):.0f} characters are printed on {across} pages")
    columns = f"$A:${chr(ord('A') + repeated - 1)}," if repeated > 0 else ""
    named = titles_of(book, title).replace(title + "!", "")
    check(named == columns + "$1:$1", f"{title}: each page begins with {named}")
    footer = book.sheet(title).find(f".//{MAIN}oddFooter")
    check(footer is not None and footer.text == "&L&A&R&P of &N", f"{title}: pages have no numbers")


def check_about(book):
    """A row is as high as its text, also where the program that shows it doesn't look."""
    long_ones = 0
    for row in book.sheet("About").iter(MAIN + "row"):
        lines = max(math.ceil(len(str(cell_value(cell))) / 80) for cell in row)
        if lines > 1:
            long_ones += 1
            check(float(row.get("ht", "15")) >= 15 * lines, f"{lines} lines stand in a row {row.get('ht')} high")
    check(long_ones > 0, "no text of the first sheet has a second line")


def check_looks(folder):
    both = ["ALDER.SGR", "ALDER2.SGR"]
    for title, repeated, *arguments in (["Rows", 0, "table", *both, "--statistics", "mean"],
                                        ["Reaches", 4, "changes", *both], ["Reaches", 4, "compliance", *both],
                                        ["Series", 0, "fit", *both], ["Sources", 0, "sources", *both, "--determinand", "BOD"]):
        run(folder, *arguments, "--output", "looks.xlsx")
        book = Workbook(folder / "looks.xlsx")
        check_number_formats(book, title)
        check_printing(book, title, repeated)
        if arguments[0] in ("changes", "fit"):
            check_about(book)
    run(folder, "report", "ALDER.SGR", "--determinands", "all", "--targets", "--limits", "--output", "looks.xlsx")
    book = Workbook(folder / "looks.xlsx")
    check_number_formats(book, "Report")
    check_printing(book, "Report", 2)
    chart_rows(folder)


def chart_rows(folder):
    """The chart doesn't touch the headings, or its edge would be on every printed page."""
    run(folder, "table", "ALDER.SGR", "--series", "Flow", "--statistics", "mean", "--output", "looks.xlsx")
    drawing = Workbook(folder / "looks.xlsx").parts.read("xl/drawings/drawing1.xml").decode()
    top = re.search(r"<xdr:from>.*?<xdr:row>(\d+)</xdr:row>", drawing, re.DOTALL)
    check(top and int(top[1]) > 1, f"the chart begins in row {top and top[1]}")

"""The published page in a real browser: what it shows, that it asks for nothing, and that everyone can use it.

page_test.py SOURCE BUILD
"""

import csv
import io
import os
import pathlib
import re
import resource
import subprocess
import sys
import tempfile
import time
import xml.etree.ElementTree as xml

import browser

import page_checks
from page_checks import BUILD, RUNS, SKIPPED, SOURCE, WIDTHS, check, check_inside, check_quiet, equal, korvel, open_page, shown

JUDGED = {"Flow": "mean", "Chloride (Conc)": "mean", "BOD (Conc)": "p90", "Nitrate. (Conc)": "p95", "Zinc (Conc)": "p95"}


def make_pages(folder):
    page_checks.make_runs(folder)
    started = time.monotonic()
    korvel(folder, "publish", *RUNS, "--output", "page.html")
    print(f"published in {time.monotonic() - started:.2f} s, {(folder / 'page.html').stat().st_size} bytes")
    check((folder / "page.html").stat().st_size <= 1_500_000, "the samples' page has at most 1.5 MB")


def table_rows(folder):
    """The rows of `korvel table` by run, reach, distance, side and series."""
    text = korvel(folder, "table", *RUNS, "--interpolated", "--format", "csv")
    rows = {}
    for row in csv.DictReader(io.StringIO(text)):
        key = (row["run"], row["reach"], float(row["distance"]), row["side"], row["series"], row["statistic"])
        rows.setdefault(key, []).append(row)
    return rows


# Of the first river: the place that is read, and what each panel says of each run.
READ = """
const river = document.querySelector('.river');
return {place: river.querySelector('.place').textContent,
        panels: [...river.querySelectorAll('.panel:not([hidden])')].map(panel => ({
            series: panel.dataset.series,
            runs: [...panel.querySelectorAll('.values span')].map(span => [Number(span.dataset.run), span.textContent])}))};
"""


def expected_value(rows, page_run, reach, distance, side, series, statistic):
    found = rows.get((RUNS[page_run], reach, distance, side, series, statistic), [])
    return [shown(float(row["value"])) for row in found]


def check_values(seen, rows, lengths):
    parts = seen["place"].split(" · ")
    km, reach = float(parts[0].split()[0]), parts[-1].split()[0]
    distance, side = km - lengths[reach], parts[1].rsplit(", ", 1)[-1] if len(parts) == 3 else ""
    side = side if side in ("U/S", "D/S") else ""
    check(len(seen["panels"]) == 9, f"nine panels are read: {len(seen['panels'])}")
    for panel in seen["panels"]:
        statistic = JUDGED.get(panel["series"])
        for run, words in panel["runs"] if statistic else []:
            near = [key for key in rows if key[0] == RUNS[run] and key[1] == reach and key[4] == panel["series"]
                    and key[5] == statistic and abs(key[2] - distance) < 0.006]
            values = {shown(float(row["value"])) for key in near for row in rows[key]
                      if not side or row["side"] == side}
            check(words.split(" ")[0] in values, f"{panel['series']} of {RUNS[run]} at {seen['place']}: {words} is none of {values}")


def check_cursor(page, rows):
    lengths = {}
    start = 0.0
    for name, length in (("1", 14.2), ("3", 12.8), ("7", 15.3), ("9", 17.6), ("13", 19.5), ("14", 8.7)):
        lengths[name], start = start, start + length
    page.run("document.querySelector('.river').scrollIntoView()")
    page.wait_for("return document.querySelectorAll('.river .panel canvas').length >= 9")
    first = page.run(READ)
    check_values(first, rows, lengths)
    for share in (0.2, 0.5, 0.93):
        box = page.run("const b = document.querySelector('.river .panel .u-over').getBoundingClientRect();"
                       "return [b.left, b.top, b.width, b.height]")
        page.mouse("mouseMoved", box[0] + share * box[2], box[1] + box[3] / 2)
        page.wait_for("return document.querySelector('.river .place').textContent !== arguments[0]", first["place"])
        seen = page.run(READ)
        check_values(seen, rows, lengths)
        lines = page.run("return [...document.querySelectorAll('.river:first-of-type .panel:not([hidden]) .u-cursor-x')]"
                         ".map(line => new DOMMatrix(getComputedStyle(line).transform).e)")
        check(max(lines) - min(lines) < 3, f"the cursor stands at one place in all panels: {lines}")
    # By the keyboard: point by point, to the next feature, and read aloud.
    page.run("document.querySelector('.river input[type=range]').focus()")
    before = page.run("return document.querySelector('.river input[type=range]').value")
    for key in ("ArrowRight", "ArrowRight", "ArrowLeft"):
        page.devtools("Input.dispatchKeyEvent", type="keyDown", key=key, code=key,
                      windowsVirtualKeyCode=39 if key == "ArrowRight" else 37)
    now = page.run("return document.querySelector('.river input[type=range]').value")
    equal(int(now), int(before) + 1, "the keys move the cursor point by point")
    check_values(page.run(READ), rows, lengths)
    check("BOD" in page.run("return document.querySelector('.river input[type=range]').ariaValueText ?? "
                            "document.querySelector('.river input[type=range]').getAttribute('aria-valuetext')"),
          "the slider reads values aloud")


def check_toggles(page):
    shown_runs = "return document.querySelectorAll('.river .panel .values')[2].querySelectorAll('span').length"
    equal(page.run(shown_runs), 2, "both runs are shown")
    page.run("document.querySelectorAll('#tools input[name=run]')[1].click()")
    equal(page.run(shown_runs), 1, "a run that is switched off has no values")
    check(page.run("return [...document.querySelectorAll('svg.picture .run-1')].every(e => getComputedStyle(e).display === 'none')"),
          "nor a line in the pictures")
    page.run("document.querySelectorAll('#tools input[name=run]')[1].click()")
    equal(page.run(shown_runs), 2, "and is there again")
    count = "return document.querySelectorAll('.river:first-of-type .panel:not([hidden])').length"
    page.run("[...document.querySelectorAll('#tools input[name=series]')].at(-1).click()")
    equal(page.run(count), 10, "a load joins the panels")
    page.run("[...document.querySelectorAll('#tools input[name=series]')].at(-1).click()")
    equal(page.run(count), 9, "and leaves them")
    note = "return document.querySelector('.river .panel[data-series=\"BOD (Conc)\"] h4 small').textContent"
    equal(page.run(note), "90 percentile", "BOD is shown by what is judged")
    page.run("document.querySelectorAll('#tools input[name=statistic]')[1].click()")
    equal(page.run(note), "mean", "or by its mean")
    page.run("document.querySelectorAll('#tools input[name=statistic]')[0].click()")


def check_zoom(page):
    page.run("document.querySelector('.river').scrollIntoView()")
    digest = "return [...document.querySelectorAll('.river:first-of-type canvas')].slice(0, 2).map(c => c.toDataURL().length + c.toDataURL().slice(-4000))"
    whole = page.run(digest)
    box = page.run("const b = document.querySelector('.river .panel .u-over').getBoundingClientRect();"
                   "return [b.left, b.top, b.width, b.height]")
    y = box[1] + box[3] / 2
    page.mouse("mouseMoved", box[0] + 0.2 * box[2], y)
    page.mouse("mousePressed", box[0] + 0.2 * box[2], y, 1)
    page.mouse("mouseMoved", box[0] + 0.6 * box[2], y, 1)
    page.mouse("mouseReleased", box[0] + 0.6 * box[2], y, 1)
    time.sleep(0.2)
    zoomed = page.run(digest)
    check(all(a != b for a, b in zip(whole, zoomed)), "a dragged box zooms all panels")
    page.run("[...document.querySelectorAll('.river button')].find(b => b.textContent === 'All').click()")
    page.mouse("mouseMoved", 5, 5)
    time.sleep(0.2)
    page.run("[...document.querySelectorAll('.river button')].find(b => b.textContent === 'Zoom in').click()")
    time.sleep(0.2)
    check(page.run(digest) != whole, "so does the button")
    page.run("[...document.querySelectorAll('.river button')].find(b => b.textContent === 'All').click()")


def column_of(page, table, name):
    return page.run("const table = document.getElementById(arguments[0]), cells = [...table.tHead.rows[0].cells];"
                    "const column = cells.findIndex(cell => cell.dataset.name === arguments[1]);"
                    "return [...table.tBodies[0].rows].map(row => row.cells[column].dataset.v ?? row.cells[column].textContent.trim())",
                    table, name)


def check_sorting(page):
    click = ("const table = document.getElementById(arguments[0]); const cell = [...table.tHead.rows[0].cells].find("
             "cell => cell.dataset.name === arguments[1]); cell.querySelector('button').click(); return cell.ariaSort ?? cell.getAttribute('aria-sort')")
    for way in ("ascending", "descending"):
        equal(page.run(click, "compliance-1", "worst_value"), way, "the heading tells how it is sorted")
        values = [float(value) for value in column_of(page, "compliance-1", "worst_value") if value]
        equal(values, sorted(values, reverse=way == "descending"), f"numbers stand {way}")
    page.run(click, "compliance-1", "determinand")
    names = column_of(page, "compliance-1", "determinand")
    equal(names, sorted(names), "names stand in order")
    page.run(click, "changes-2", "percent")
    page.run(click, "changes-2", "percent")
    values = column_of(page, "changes-2", "percent")
    check(values.index("") > 0 if "" in values else True, "what has no value stands last")


def check_csv(page, folder):
    downloads = pathlib.Path(page.downloads.name)
    page.devtools("Browser.setDownloadBehavior", behavior="allow", downloadPath=str(downloads))
    page.run("document.getElementById('changes-2').closest('.table').nextElementSibling.querySelector('button').click()")
    rows = list(csv.DictReader(io.StringIO(page.downloaded(downloads, ".csv"))))
    told = list(csv.DictReader(io.StringIO(korvel(folder, "changes", *RUNS, "--format", "csv"))))
    equal(len(rows), len(told), "the page's table of changes has the command's rows")
    by_place = {(row["reach"], row["series"]): row for row in told}
    for row in rows:
        other = by_place[row["reach"], row["series"]]
        for name in ("base_mean", "run_mean", "change", "percent", "largest_fall_value", "largest_rise_feature", "clear_falls"):
            equal(row[name], other[name], f"{name} of {row['series']} in reach {row['reach']}")
    page.run("document.getElementById('compliance-2').closest('.table').nextElementSibling.querySelector('button').click()")
    rows = list(csv.DictReader(io.StringIO(page.downloaded(downloads, ".csv"))))
    told = [row for row in csv.DictReader(io.StringIO(korvel(folder, "compliance", *RUNS, "--format", "csv")))
            if row["run"] == RUNS[1] and row["verdict"]]
    equal(len(rows), len(told), "and that of compliance")
    by_place = {(row["reach"], row["determinand"]): row for row in told}
    for row in rows:
        other = by_place[row["reach"], row["determinand"]]
        for name in ("failing_length", "verdict", "confident_verdict", "worst_value", "needed", "headroom", "change_verdict", "change_deteriorated"):
            equal(row[name], other[name], f"{name} of {row['determinand']} in reach {row['reach']}")


def check_svg(page):
    downloads = pathlib.Path(page.downloads.name)
    for which in ("[...document.querySelectorAll('.river button')].find(b => b.textContent.startsWith('Save picture'))",
                  "document.querySelector('#network .save button')"):
        page.run(which + ".click()")
        picture = xml.fromstring(page.downloaded(downloads, ".svg"))
        space = "{http://www.w3.org/2000/svg}"
        check(picture.tag == space + "svg", "a picture is an SVG of its own")
        check(len(picture.findall(f".//{space}path")) > 10, "with lines in it")
        check(any("Alder" in "".join(text.itertext()) for text in picture.iter(space + "text")), "and names")
        check(float(picture.get("width")) > 300, "and a size")


AXE = """
const done = arguments[arguments.length - 1];
axe.run(document, {resultTypes: ['violations'], preload: false}).then(result => done(result.violations
    .filter(found => ['serious', 'critical'].includes(found.impact))
    .map(found => found.id + ': ' + found.nodes.slice(0, 3).map(node => node.target.join(' ') + ' ' + (node.any[0]?.message ?? '')).join(' | '))),
    error => done([String(error)]));
"""


# On a page with fewer series: what takes part is the same, and the checks look at every cell.
def check_everyone(page, folder):
    path = folder / "few.html"
    korvel(folder, "publish", *RUNS, "--series", "Flow,BOD (Conc)", "--output", path.name)
    axe = (SOURCE / "third_party/axe-core/axe.min.js").read_text(encoding="utf-8")
    for width, height in WIDTHS:
        for scheme in ("light", "dark"):
            page.look(width, height, scheme)
            open_page(page, path)
            page.run("document.querySelector('.river').scrollIntoView()")
            page.wait_for("return document.querySelectorAll('.river canvas').length > 0")
            check_quiet(page, f"{width} {scheme}")
            check_inside(page, width, scheme)
            # A long table's rows are alike, and each is looked at by every rule.
            page.run("document.querySelectorAll('tbody').forEach(body => [...body.rows].slice(20).forEach(row => row.remove()))")
            page.run(axe)
            equal(page.run_later(AXE), [], f"axe finds nothing serious at {width} pixels, {scheme}")


def check_first_picture(page, path):
    page.look(1366, 900)
    page.requests()
    open_page(page, path)
    first = page.run("return performance.getEntriesByName('first-contentful-paint')[0]?.startTime ?? -1")
    check(0 <= first <= 2000, f"the first picture is there within 2 s: {first} ms")
    equal(page.run("return document.querySelector('h1').textContent"), "Demonstration engine, run 0: River Alder, present day", "title")
    answers = page.run("return document.getElementById('summary').textContent")
    for part in ("9 of 14 reaches miss at least one target, 9 of them for sure", "7 of 14 reaches (6 sure), 65.9 of 176.3 km",
                 "fail to pass", "pass to fail", "Phosphate: Oakthorpe STW"):
        check(part in answers, f"the first screen says '{part}'")


def check_choice(page):
    seen = "return [...document.querySelectorAll('.choice')].filter(e => !e.hidden).map(e => e.dataset.choice)"
    equal(page.run(seen), ["Flow"], "sources of one determinand at a time")
    page.run("const select = document.querySelector('#choose-sources select'); select.value = 4; select.dispatchEvent(new Event('change'))")
    equal(page.run(seen), ["Phosphate"], "the one that is chosen")


def check_without_scripts(path):
    with browser.Browser(scripts=False) as page:
        page.look(1366, 900)
        page.requests()  # of the browser's own first page
        page.open(path)
        tree = page.devtools("Runtime.evaluate", expression="1").get("result", {})
        check(tree.get("value") == 1, "the browser itself answers")
        # Scripts of the page don't run, so its tools are not there.
        check(not page.run("return document.documentElement.dataset.ready"), "its script does not run")
        check(page.run("return [...document.querySelectorAll('.choice')].every(e => e.offsetHeight > 0)"), "all sources are shown")
        check(page.run("return [...document.querySelectorAll('.river svg.picture')].every(e => e.getBoundingClientRect().height > 200)"),
              "all rivers have their pictures")
        check(page.run("return document.querySelectorAll('#tools *, button').length === 0"), "there is nothing to press")
        check_quiet(page, "scripts off")


def pages_of(pdf):
    count = int(re.search(r"Pages:\s+(\d+)", subprocess.run(["pdfinfo", pdf], capture_output=True, text=True, check=True).stdout)[1])
    return [subprocess.run(["pdftotext", "-f", str(k), "-l", str(k), pdf, "-"], capture_output=True, text=True, check=True).stdout
            for k in range(1, min(count, 14) + 1)]


def check_print(page, folder):
    pdf = folder / "page.pdf"
    pdf.write_bytes(page.printed())
    pages = pages_of(pdf)
    check("At a glance" in pages[0], "the first page answers at a glance")
    rivers = {"Lower Hazel": "27.1 km, runs into", "Birch Beck": "8.4 km, runs into", "Willow Brook": "13.1 km, runs into"}
    for name, facts in rivers.items():
        on = [text for text in pages if facts in text]
        equal(len(on), 1, f"{name} has its page")
        for series in ("Flow", "BOD (Conc)", "Caffeine (Conc)", "Caffeine (Load)"):
            check(bool(on) and series in on[0], f"{series} of {name} is on it")
        check(not any(other in on[0] for river, other in rivers.items() if river != name), f"{name} is alone on it")
    check(not any("Save as CSV" in text for text in pages), "no buttons are printed")
    tables = [text for text in pages if text.count("\npass\n") + text.count("pass\n") > 20]
    check(len(tables) > 3 and all("Determinand" in text or "Reach" in text for text in tables), "a table's headings stand on each of its pages")


def check_failures(folder):
    """A page is whole or not there; no old one is lost."""
    old = folder / "old.html"
    old.write_text("old")
    before = sorted(folder.iterdir())
    cases = {"a full disk": (["publish", *RUNS, "--output", "old.html"], lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (100_000, 100_000))),
             "an output that is an input": (["publish", *RUNS, "--output", RUNS[1]], None),
             "a file that is none": (["publish", RUNS[0], "missing.SGR", "--output", "old.html"], None),
             "a folder that is not there": (["publish", *RUNS, "--output", "nowhere/old.html"], None)}
    inputs = [(folder / run).read_bytes() for run in RUNS]
    for what, (arguments, prepare) in cases.items():
        result = subprocess.run([BUILD / "app/korvel", *arguments], cwd=folder, capture_output=True, text=True, timeout=60,
                                preexec_fn=prepare, env={"PATH": os.environ["PATH"], "HOME": str(folder)})
        equal(result.returncode, 1, f"status for {what}")
        check(result.stderr.startswith("["), f"{what} is told: {result.stderr}")
        equal(old.read_text(), "old", f"the old page after {what}")
        equal(sorted(folder.iterdir()), before, f"nothing is left behind by {what}")
    equal([(folder / run).read_bytes() for run in RUNS], inputs, "the results are as they were")


HOSTILE = "</script><img src=x onerror=alert(1)>'&\u202e\u05d0\u05d1"


def check_hostile(page, folder):
    text = (folder / "ALDER.SGR").read_bytes()
    text = text.replace(b"Demonstration engine", (HOSTILE + '"').encode() + b"\x01\x1b[31m", 1)
    text = text.replace(b'"BOD"', b'"<b>BOD"').replace(b"Upper Alder", b"<i>Up Alder", 1)
    text = text.replace(b"Penby STW", HOSTILE.encode() + b"W" * 100000)
    (folder / "HOSTILE.SGR").write_bytes(text)
    korvel(folder, "publish", "HOSTILE.SGR", "HOSTILE.SGR")
    page.look(1366, 900)
    open_page(page, folder / "HOSTILE.html")
    page.run("document.querySelector('.river').scrollIntoView()")
    page.wait_for("return document.querySelectorAll('.river canvas').length > 0")
    equal(page.run("return document.querySelectorAll('img, main b, main i').length"), 0, "texts become no elements")
    check(page.run("return document.querySelector('h1').textContent").startswith("</script><img src=x onerror=alert(1)>"), "they are shown as texts")
    check(page.run("return document.body.textContent.includes('<b>BOD')"), "so are determinands")
    check(page.run("return !/[\\u0000-\\u0008\\u000b-\\u001f\\u007f]/.test(document.body.textContent)"), "without control characters")
    equal(page.run("return document.querySelector('.long').textContent.length"), len(HOSTILE) + 100000, "a long text stands whole")
    downloads = pathlib.Path(page.downloads.name)
    page.run("document.getElementById('sources-1').closest('.table').nextElementSibling.querySelector('button').click()")
    csv.field_size_limit(1_000_000)
    taken = [row["name"] for row in csv.DictReader(io.StringIO(page.downloaded(downloads, ".csv")))]
    check(HOSTILE + "W" * 100000 in taken, "and so it does in a table that is taken")
    check_inside(page, 1366, "hostile texts")
    check_quiet(page, "hostile texts")


def timed(what, act, *arguments):
    started = time.monotonic()
    act(*arguments)
    print(f"{what}: {time.monotonic() - started:.1f} s", flush=True)


def main():
    reason = browser.missing()
    if reason:
        print("skipped:", reason)
        return SKIPPED
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        make_pages(folder)
        rows = table_rows(folder)
        path = folder / "page.html"
        timed("failures", check_failures, folder)
        with browser.Browser() as page:
            timed("first picture", check_first_picture, page, path)
            timed("cursor", check_cursor, page, rows)
            timed("toggles", check_toggles, page)
            timed("zoom", check_zoom, page)
            timed("sorting", check_sorting, page)
            timed("csv", check_csv, page, folder)
            timed("svg", check_svg, page)
            check_choice(page)
            check_quiet(page, "used")
            timed("print", check_print, page, folder)
            timed("hostile", check_hostile, page, folder)
            timed("everyone", check_everyone, page, folder)
        timed("without scripts", check_without_scripts, path)
    return page_checks.concluded()


sys.exit(main())

"""The published page as its readers meet it: someone who has neither the program nor the model answers from what is seen,
someone has no mouse, and studies are larger, smaller and stranger than the samples.

page_readers_test.py SOURCE BUILD
"""

import json
import pathlib
import random
import re
import sys
import tempfile

import browser
from page_checks import RUNS, SKIPPED, WIDTHS, check, check_inside, check_quiet, concluded, equal, korvel, make_runs, open_page, shown

# What is seen of a table: its headings, and the texts of its rows.
SEEN = """
const table = document.getElementById(arguments[0]);
const texts = row => [...row.cells].map(cell => cell.innerText.replace(/[\\s\\u2195\\u2191\\u2193]+$/, '').trim());
return table.offsetHeight > 0 ? [texts(table.tHead.rows[0]), ...[...table.tBodies[0].rows].map(texts)] : null;
"""


def seen_table(page, name):
    rows = page.run(SEEN, name)
    check(rows is not None, f"the table {name} is seen")
    return [dict(zip(rows[0], row)) for row in rows[1:]] if rows else []


def card(page, heading):
    return page.run("return [...document.querySelectorAll('#summary .card')].find(card => card.querySelector('h3')"
                    ".innerText === arguments[0]).innerText", heading)


def told(folder, *arguments):
    return json.loads(korvel(folder, *arguments, "--format", "json"))["runs"]


def check_where_bod_fails(page, folder):
    """And how sure that is."""
    for k, run in enumerate(told(folder, "compliance", *RUNS)):
        bod = [row for row in run["reaches"] if row["determinand"] == "BOD"]
        grid = {row["Reach"].split(" ")[0]: row["BOD"] for row in seen_table(page, f"grid-{k + 1}")}
        equal(len(grid), len(bod), "every reach has its verdict")
        for row in bod:
            sure = "" if row["verdict"] == row["confident_verdict"] else ", unsure"
            check(grid[str(row["reach"])].endswith(row["verdict"] + sure), f"BOD in reach {row['reach']}: {grid[str(row['reach'])]}")
        worst = {row["Reach"]: row for row in seen_table(page, f"compliance-{k + 1}") if row["Determinand"] == "BOD"}
        for row in bod:
            there = worst[str(row["reach"])]
            equal(there["Fails, km"], shown(row["failing_length"]), "on how many kilometres")
            equal(there["Worst value"], shown(row["worst"]["value"]), "how badly")
            equal(there["Feature"], row["worst"]["feature"], "and where the most")


def check_glance(page, folder):
    """The first screen has the answer in short."""
    rows = {row["Determinand"].split("\n")[0].split(" ")[0]: row for row in seen_table(page, "glance")}
    for run, whole in zip(told(folder, "compliance", *RUNS), told(folder, "compliance", *RUNS, "--by", "determinand")):
        sums = next(row for row in whole["determinands"] if row["determinand"] == "BOD")
        failing = [row for row in run["reaches"] if row["determinand"] == "BOD" and row["verdict"] == "fail"]
        sure = sum(row["confident_verdict"] == "fail" for row in failing)
        words = rows["BOD"][run["run"]]
        check(f"{len(failing)} of {sums['reaches_judged']} reaches ({sure} sure), {sums['failing_length']:.1f} of "
              f"{sums['judged_length']:.1f} km" in words, f"BOD at a glance: {words}")
        longest = max(failing, key=lambda row: row["failing_length"])
        check(re.search(rf"\b{longest['reach']} [A-Z]", words), f"it names the longest stretch, reach {longest['reach']}: {words}")


def check_what_changes(page, folder):
    words = card(page, "What changes?")
    run = told(folder, "compliance", *RUNS)[1]
    for verdict in ("fail to pass", "pass to fail"):
        places = [row for row in run["reaches"] if row["change"]["verdict"] == verdict]
        check(f"{verdict} {len(places)}:" in words, f"{len(places)} go from {verdict}: {words}")
    check(f"worse by more than 10 %: {sum(bool(row['change']['deteriorated']) for row in run['reaches'])} of" in words, "what gets worse")
    changes = told(folder, "changes", *RUNS)[0]["reaches"]
    there = {(row["Series"], row["Reach"]): row for row in seen_table(page, "changes-2")}
    equal(len(there), len(changes), "every reach and series has its change")
    for row in changes:
        cells = there[row["series"], str(row["reach"])]
        equal(cells["Change, %"], "" if row["percent"] is None else shown(row["percent"]), f"change of {row['series']} in {row['reach']}")
        equal(cells["Clear falls"], str(row["clear_falls"]), "and how clear it is")


def check_which_works(page, folder):
    """Matter most for phosphate at the mouth."""
    sources = [run["sources"] for run in told(folder, "sources", *RUNS, "--determinand", "Phosphate")]
    works = [row for row in sources[0] if row["kind"] == "sewage works"]
    words = card(page, "Where does it come from?")
    check(f"Phosphate: {works[0]['name']} {works[0]['share']:.0f} %" in words, f"the first screen names the works: {words}")
    page.run("const select = document.querySelector('#choose-sources select');"
             "select.value = [...select.options].find(option => option.text === 'Phosphate').value;"
             "select.dispatchEvent(new Event('change'))")
    name = page.run("return [...document.querySelectorAll('.choice')].find(each => !each.hidden).querySelectorAll('table')[1].id")
    rows = [row for row in seen_table(page, name) if row["Kind"] == "sewage works"]
    equal([row["Source"] for row in rows], [row["name"] for row in works], "the works stand in the order of what arrives")
    for row, work in zip(rows, works):
        equal(row[f"{RUNS[0]}: Share, %"], shown(work["share"]), f"share of {work['name']}")
        later = next(each for each in sources[1] if (each["name"], each["distance"]) == (work["name"], work["distance"]))
        equal(row[f"{RUNS[1]}: Arrives"], shown(later["arrives"]), f"what arrives of {work['name']} with the scheme")


def check_losses(page, folder):
    losses = [run["losses"] for run in told(folder, "sources", *RUNS, "--determinand", "Phosphate")]
    rows = seen_table(page, page.run("return document.querySelector('.choice:not([hidden]) table[id$=losses]').id"))
    for k, run in enumerate(RUNS):
        there = sorted(row[f"{run}: Lost"] for row in rows if row[f"{run}: Lost"])
        equal(there, sorted(shown(loss["load"]) for loss in losses[k]), f"losses of {run}")


# Where the keys lead, one Tab after another: what it is, and whether it is seen that it has them.
FOCUS = """
const element = document.activeElement, style = getComputedStyle(element), box = element.getBoundingClientRect();
return [element.tagName, (element.getAttribute('aria-label') ?? element.innerText ?? element.textContent).trim(),
        style.outlineStyle !== 'none' && parseFloat(style.outlineWidth) >= 1, box.width > 0 && box.bottom > 0 && box.top < innerHeight];
"""


def check_keys(page, path):
    page.look(1366, 900)
    open_page(page, path)
    page.run("document.querySelectorAll('.river').forEach((river, k) => k > 0 && river.remove());"
             "document.querySelectorAll('tbody').forEach(body => [...body.rows].slice(5).forEach(row => row.remove()))")
    seen = []
    for _ in range(400):
        for kind in ("keyDown", "keyUp"):
            page.devtools("Input.dispatchKeyEvent", type=kind, key="Tab", code="Tab", windowsVirtualKeyCode=9)
        name, words, outlined, visible = page.run(FOCUS)
        if name == "BODY":
            break
        seen.append((name.upper(), words))
        check(outlined and visible, f"it is seen that {name} '{str(words)[:40]}' has the keys")
    controls = page.run("return [...document.querySelectorAll('a[href],button,input,select,summary,[tabindex=\"0\"]')]"
                        ".filter(each => each.getClientRects().length > 0 && !each.closest('details:not([open]) > :not(summary)')).length")
    # Of radio buttons one is reached by Tab, the others by arrows.
    check(controls - 2 <= len(seen) <= controls, f"every control is reached by Tab: {len(seen)} of {controls}")
    equal(seen[0], ("A", "Skip to the content"), "the first leads past the head")
    check(("A", "Alder Mouth") in seen, "rivers of the network are links")


def check_links(page, path):
    open_page(page, path)
    targets = page.run("return [...document.querySelectorAll('#network-1 a')].map(link => [link.textContent.trim(),"
                       "document.querySelector(link.getAttribute('href'))?.querySelector('h3')?.textContent])")
    check(len(targets) > 4, f"the network's rivers are links: {targets}")
    for name, heading in targets:
        equal(heading, name, "a river's name leads to its panels")


def results_file(reaches, names, values):
    """One determinand; each reach runs into the one whose number is half of its own."""
    def numbers(*some):
        return ", ".join(f"{number:.9g}" for number in some)
    def field(name):
        """Of 16 bytes."""
        cut = name.encode()[:16].decode(errors="ignore")
        return cut + " " * (16 - len(cut.encode()))
    lines = ["A made catchment", " 0", " 1", ' 1,"' + names(0)[:30] + '", 1', f" {reaches}"]
    lines += [f"{reach:4d} {field(names(reach))}{10:11.3f}{reach // 2:5d}" for reach in range(1, reaches + 1)]
    for reach in range(reaches, 0, -1):
        for km in (0, 4, 10):
            value = values()
            lines.append(f' {reach}, {km:10.3f},"{names(reach):<20}", 0, {10 if km == 4 else 0}')
            lines += ['"Flow", ' + numbers(value, value / 2, value / 3, value / 4), '"Observed flow", ' + numbers(0, 0, 0, 0)]
            for _ in ("concentration", "load"):
                lines += ['"mean", ' + numbers(value, value * 0.9, value * 1.1)] + [numbers(value * 2, value, value * 3)] * 3
            for _ in ("concentration", "load"):
                lines += ['"observed", ' + numbers(value * 1.2 if km == 4 else 0)] + [numbers(0)] * 3
            lines += ['"target", ' + numbers(value * random.Random(reach).choice((0.5, 0.95, 2))), '"target", 0']
    return "\r\n".join(lines) + "\r\n"


def check_shapes(page, folder):
    draw = random.Random(4)
    long = lambda reach: f"No. {reach} of the reaches with long and winding names"
    hebrew = lambda reach: f"\u05d9\u05e8\u05d3\u05df {reach}"
    shapes = {"one": (1, long, lambda: 5), "many": (400, long, lambda: draw.uniform(1, 9)),
              "hebrew": (12, hebrew, lambda: draw.uniform(1, 9)), "wide": (12, long, lambda: 10 ** draw.uniform(-6, 9))}
    for name, shape in shapes.items():
        (folder / f"{name}.SGR").write_text(results_file(*shape), encoding="utf-8")
    studies = {name: [f"{name}.SGR"] * 2 for name in shapes} | {"twelve": RUNS * 6}
    for name, runs in studies.items():
        korvel(folder, "publish", *runs, "--output", f"{name}.html")
        for width, height in WIDTHS:
            page.look(width, height)
            open_page(page, folder / f"{name}.html")
            page.run("document.querySelector('.river').scrollIntoView()")
            page.wait_for("return document.querySelectorAll('.river canvas').length > 0")
            check_inside(page, width, name)
            check_quiet(page, f"{name} at {width}")
            cut = page.run("return [...document.querySelectorAll('.panel:not([hidden]) .values span, .card *')].filter(each =>"
                           "each.scrollWidth > each.clientWidth + 1 && each.clientWidth > 0 && getComputedStyle(each).overflowX === 'hidden')"
                           ".length")
            equal(cut, 0, f"no words are cut in {name} at {width}")
        print(name, (folder / f"{name}.html").stat().st_size, "bytes", flush=True)
        check((folder / f"{name}.html").stat().st_size < 12_000_000, f"{name} is of a size to be sent")
        page.wait_for("return performance.getEntriesByName('first-contentful-paint').length > 0")
        first = page.run("return performance.getEntriesByName('first-contentful-paint')[0].startTime")
        check(0 <= first <= 2000, f"the first picture of {name} is there within 2 s: {first} ms")
    page.look(1366, 900)
    open_page(page, folder / "hebrew.html")
    check(page.run("return [...document.querySelectorAll('.river h3')].every(each => each.querySelector('bdi'))"),
          "a name from right to left keeps that to itself")
    check(page.run("return [...document.querySelectorAll('.river .quiet')].filter(each => /Reaches: /.test(each.textContent)).every("
                   "each => [...each.childNodes].every(node => node.nodeType !== 3 || !/[\u0590-\u05ff]/.test(node.textContent)))"),
          "so do those of a river's reaches, in their order")


def main():
    reason = browser.missing()
    if reason:
        print("skipped:", reason)
        return SKIPPED
    with tempfile.TemporaryDirectory() as name, browser.Browser() as page:
        folder = pathlib.Path(name)
        make_runs(folder)
        korvel(folder, "publish", *RUNS, "--output", "page.html")
        page.look(1366, 900)
        page.requests()  # of the browser's own first page
        open_page(page, folder / "page.html")
        check_where_bod_fails(page, folder)
        check_glance(page, folder)
        check_what_changes(page, folder)
        check_which_works(page, folder)
        check_losses(page, folder)
        check_links(page, folder / "page.html")
        check_keys(page, folder / "page.html")
        check_shapes(page, folder)
    return concluded()


sys.exit(main())

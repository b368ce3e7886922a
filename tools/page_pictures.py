"""Makes the pictures of the published page's chapter from a page of the samples: page_pictures.py APP PICTURES"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/endtoend"))
import browser  # noqa: E402

APP, PICTURES = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
RUNS = ["ALDER.SGR", "ALDER2.SGR"]
SHOWN = {"Flow", "BOD (Conc)", "Ammonia (Conc)", "Phosphate (Conc)"}


def make_page(folder):
    for sample in (ROOT / "samples").glob("*.DAT"):
        shutil.copy(sample, folder)
        subprocess.run([APP / "korvel", "run", sample.name, "--wait"], cwd=folder, check=True, stdout=subprocess.DEVNULL)
    subprocess.run([APP / "korvel", "publish", *RUNS, "--title", "River Alder: the improvement scheme"], cwd=folder, check=True)
    return folder / "ALDER.html"


def take(page, name):
    path = PICTURES / f"{name}.png"
    path.write_bytes(page.picture())
    subprocess.run(["convert", path, "-strip", "-define", "png:compression-level=9", path], check=True)
    print(path)


def show(page, element):
    page.run("document.getElementById(arguments[0]).scrollIntoView({behavior: 'instant'})", element)
    time.sleep(0.5)


def point_at(page, km):
    box = page.run("const b = document.querySelector('.river .panel .u-over').getBoundingClientRect();"
                   "return [b.left, b.top, b.width, b.height]")
    page.mouse("mouseMoved", box[0] + box[2] * km / 88.1, box[1] + box[3] / 2)
    time.sleep(0.3)


def main():
    reason = browser.missing()
    if reason:
        print("no pictures of the page:", reason)
        return 0
    with tempfile.TemporaryDirectory() as name, browser.Browser() as page:
        path = make_page(pathlib.Path(name))
        page.look(1366, 940)
        page.open(path)
        page.wait_for("return document.documentElement.dataset.ready === 'yes'")
        take(page, "page-glance")
        page.look(1366, 520)
        show(page, "network")
        take(page, "page-network")
        page.look(1366, 768)
        for k, series in enumerate(page.run("return JSON.parse(document.getElementById('setup').textContent).series.map(s => s.name)")):
            if series not in SHOWN:
                page.run("const box = document.querySelectorAll('#tools input[name=series]')[arguments[0]]; if (box.checked) box.click()", k)
        show(page, "river-1")
        page.wait_for("return document.querySelectorAll('.river canvas').length >= 4")
        point_at(page, 31.4)
        take(page, "page-river")
        page.look(1366, 560)
        page.run("document.querySelector('.scatters').scrollIntoView({behavior: 'instant'}); scrollBy(0, -60)")
        time.sleep(0.5)
        take(page, "page-fit")
        page.look(360, 740)
        page.open(path)
        page.wait_for("return document.documentElement.dataset.ready === 'yes'")
        take(page, "page-telephone")
    return 0


sys.exit(main())

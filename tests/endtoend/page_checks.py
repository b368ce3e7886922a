"""What the tests of the published page share: counting checks, running the program, rounding as the page does."""

import os
import pathlib
import re
import shutil
import subprocess
import sys

SOURCE, BUILD = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
SKIPPED = 77
RUNS = ["ALDER.SGR", "ALDER2.SGR"]
WIDTHS = [(360, 740), (1366, 900), (2560, 1300)]
failures = []
checks = 0


def check(holds, what):
    global checks
    checks += 1
    if not holds:
        failures.append(what)
        print("FAILED:", what)


def equal(found, expected, what):
    check(found == expected, f"{what}: {found!r} instead of {expected!r}")


def concluded():
    print(f"{checks} checks, {len(failures)} failures")
    return 1 if failures else 0


def korvel(folder, *arguments):
    environment = {"PATH": os.environ["PATH"], "HOME": str(folder), "LC_ALL": "C.UTF-8"}
    result = subprocess.run([BUILD / "app/korvel", *arguments], cwd=folder, env=environment, capture_output=True,
                            text=True, timeout=120)
    if result.returncode != 0:
        raise RuntimeError(f"korvel {arguments}: {result.stderr}")
    return result.stdout


def make_runs(folder):
    for sample in (SOURCE / "samples").glob("*.DAT"):
        shutil.copy(sample, folder)
        korvel(folder, "run", sample.name, "--wait")


def shown(value):
    """As the page rounds it: about four figures."""
    size = abs(value)
    if size == 0:
        return "0"
    magnitude = len(str(int(size))) - 1 if size >= 1 else -len(re.match(r"0\.(0*)", f"{size:.20f}")[1]) - 1
    return f"{value:.{0 if magnitude >= 3 else 3 - magnitude}f}"


def check_quiet(page, what):
    severe = [entry["message"] for entry in page.console() if entry["level"] in ("SEVERE", "WARNING")]
    equal(severe, [], f"the console stays empty ({what})")
    asked = [url for url in page.requests() if not url.startswith(("file:", "data:", "blob:"))]
    equal(asked, [], f"nothing is asked for ({what})")


def check_inside(page, width, what):
    """Nothing makes the page wider than the window; a telephone's browser would shrink it all."""
    found = page.run("return [document.documentElement.scrollWidth, document.documentElement.clientWidth, innerWidth]")
    check(found[0] <= found[1] <= width and found[2] <= width, f"nothing runs over the side at {width}, {what}: {found}")


def open_page(page, path):
    page.open(path)
    page.wait_for("return document.documentElement.dataset.ready === 'yes'")

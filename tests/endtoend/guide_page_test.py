"""Looks at the built guide in a headless Chromium, wide and narrow, light and dark: nothing is wider than the window but what can be
scrolled, every picture is there, nothing is asked of a network, and axe-core finds nothing serious.

guide_page_test.py SOURCE BUILD      skipped (status 77) where there is no browser or no guide
"""

import pathlib
import sys

import browser

SOURCE, BUILD = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
GUIDE = BUILD / "guide/guide.html"
SKIPPED = 77
AXE = """const done = arguments[0];
axe.run(document, {resultTypes: ['violations'], preload: false}).then(result => done(result.violations
    .filter(found => ['serious', 'critical'].includes(found.impact))
    .map(found => found.id + ': ' + found.nodes.slice(0, 3).map(node => node.target.join(' ')).join(', '))));"""
TOO_WIDE = """const width = document.documentElement.clientWidth;
return document.documentElement.scrollWidth > width ? 'the page is ' + document.documentElement.scrollWidth : ''"""
MISSING = "return [...document.images].filter(image => !image.complete || !image.naturalWidth || !image.alt).map(image => image.alt)"


def failures(page):
    axe = (SOURCE / "third_party/axe-core/axe.min.js").read_text(encoding="utf-8")
    for width in (1366, 400):
        for scheme in ("light", "dark"):
            where = f"at {width} pixels, {scheme}"
            page.look(width, 900, scheme)
            page.open(GUIDE)
            page.run(axe)
            yield from (f"{found} {where}" for found in page.run_later(AXE))
            if told := page.run(TOO_WIDE):
                yield f"{told} pixels wide {where}"
            yield from (f"no picture, or one without words, {where}: {name}" for name in page.run(MISSING))
    if page.run("return document.images.length") < 10:
        yield "there are too few pictures"
    yield from (f"asked for {address[:60]}" for address in page.requests() if not address.startswith(("file:", "data:", "chrome:")))


def main():
    why = browser.missing() or ("" if GUIDE.is_file() else "the guide is not built")
    if why:
        print("skipped:", why)
        return SKIPPED
    with browser.Browser() as page:
        found = list(failures(page))
    print("\n".join([*found, f"{len(found)} failures"]))
    return 1 if found else 0


sys.exit(main())

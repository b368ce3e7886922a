"""Builds the guide, the chapters of docs/guide in the order of their index, into one HTML file with its pictures inside.

build_guide.py SOURCE OUTPUT CMARK [--strict]

Links that lead nowhere are told; with --strict the guide is then not built.
"""

import base64
import pathlib
import re
import subprocess
import sys

STYLE = """
:root { color-scheme: light dark; --text: #1c2429; --paper: #ffffff; --quiet: #56636b; --line: #c9d3d9; --link: #0b5a80;
        --box: #f2f5f6; }
@media (prefers-color-scheme: dark) {
  :root { --text: #e3e8ea; --paper: #14191c; --quiet: #a3b0b7; --line: #3a464d; --link: #7cc4e8; --box: #1d2529; }
}
html { font: 17px/1.55 "Liberation Sans", Arial, sans-serif; color: var(--text); background: var(--paper); }
body { max-width: 54rem; margin: 0 auto; padding: 1.5rem 1.2rem 6rem; }
h1 { font-size: 1.9rem; line-height: 1.2; margin: 0 0 1rem; }
h2 { font-size: 1.3rem; margin: 2.2rem 0 .6rem; }
h3 { font-size: 1.05rem; margin: 1.6rem 0 .4rem; }
article { padding-top: 3.5rem; }
article:first-of-type { padding-top: 0; }
a { color: var(--link); }
a:focus-visible, pre:focus-visible, .wide:focus-visible { outline: 3px solid var(--link); outline-offset: 2px; }
nav { border: 1px solid var(--line); padding: .2rem 1.2rem 1rem; margin: 1.5rem 0; }
nav h2 { margin-top: 1rem; }
nav ol { margin: 0; padding-left: 1.5rem; columns: 18rem 2; }
nav li { break-inside: avoid; }
nav ol ol { columns: 1; list-style: none; padding-left: .8rem; font-size: .88rem; }
pre, code { font-family: "Liberation Mono", "Courier New", monospace; font-size: .85rem; }
pre { background: var(--box); border: 1px solid var(--line); padding: .7rem .9rem; overflow-x: auto; line-height: 1.35; }
:not(pre) > code { background: var(--box); padding: 0 .25em; }
.wide { overflow-x: auto; margin: 1rem 0; }
table { border-collapse: collapse; }
th, td { border: 1px solid var(--line); padding: .3rem .6rem; text-align: left; vertical-align: top; }
th { background: var(--box); }
img { max-width: 100%; height: auto; border: 1px solid var(--line); }
.up { color: var(--quiet); font-size: .88rem; margin-top: 2.5rem; }
@media print { nav, .up { display: none; } article { break-before: page; } }
"""


broken = []  # links, in words


def slug(heading):
    """As code hosts make a heading's anchor."""
    bare = re.sub(r"<[^>]*>|&[a-z]+;", "", heading).lower()
    return re.sub(r"[^\w -]", "", bare).replace(" ", "-")


def chapters_of(folder):
    """The index, then its chapters in its order, then those that it forgot."""
    named = re.findall(r"\]\(([\w-]+\.md)\)", (folder / "README.md").read_text(encoding="utf-8"))
    left_out = sorted(path.name for path in folder.glob("*.md"))
    return [folder / name for name in dict.fromkeys(["README.md", *named, *left_out])]


def name_of(path):
    return "guide" if path.name == "README.md" else path.stem


def picture(path):
    return "data:image/png;base64," + base64.b64encode(path.read_bytes()).decode("ascii")


def address(chapter, target):
    """Where a link of a chapter leads in the one file."""
    if re.match(r"[a-z]+:", target):
        return target
    file, _, place = target.partition("#")
    path = (chapter.parent / file).resolve() if file else chapter
    is_picture = path.suffix == ".png"
    if not path.is_file() or not is_picture and (path.parent != chapter.parent or path.suffix != ".md"):
        broken.append(f"{chapter.name}: {target} is no part of the guide")
        return "data:," if is_picture else "#contents"
    if is_picture:
        return picture(path)
    return "#" + name_of(path) + ("-" + place if place else "")


def article(chapter, cmark):
    """The chapter as HTML, and its headings as level, anchor and text."""
    html = subprocess.run([cmark, "--extension", "table", str(chapter)], capture_output=True, text=True, check=True).stdout
    html = re.sub(r'(href|src)="([^"]*)"', lambda match: f'{match[1]}="{address(chapter, match[2])}"', html)
    # What may be wider than the window can be scrolled with the keys, too.
    html = html.replace("<pre>", '<pre tabindex="0">')
    html = html.replace("<table>", '<div class="wide" tabindex="0" role="group" aria-label="Table">\n<table>')
    html = html.replace("</table>", "</table>\n</div>")
    headings = []

    def with_anchor(match):
        level, text = int(match[1]), match[2]
        anchor = name_of(chapter) + ("-" + slug(text) if level > 1 else "")
        headings.append((level, anchor, text))
        return f'<h{level} id="{anchor}">{text}</h{level}>'

    html = re.sub(r"<h(\d)>(.*?)</h\1>", with_anchor, html)
    up = "" if chapter.name == "README.md" else '<p class="up"><a href="#contents">Contents</a></p>\n'
    return f"<article>\n{html}{up}</article>\n", headings


def contents(chapters):
    items = ""
    for headings in chapters:
        (_, anchor, title), *parts = headings
        inner = "".join(f'<li><a href="#{place}">{text}</a></li>' for level, place, text in parts if level == 2)
        items += f'<li><a href="#{anchor}">{title}</a>' + (f"<ol>{inner}</ol>" if inner else "") + "</li>\n"
    return f'<nav id="contents" aria-label="Contents">\n<h2>Contents</h2>\n<ol>\n{items}</ol>\n</nav>\n'


def check_anchors(html):
    there = set(re.findall(r' id="([^"]*)"', html))
    for anchor in sorted(set(re.findall(r'href="#([^"]*)"', html)) - there):
        broken.append(f"there is no place #{anchor}")


def build(source, cmark):
    made = [article(path, cmark) for path in chapters_of(source / "docs/guide")]
    (first, _), *rest = made
    html = ('<!DOCTYPE html>\n<html lang="en">\n<head>\n<meta charset="utf-8">\n'
            '<meta name="viewport" content="width=device-width, initial-scale=1">\n<title>The KORVEL guide</title>\n'
            f"<style>{STYLE}</style>\n</head>\n<body>\n<main>\n{first}{contents([headings for _, headings in made[1:]])}"
            + "".join(html for html, _ in rest) + "</main>\n</body>\n</html>\n")
    check_anchors(html)
    return html


def main():
    source, output, cmark = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]), sys.argv[3]
    html = build(source, cmark)
    for link in broken:
        print("guide: " + link, file=sys.stderr)
    if broken and "--strict" in sys.argv[4:]:
        return 1
    output.parent.mkdir(parents=True, exist_ok=True)
    output.write_text(html, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())

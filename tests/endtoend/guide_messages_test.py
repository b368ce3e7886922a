"""Holds the guide against the program's sources: every message that the program can show stands in the chapter on messages, every
one that stands there is the program's, and so is every caption that a chapter shows in bold letters.

guide_messages_test.py SOURCE
"""

import pathlib
import re
import sys

SOURCE = pathlib.Path(sys.argv[1])
GUIDE = SOURCE / "docs/guide"
CHAPTER = GUIDE / "troubleshooting.md"
WITH_CAPTIONS = "first-run graphs compare reports batches printing".split()
TOKEN = re.compile(r'//[^\n]*|(?:"(?:[^"\\\n]|\\.)*"\s*)+|\'(?:[^\'\\\n]|\\.)+\'')
PIECE = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
OPENING = re.compile(r"\b(?:RunTimeError|TableRefused|missing|refusedUnless|Refusal)\s*\(")
# Words are handed on from here as they stand.
PLAIN_WORDS = ("basic/DiskNames.cpp", "basic/RunTimeError.cpp", "many/Plan.cpp", "many/CsvRecords.cpp", "many/RowRun.cpp",
               "many/ResultsCheck.cpp", "many/Slurm.cpp", "many/ClusterRun.cpp", "toolkit/process/EngineProcess.cpp")
OF_QT = {"Yes", "Save"} # buttons of messages and dialogs
SHORTEST = 7  # characters of a piece of a message that is looked for


def one_line(text):
    for written, meant in (("\\n", " "), ("\\t", " "), ('\\"', '"'), ("\\\\", "\\")):
        text = text.replace(written, meant)
    return " ".join(text.split())


def literals(code):
    """The texts of a piece of code; those that stand side by side are one, as for the compiler."""
    found = [match[0] for match in TOKEN.finditer(code) if match[0].startswith('"')]
    return [one_line("".join(PIECE.findall(text))) for text in found]


def blanked(code):
    """The code with its comments and the insides of its texts blanked, so that brackets can be counted."""
    return TOKEN.sub(lambda match: re.sub(r"[^\n]", " ", match[0]), code)


def group(plain, opening):
    """Where the bracket that opens here is closed."""
    depth = 0
    for place in range(opening, len(plain)):
        depth += (plain[place] in "({[") - (plain[place] in ")}]")
        if depth == 0:
            return place
    return len(plain)


def first_part(plain, begin, end):
    """Where the first of the parts between brackets ends."""
    depth = 0
    for place in range(begin, end):
        depth += (plain[place] in "({[") - (plain[place] in ")}]")
        if plain[place] == "," and depth == 0:
            return place
    return end


def messages_of(path):
    code = path.read_text(encoding="utf-8")
    plain = blanked(code)
    found = []
    for icon in re.finditer(r"\bIcon::", plain):
        begin = plain.rfind("{", 0, icon.start())
        if group(plain, begin) > icon.start():
            found += literals(code[begin + 1:first_part(plain, begin + 1, icon.start())])
    for call in OPENING.finditer(plain):
        found += literals(code[call.end():group(plain, call.end() - 1)])
    if path.as_posix().endswith(PLAIN_WORDS):
        found += [text for text in literals(code) if re.match(r"[A-Z][a-z]* [a-z]", text)]
    bare = {text.strip("\"' ") for text in found} # without the marks that a name is put between
    return {text for text in bare if len(text) >= SHORTEST and " " in text}


def told_messages(chapter):
    rows = re.findall(r"^\| (.+?) \|", chapter, re.MULTILINE)
    return [" ".join(row.split()) for row in rows if row not in ("message", "words")]


def captions(chapter):
    """What stands in bold letters, but for sentences."""
    bold = re.findall(r"\*\*(.+?)\*\*", " ".join(chapter.split()))
    return [text for text in bold if not text.endswith(".") or text.endswith("...")]


def main():
    sources = sorted([*(SOURCE / "src").rglob("*.cpp"), *(SOURCE / "src").rglob("*.h")])
    every = {text for path in sources for text in literals(path.read_text(encoding="utf-8"))}
    told = told_messages(CHAPTER.read_text(encoding="utf-8"))
    failures, count = [], 0
    for path in sources:
        for text in sorted(messages_of(path)):
            count += 1
            if not any(text in row for row in told):
                failures.append(f"not in the chapter: {text} ({path.relative_to(SOURCE)})")
    for row in told:
        pieces = [piece.strip() for piece in row.split("...") if piece.strip()]
        if not pieces or not all(any(piece in text for text in every) for piece in pieces):
            failures.append(f"no message of the program: {row}")
    shown = {text.replace("&", "") for text in every}
    for name in WITH_CAPTIONS:
        for caption in captions((GUIDE / f"{name}.md").read_text(encoding="utf-8")):
            if caption not in OF_QT and not any(caption in text for text in shown):
                failures.append(f"{name}.md: no caption of the program: {caption}")
    print("\n".join(failures))
    print(f"{count} messages of the program, {len(told)} told, {len(failures)} failures")
    return 1 if failures or count < 50 or len(told) < 50 else 0


sys.exit(main())

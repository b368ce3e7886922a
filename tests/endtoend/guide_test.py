"""Runs the commands of the guide and compares what they print with what the guide shows.

guide_test.py SOURCE BUILD [--update]

In a fence ```console a line "$ korvel ..." is run, in order, in a folder with the samples; the lines up to the next one are
what it prints, where "..." stands for any lines. Other programs than korvel are run where they are installed. The lines of a
fence ```python are run at the chapter's end. --update writes what was printed into the chapters.
"""

import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

SOURCE, BUILD = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
UPDATE = "--update" in sys.argv[3:]
FENCE = re.compile(r"(?<=```console\n).*?(?=^```$)", re.DOTALL | re.MULTILINE)


PYTHON = re.compile(r"(?<=```python\n).*?(?=^```$)", re.DOTALL | re.MULTILINE)
missing = set()


def program_of(name):
    return str(BUILD / "app/korvel") if name == "korvel" else shutil.which(name)


def run(command, folder):
    words = shlex.split(command)
    environment = {"PATH": os.environ["PATH"], "HOME": str(folder), "LC_ALL": "C.UTF-8"}
    result = subprocess.run([program_of(words[0]), *words[1:]], cwd=folder, env=environment,
                            capture_output=True, text=True, timeout=120)
    return result.returncode, result.stdout + result.stderr


def steps(block):
    """Pairs of a command and the lines that it is shown to print."""
    found = []
    for line in block.splitlines():
        if line.startswith("$ "):
            found.append((line[2:], []))
        elif found:
            found[-1][1].append(line)
    return found


def matches(shown, printed):
    pattern = "".join("(?:.*\n)*?" if line == "..." else re.escape(line) + "\n" for line in shown)
    return re.fullmatch(pattern, printed) is not None


def check_block(block, folder, chapter, failures):
    written = ""
    for command, shown in steps(block):
        if not program_of(command.split()[0]):
            missing.add(command.split()[0])
            written += "\n".join([f"$ {command}", *shown]) + "\n"
            continue
        status, printed = run(command, folder)
        if status != 0:
            failures.append(f"{chapter}: {command} ends with {status}: {printed}")
        elif not matches(shown, printed):
            failures.append(f"{chapter}: {command} prints\n{printed}")
        kept = shown if "..." in shown else printed.splitlines()
        written += "\n".join([f"$ {command}", *kept]) + "\n"
    return written


def check_python(lines, folder, chapter, failures):
    done = subprocess.run([sys.executable, "-c", lines], cwd=folder, capture_output=True, text=True, timeout=120)
    if done.returncode != 0 or not done.stdout.strip():
        failures.append(f"{chapter}: Python says {done.stdout}{done.stderr}")


def check_chapter(path, folder, failures):
    text = path.read_text(encoding="utf-8")
    count = len(re.findall(r"^\$ korvel ", text, re.MULTILINE))
    updated = FENCE.sub(lambda match: check_block(match[0], folder, path.name, failures), text)
    for lines in PYTHON.findall(text):
        check_python(lines, folder, path.name, failures)
    if UPDATE:
        path.write_text(updated, encoding="utf-8")
    return count


def main():
    failures, count = [], 0
    for chapter in sorted((SOURCE / "docs/guide").glob("*.md")):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            for sample in (SOURCE / "samples").glob("*.DAT"):
                shutil.copy(sample, folder)
            count += check_chapter(chapter, folder, failures)
    print("\n".join([*failures, *(f"Skipped: {name} is not installed" for name in sorted(missing))]))
    print(f"{count} commands, {len(failures)} failures")
    return 1 if failures or count == 0 else 0


sys.exit(main())

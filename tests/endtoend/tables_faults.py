"""Databases and workbooks written with the program killed, stopped, and on a disk that is full."""

import os
import random
import shutil
import signal
import sqlite3
import subprocess
import time

from tables_tools import PROGRAM, check, check_sound, contents, run, skipped


def start_writing(folder, name, output):
    return subprocess.Popen([str(PROGRAM), "table", name, "--output", output], cwd=folder, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL)


def check_killed(folder):
    """A run is replaced by one of other values; the database holds the old or the new one, whenever it is killed."""
    (folder / "new").mkdir()
    shutil.copy(folder / "ALDER2.SGR", folder / "new/ALDER.SGR")
    run(folder, "table", "ALDER.SGR", "--output", "kill.sqlite")
    run(folder, "table", "new/ALDER.SGR", "--output", "after.sqlite")
    begun = time.monotonic()
    run(folder, "table", "new/ALDER.SGR", "--output", "kill.sqlite")
    duration = time.monotonic() - begun
    old_state, new_state = None, contents(folder / "kill.sqlite")
    run(folder, "table", "ALDER.SGR", "--output", "kill.sqlite")
    old_state = contents(folder / "kill.sqlite")
    chance = random.Random(1)
    old, new = 0, 0
    for _ in range(40):
        writing = start_writing(folder, "new/ALDER.SGR", "kill.sqlite")
        time.sleep(chance.uniform(0, 1.1) * duration)
        writing.send_signal(signal.SIGKILL)
        writing.wait()
        database = sqlite3.connect(folder / "kill.sqlite")
        check_sound(database, "after a kill, kill.sqlite")
        database.close()
        state = contents(folder / "kill.sqlite")
        check(state in (old_state, new_state), "after a kill the database is neither the old nor the new one")
        old, new = old + (state == old_state), new + (state == new_state)
        if state == new_state:
            run(folder, "table", "ALDER.SGR", "--output", "kill.sqlite")
    print(f"40 kills: {old} left the old run, {new} the new one")
    check(old > 0, "no kill came before the end")
    for wait in (0.3, 0.6, 0.9):
        writing = start_writing(folder, "new/ALDER.SGR", "fresh.sqlite")
        time.sleep(wait * duration)
        writing.send_signal(signal.SIGKILL)
        writing.wait()
        if (folder / "fresh.sqlite").exists():
            check(contents(folder / "fresh.sqlite") == contents(folder / "after.sqlite"), "a new database is not whole")
            (folder / "fresh.sqlite").unlink()
    run(folder, "table", "ALDER.SGR", "--output", "fresh.sqlite")
    left = [name for name in os.listdir(folder) if name.startswith(".korvel-")]
    check(left == [], f"a killed program's {left} are left when the next one has written")


def check_stopped(folder):
    """Ctrl+C while it writes leaves the old state, without a journal beside it."""
    large = folder / "stop"
    large.mkdir()
    names = []
    for number in range(8):
        names.append(f"R{number}.SGR")
        shutil.copy(folder / "ALDER.SGR", large / names[-1])
    run(large, "table", "R0.SGR", "--output", "s.sqlite")
    before = contents(large / "s.sqlite")
    for wait in (0, 0.1, 0.2):
        writing = subprocess.Popen([str(PROGRAM), "table", *names, "--interpolated", "--output", "s.sqlite"], cwd=large,
                                   stderr=subprocess.PIPE, text=True)
        while not (large / "s.sqlite-journal").exists() and writing.poll() is None:
            time.sleep(0.002)
        time.sleep(wait)
        writing.send_signal(signal.SIGINT)
        told = writing.communicate()[1]
        check("Stopped; nothing was written." in told and writing.returncode == 1, f"Ctrl+C: {told}")
        check(contents(large / "s.sqlite") == before, "a stopped call changes the database")
        check(sorted(os.listdir(large)) == sorted([*names, "s.sqlite"]), f"a stopped call leaves {os.listdir(large)}")


ON_SMALL_DISK = """mount -t tmpfs -o size=$2k none disk || exit 97
cp kept.sqlite disk/d.sqlite
"$1" table new/ALDER.SGR --interpolated --output disk/d.sqlite; status=$?
ls -A disk > names; cp disk/d.sqlite left.sqlite; exit $status
"""


def check_full_disk(folder):
    run(folder, "table", "ALDER.SGR", "--output", "kept.sqlite")
    (folder / "disk").mkdir()
    size = (folder / "kept.sqlite").stat().st_size // 1024
    for room in (64, 400, size):
        words = ["unshare", "-Urm", "sh", "-c", ON_SMALL_DISK, "sh", str(PROGRAM), str(size + room)]
        done = subprocess.run(words, cwd=folder, capture_output=True, text=True, timeout=300)
        if done.returncode not in (0, 1) or not (folder / "names").exists():
            skipped.append(f"no user may mount a small disk here: {done.stderr.strip()}")
            return
        check(done.returncode == 1 and "Run-time error '61': Disk full" in done.stderr, f"a full disk: {done.stderr}")
        check((folder / "names").read_text().split() == ["d.sqlite"], "a full disk: something is left")
        check(contents(folder / "left.sqlite") == contents(folder / "kept.sqlite"), "a full disk changes the database")


BOOK_ON_SMALL_DISK = """mount -t tmpfs -o size=$2k none disk || exit 97
TMPDIR=$PWD/disk "$1" table ALDER.SGR --series 0,1,2,3,4 --output disk/x.xlsx; status=$?
ls -A disk > names; exit $status
"""


def check_full_disk_for_books(folder):
    """Wherever in its work the disk becomes full, one line says so, and the library's own remarks stay away."""
    failed = 0
    for room in (16, 200, 2000, 4000, 5600, 5900, 6000, 6100, 6300, 6500):
        words = ["unshare", "-Urm", "sh", "-c", BOOK_ON_SMALL_DISK, "sh", str(PROGRAM), str(room)]
        (folder / "names").unlink(missing_ok=True)
        done = subprocess.run(words, cwd=folder, capture_output=True, text=True, timeout=300)
        if done.returncode not in (0, 1) or not (folder / "names").exists():
            return  # told of before
        left = (folder / "names").read_text().split()
        if done.returncode == 0:
            check(left == ["x.xlsx"] and done.stderr == "", f"a disk of {room} KiB: {left}, {done.stderr}")
            continue
        failed += 1
        check(done.stderr == "[critical] : Run-time error '61': Disk full\n", f"a disk of {room} KiB: {done.stderr}")
        check(left == [], f"a disk of {room} KiB: {left} is left")
    check(failed > 3, f"only {failed} disks were too small")


ATLAS_ON_SMALL_DISK = """mount -t tmpfs -o size=$2k none disk || exit 97
cp ALDER-atlas.pdf disk/x.pdf
"$1" atlas ALDER.SGR --title Other --output disk/x.pdf; status=$?
ls -A disk > names; cp disk/x.pdf left.pdf; exit $status
"""


def check_atlas(folder):
    """The same call gives the same bytes; a full disk and Ctrl+C leave the old document, and nothing beside it."""
    run(folder, "atlas", "ALDER.SGR")
    before = (folder / "ALDER-atlas.pdf").read_bytes()
    time.sleep(1.1)
    run(folder, "atlas", "ALDER.SGR", TZ="Asia/Tokyo")
    check((folder / "ALDER-atlas.pdf").read_bytes() == before, "the same call gives another atlas")
    stopped = 0
    for wait in (0.02, 0.05, 0.1, 0.2, 0.4):
        writing = subprocess.Popen([str(PROGRAM), "atlas", "ALDER.SGR", "--title", "Other"], cwd=folder, stderr=subprocess.PIPE, text=True)
        time.sleep(wait)
        writing.send_signal(signal.SIGINT)
        told = writing.communicate()[1]
        if writing.returncode == 0:
            run(folder, "atlas", "ALDER.SGR")
            continue
        stopped += 1
        check(writing.returncode == -signal.SIGINT or "Stopped; nothing was written." in told, f"Ctrl+C: {told}")
        check((folder / "ALDER-atlas.pdf").read_bytes() == before, "a stopped atlas is another one")
    check(stopped > 0, "no atlas was stopped")
    check(not [name for name in os.listdir(folder) if name.startswith(".korvel-")], "a stopped atlas leaves a file")
    for room in (16, 40, 100):
        (folder / "names").unlink(missing_ok=True)
        words = ["unshare", "-Urm", "sh", "-c", ATLAS_ON_SMALL_DISK, "sh", str(PROGRAM), str(len(before) // 1024 + room)]
        done = subprocess.run(words, cwd=folder, capture_output=True, text=True, timeout=300)
        if done.returncode not in (0, 1) or not (folder / "names").exists():
            return  # told of before
        check(done.returncode == 1 and done.stderr == "[critical] : Run-time error '61': Disk full\n", f"a full disk: {done.stderr}")
        check((folder / "names").read_text().split() == ["x.pdf"], "a full disk: something is left beside the atlas")
        check((folder / "left.pdf").read_bytes() == before, "a full disk changes the atlas")

"""`korvel runs` on this machine: what it does, and what is left where it is disturbed.

runs_test.py PROGRAM
"""
import hashlib
import os
import pathlib
import pty
import random
import shutil
import signal
import subprocess
import sys
import time
import unittest

from plans import CATCHMENT, Plans

PROGRAM = sys.argv[1]
KILLS = 100


def until(holds, seconds=20):
    end = time.monotonic() + seconds
    while not holds():
        if time.monotonic() > end:
            raise AssertionError("it never came")
        time.sleep(0.005)


def sha256(path):
    return hashlib.sha256(pathlib.Path(path).read_bytes()).hexdigest()


class Runs(unittest.TestCase):
    def setUp(self):
        self.plans = Plans(PROGRAM)
        self.addCleanup(self.plans.remove)

    def test_a_plan_is_carried_out_by_the_real_engine(self):
        names = self.plans.catchments(4)
        result = self.plans.run("runs", "plan.csv")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "4 done.\n", ""))
        self.assertEqual(self.plans.states(), {name: "done" for name in names})
        line = self.plans.last()["R2"]
        self.assertEqual(list(line), ["name", "data_file", "type", "title", "state", "exit_status", "started", "ended",
                                      "host", "engine_sha256", "data_sha256", "results", "results_sha256", "korvel",
                                      "message"])
        self.assertEqual(line["results"], "R2.SGR")
        self.assertEqual(line["results_sha256"], sha256(self.plans.folder / "R2.SGR"))
        self.assertEqual(line["data_sha256"], sha256(self.plans.folder / "R2.DAT"))
        self.assertEqual(line["engine_sha256"], sha256(self.plans.app / "korvelf157.exe"))
        self.assertFalse((self.plans.folder / "plan.runs").exists())
        self.assertFalse((self.plans.app / "RUNDAT.TMP").exists())

    def test_a_plan_that_is_refused_starts_nothing(self):
        self.plans.catchments(2, "fake")
        before = sorted(self.plans.folder.iterdir())
        for rows, message in [("a,R1.DAT,0\nb,R1.DAT,1\n", "line 3, column 3: This run would write the same outputs"),
                              ("a,R1.DAT,0\na,R2.DAT,0\n", "line 3, column 1: The name"),
                              ("a,R1.DAT,0\nb,R3.DAT,0\n", "line 3, column 3: The data file is not there."),
                              ("a,R1.DAT,0\nb,R2.DAT,x\n", "line 3, column 10: The run type")]:
            self.plans.put("plan.csv", "name,data_file,type\n" + rows)
            result = self.plans.run("runs", "plan.csv")
            self.assertEqual(result.returncode, 1)
            self.assertIn("[exclamation] Plan: plan.csv, " + message, result.stderr)
            self.assertEqual(sorted(self.plans.folder.iterdir()), before)
        self.assertEqual(self.plans.log(), [])

    def test_wrong_usage_is_told(self):
        self.plans.catchments(1)
        for arguments in [["runs"], ["runs", "plan.csv", "two.csv"], ["runs", "plan.csv", "--jobs", "0"],
                          ["runs", "plan.csv", "--jobs", "many"], ["runs", "plan.csv", "--wait"]]:
            self.assertEqual(self.plans.run(*arguments).returncode, 2, arguments)
        missing = self.plans.run("runs", "none.csv")
        self.assertEqual(missing.returncode, 1)
        self.assertIn("none.csv can't be read", missing.stderr)

    def test_a_row_that_fails_is_named_and_the_others_are_done(self):
        self.plans.catchments(4)
        self.plans.put("R3.DAT", "rubbish\n")
        result = self.plans.run("runs", "plan.csv", "--jobs", "2")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stdout, "3 done, 1 failed.\n")
        self.assertRegex(result.stderr, r"\[exclamation\] Runs: R3: The engine ended with status 1: ERROR: .*R3\.DAT")
        self.assertEqual(self.plans.left_folders(), ["R3"])
        self.assertIn("ERROR", (self.plans.folder / "plan.runs/R3/output.txt").read_text())
        self.plans.put("R3.DAT", CATCHMENT)
        again = self.plans.run("runs", "plan.csv", "--resume")
        self.assertEqual((again.returncode, again.stdout), (0, "1 done, 3 kept.\n"))
        self.assertEqual(self.plans.left_folders(), [])

    def test_no_more_is_started_after_a_failure_where_the_user_says_so(self):
        self.plans.catchments(30, "fake")
        self.plans.put("R2.bad", "")
        result = self.plans.run("runs", "plan.csv", "--jobs", "1", "--stop-on-failure")
        self.assertEqual((result.returncode, result.stdout), (1, "1 done, 1 failed, 28 not run.\n"))
        self.assertEqual(self.plans.log(), ["R1", "R2"])

    def test_only_what_changed_is_run_again(self):
        self.plans.catchments(6, "fake")
        self.plans.run("runs", "plan.csv", check=True)
        self.plans.put("R2.DAT", CATCHMENT + "; changed\n")
        (self.plans.folder / "R3.SGR").unlink()
        text = (self.plans.folder / "plan.csv").read_text()
        self.plans.put("plan.csv", text.replace("R4,R4.DAT,0", "R4,R4.DAT,2").replace("R5,R5.DAT,0\n", ""))
        begun = len(self.plans.log())
        result = self.plans.run("runs", "plan.csv", "--resume")
        self.assertEqual((result.returncode, result.stdout), (0, "3 done, 2 kept.\n"))
        self.assertEqual(sorted(self.plans.log()[begun:]), ["R2", "R3", "R4"])
        engine = self.plans.app / "korvelf157.exe"
        engine.write_text(engine.read_text() + "# changed\n")
        self.assertEqual(self.plans.run("runs", "plan.csv", "--resume").stdout, "5 done.\n")

    def test_an_engine_for_windows_is_started_by_wine(self):
        self.plans.catchments(2, "fake")
        engine = self.plans.app / "korvelf157.exe"
        tools = self.plans.folder / "tools"
        tools.mkdir()
        (tools / "engine.sh").write_text(engine.read_text())
        (tools / "wine").write_text('#!/bin/sh\nls "$1" >/dev/null && exec sh "$KORVEL_TEST/tools/engine.sh"\n')
        (tools / "wine").chmod(0o755)
        engine.write_text("MZ")
        result = self.plans.run("runs", "plan.csv", PATH=f"{tools}:/usr/bin:/bin")
        self.assertEqual((result.returncode, result.stdout), (0, "2 done.\n"), result)
        (tools / "wine").unlink()
        for tool in ["sh", "cat", "sleep", "date", "mv", "rm", "cp", "ls", "ln", "mkdir", "sed", "grep"]:
            os.symlink(shutil.which(tool), tools / tool)
        without = self.plans.run("runs", "plan.csv", PATH=str(tools))  # wine may be on this machine
        self.assertEqual(without.returncode, 1)
        self.assertIn("R1: The engine is a Windows program. Install wine", without.stderr)

    def stop_midway(self, stop):
        """Starts a plan of slow runs, does `stop` to the call once two run, and returns what it printed."""
        self.plans.catchments(8, "fake")
        call = self.plans.start("runs", "plan.csv", "--jobs", "2", KORVEL_TEST_SLEEP="30")
        until(lambda: len(self.plans.log()) == 2)
        stop(call)
        out, errors = call.communicate(timeout=20)
        return call.returncode, out, errors

    def check_stopped(self):
        self.assertEqual(self.plans.states(), {"R1": "stopped", "R2": "stopped"})
        time.sleep(0.1)
        self.assertEqual(self.plans.log("end"), [])
        result = self.plans.run("runs", "plan.csv", "--resume")
        self.assertEqual((result.returncode, result.stdout), (0, "8 done.\n"))

    def test_ctrl_c_stops_what_runs_and_can_be_resumed(self):
        for wanted in [signal.SIGINT, signal.SIGTERM, signal.SIGHUP]:
            with self.subTest(wanted.name):
                self.setUp()
                status, out, errors = self.stop_midway(lambda call: call.send_signal(wanted))
                self.assertEqual((status, out), (1, "2 stopped, 6 not run.\n"))
                self.assertIn("[exclamation] Runs: R1: Stopped.", errors)
                self.check_stopped()

    def test_a_terminal_shows_progress_and_its_end_stops_the_runs(self):
        self.plans.catchments(8, "fake")
        control, terminal = pty.openpty()
        call = subprocess.Popen(["setsid", "--ctty", *self.plans.command("runs", "plan.csv", "--jobs", "2")],
                                cwd=self.plans.folder, stdin=terminal, stdout=terminal, stderr=terminal,
                                env={**self.plans.environment, "KORVEL_TEST_SLEEP": "30"})
        os.close(terminal)
        until(lambda: len(self.plans.log()) == 2)
        shown = b""
        while b"to go" not in shown:
            shown += os.read(control, 4096)
        self.assertIn(b"2 running, 6 to go", shown)
        os.close(control)
        self.assertEqual(call.wait(timeout=20), 1)
        self.check_stopped()

    def test_two_calls_at_once_do_not_mix(self):
        self.plans.catchments(8, "fake")
        first = self.plans.start("runs", "plan.csv", "--jobs", "2", KORVEL_TEST_SLEEP="4")
        until(lambda: len(self.plans.log()) == 2)
        second = self.plans.run("runs", "plan.csv", "--resume")
        self.assertEqual(second.returncode, 1)
        self.assertIn("Another call is carrying out this plan", second.stderr)
        first.send_signal(signal.SIGINT)
        first.communicate(timeout=20)

    def test_a_killed_call_takes_its_runs_with_it_and_the_next_one_follows_at_once(self):
        self.stop_midway(lambda call: call.kill())
        self.assertEqual(self.plans.states(), {"R1": "started", "R2": "started"})
        result = self.plans.run("runs", "plan.csv", "--resume")
        self.assertEqual((result.returncode, result.stdout), (0, "8 done.\n"))
        self.assertEqual(sorted(self.plans.log("end")), [f"R{k}" for k in range(1, 9)])

    def test_a_full_disk_loses_nothing_that_was_done(self):
        script = """
            mount -t tmpfs -o size=1m none /mnt && cd /mnt && cp -r "$1"/. . || exit 77
            export KORVEL_HOME=/mnt/app KORVEL_TEST=/mnt
            head -c 2m /dev/zero >filler 2>/dev/null
            truncate -s -64k filler
            "$2" runs plan.csv --jobs 2; echo "status $?"
            cp plan.runs.jsonl "$1/first.jsonl"; cp log "$1/first.log"
            rm filler
            "$2" runs plan.csv --jobs 2 --resume; echo "status $?"
            cp plan.runs.jsonl log "$1"
        """
        self.plans.catchments(20, "fake")
        result = subprocess.run(["unshare", "--user", "--map-root-user", "--mount", "sh", "-c", script, "sh",
                                 str(self.plans.folder), PROGRAM], capture_output=True, text=True, timeout=60)
        if result.returncode == 77 or "unshare" in result.stderr:
            self.skipTest("no file system can be mounted here")
        self.assertEqual(result.stdout.count("status 1"), 1, result)
        self.assertIn("status 0", result.stdout, result)
        (self.plans.folder / "plan.runs.jsonl").rename(self.plans.folder / "second.jsonl")
        (self.plans.folder / "first.jsonl").rename(self.plans.folder / "plan.runs.jsonl")
        done = {name for name, state in self.plans.states().items() if state == "done"}
        ended = set((self.plans.folder / "first.log").read_text().split()) - {"begin", "end"}
        self.assertIn(len(done), range(1, 20))
        (self.plans.folder / "second.jsonl").rename(self.plans.folder / "plan.runs.jsonl")
        self.assertEqual(set(self.plans.states().values()), {"done"})
        for name in done:
            self.assertEqual(self.plans.log().count(name), 1, f"{name} of {ended} was run twice")

    def test_a_hundred_kills_lose_nothing_and_repeat_nothing(self):
        chance = random.Random(1957)
        self.plans.catchments(40, "fake")
        kills = finished = 0
        seen = {}  # done rows and how often each had begun then
        while kills < KILLS:
            call = self.plans.start("runs", "plan.csv", "--jobs", "3", "--resume", KORVEL_TEST_SLEEP="0.005")
            try:
                call.communicate(timeout=chance.uniform(0.01, 0.22))
                finished += 1
                self.assertEqual(call.returncode, 0)
                self.check_seen(seen)
                self.start_over(seen)
            except subprocess.TimeoutExpired:
                call.kill()
                call.communicate()
                kills += 1
                self.check_seen(seen)
        result = self.plans.run("runs", "plan.csv", "--resume")
        self.assertEqual(result.returncode, 0, result)
        self.check_seen(seen)
        self.assertEqual(len(seen), 40)
        print(f"{kills} kills, {finished} times to the end", file=sys.stderr)

    def check_seen(self, seen):
        begun = self.plans.log()
        states = self.plans.states()
        for name, count in seen.items():
            self.assertEqual(states[name], "done")
            self.assertEqual(begun.count(name), count, f"{name} was done and run again")
        for name, state in states.items():
            if state == "done":
                seen.setdefault(name, begun.count(name))

    def start_over(self, seen):
        seen.clear()
        for path in [self.plans.folder / "plan.runs.jsonl", self.plans.folder / "log", *self.plans.folder.glob("*.SGR")]:
            path.unlink(missing_ok=True)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])

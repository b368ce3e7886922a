"""`korvel runs --slurm` with a real Slurm of one node, this machine, started for the test.

slurm_test.py PROGRAM
"""
import os
import pathlib
import signal
import sys
import time
import unittest

import private_slurm
from plans import Plans

PROGRAM = sys.argv[1]


def until(holds, seconds=60):
    end = time.monotonic() + seconds
    while not holds():
        if time.monotonic() > end:
            raise AssertionError("it never came")
        time.sleep(0.05)


def where(link):
    try:
        return os.readlink(link)
    except OSError:
        return ""


class Cluster(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        reason = private_slurm.missing()
        if reason:
            raise unittest.SkipTest(reason)
        # Slurm takes half a minute and more to miss a node or to end a job for its time: both begin before all other
        # tests, on clusters of their own, and are looked at in the end.
        cls.late, cls.late_call = cls.begin_apart(2, "--sbatch", "--time=1")[:2]
        cls.lost, cls.lost_call, lost_cluster = cls.begin_apart(3)
        lost_cluster.kill_daemon()
        cls.slurm = private_slurm.PrivateSlurm(MaxArraySize=4)
        cls.addClassCleanup(cls.slurm.remove)

    @classmethod
    def begin_apart(cls, rows, *options):
        """A call whose rows are running on a cluster of its own."""
        cluster = private_slurm.PrivateSlurm()
        cls.addClassCleanup(cluster.remove)
        plans = Plans(PROGRAM)
        cls.addClassCleanup(plans.remove)
        plans.catchments(rows, "fake")
        call = plans.start("runs", "plan.csv", "--slurm", *options, KORVEL_TEST_SLEEP="300",
                           SLURM_CONF=cluster.environment["SLURM_CONF"])
        until(lambda: len(plans.log()) == rows)
        return plans, call, cluster

    def setUp(self):
        self.plans = Plans(PROGRAM)
        self.addCleanup(self.plans.remove)
        self.plans.environment["SLURM_CONF"] = self.slurm.environment["SLURM_CONF"]

    def jobs(self):
        return self.slurm.ask("squeue", "--noheader", "--array", "--format=%i").stdout.split()

    def begin(self, rows=6, sleep="300", *options):
        """A call whose first rows are running on the node."""
        self.plans.catchments(rows, "fake")
        call = self.plans.start("runs", "plan.csv", "--slurm", *options, KORVEL_TEST_SLEEP=sleep)
        until(lambda: len(self.plans.log()) >= 3)
        return call

    def check_resumed(self, *options):
        result = self.plans.run("runs", "plan.csv", "--resume", *options)
        self.assertEqual(result.returncode, 0, result)
        self.assertEqual(set(self.plans.states().values()), {"done"})
        self.assertEqual(self.plans.left_folders(), [])

    def test_rows_are_shared_among_the_tasks_that_the_cluster_allows(self):
        names = self.plans.catchments(8)
        self.plans.put("R5.DAT", "rubbish\n")
        result = self.plans.run("runs", "plan.csv", "--slurm")
        self.assertEqual((result.returncode, result.stdout), (1, "7 done, 1 failed.\n"), result)
        self.assertIn("[exclamation] Runs: R5: The engine ended with status 1: ERROR", result.stderr)
        self.assertEqual(self.plans.states(), {name: "failed" if name == "R5" else "done" for name in names})
        self.assertEqual(len(self.plans.lines()), 16)
        self.assertEqual(self.plans.last()["R1"]["host"].split(".")[0], self.slurm.host)
        self.assertEqual(self.plans.left_folders(), ["R5"])
        listed = self.slurm.ask("squeue", "--noheader", "--array", "--states=all", "--format=%j %K %T").stdout
        mine = [line.split() for line in listed.splitlines() if line.split()[1:2] == ["2"]]
        self.assertTrue(mine, listed)
        self.assertNotIn(" 3 ", listed)
        again = self.plans.run("runs", "plan.csv", "--slurm", "--resume")
        self.assertEqual((again.returncode, again.stdout), (1, "7 kept, 1 failed.\n"))

    def test_what_slurm_refuses_is_told_and_leaves_nothing(self):
        self.plans.catchments(2)
        result = self.plans.run("runs", "plan.csv", "--slurm", "--sbatch", "--partition=none")
        self.assertEqual(result.returncode, 1)
        self.assertIn("[exclamation] Slurm: sbatch: ", result.stderr)
        self.assertIn("partition", result.stderr)
        self.assertEqual(self.plans.left_folders(), [])
        without = self.plans.run("runs", "plan.csv", "--slurm", PATH="/nowhere")
        self.assertEqual(without.returncode, 1)
        self.assertIn("[exclamation] Slurm: There is no scontrol on this machine.", without.stderr)

    def test_ctrl_c_cancels_the_jobs(self):
        call = self.begin()
        call.send_signal(signal.SIGINT)
        out, errors = call.communicate(timeout=60)
        self.assertEqual(call.returncode, 1)
        self.assertEqual(out, "6 stopped.\n", errors)
        self.assertEqual(self.jobs(), [])
        self.assertEqual(self.plans.log("end"), [])
        self.assertEqual(set(self.plans.states().values()), {"stopped"})
        self.check_resumed("--slurm")

    def test_jobs_that_somebody_cancels_are_stopped(self):
        call = self.begin()
        self.slurm.ask("scancel", "--user=root")
        out, errors = call.communicate(timeout=60)
        self.assertEqual((call.returncode, out), (1, "6 stopped.\n"), errors)
        self.assertIn("Slurm ended the job: CANCELLED.", errors)
        self.check_resumed()

    def test_a_killed_call_leaves_the_jobs_and_the_next_one_follows_them(self):
        call = self.begin(6, "4")
        call.kill()
        call.communicate()
        refused = self.plans.run("runs", "plan.csv", "--resume")
        self.assertEqual(refused.returncode, 1)
        self.assertIn("[exclamation] Slurm: Runs of an earlier call are still with Slurm.", refused.stderr)
        unknown = self.plans.run("runs", "plan.csv", "--resume", PATH="/nowhere")
        self.assertIn("Runs of an earlier call may still be with Slurm. There is no squeue", unknown.stderr)
        followed = self.plans.run("runs", "plan.csv", "--slurm", "--resume")
        self.assertEqual((followed.returncode, followed.stdout), (0, "6 kept.\n"), followed)
        self.assertEqual(sorted(self.plans.log()), [f"R{k}" for k in range(1, 7)])
        self.assertEqual(len(self.plans.lines()), 12)
        self.assertEqual(self.plans.left_folders(), [])

    def test_jobs_outlive_a_closed_terminal_and_their_end_is_found_later(self):
        call = self.begin(3, "3")
        call.send_signal(signal.SIGHUP)
        out, _ = call.communicate(timeout=20)
        self.assertEqual(call.returncode, 1)
        self.assertIn("Slurm goes on with the runs.", out)
        until(lambda: self.jobs() == [])
        result = self.plans.run("runs", "plan.csv", "--resume")
        self.assertEqual((result.returncode, result.stdout), (0, "3 kept.\n"), result)
        self.assertEqual(len(self.plans.log()), 3)

    def test_no_more_is_started_after_a_failure_where_the_user_says_so(self):
        self.plans.catchments(9, "fake")
        self.plans.put("R1.bad", "")
        result = self.plans.run("runs", "plan.csv", "--slurm", "--stop-on-failure", KORVEL_TEST_SLEEP="3", timeout=120)
        self.assertEqual(result.returncode, 1)
        self.assertIn("Runs: R1: The engine ended with status 1", result.stderr)
        self.assertLess(len(self.plans.log()), 9)
        self.assertEqual(self.jobs(), [])
        (self.plans.folder / "R1.bad").unlink()
        self.check_resumed()

    def test_a_node_that_dies_fails_what_ran_on_it(self):
        call = self.begin(4)
        self.slurm.kill_node()
        out, errors = call.communicate(timeout=90)
        self.assertEqual(call.returncode, 1)
        self.assertEqual(out, "4 failed.\n")
        self.assertIn("Slurm ended the job: NODE_FAIL.", errors)
        self.assertEqual(set(self.plans.states().values()), {"failed"})
        self.assertEqual(self.plans.log("end"), [])
        self.slurm.start_node()
        self.check_resumed("--slurm")

    def test_y_a_node_that_only_slurm_has_lost_gives_up_its_runs(self):
        out, errors = self.lost_call.communicate(timeout=90)
        self.assertEqual((self.lost_call.returncode, out), (1, "3 failed.\n"), errors)
        self.assertIn("Slurm ended the job: NODE_FAIL.", errors)
        until(lambda: not self.running_engines(self.lost), 10)
        result = self.lost.run("runs", "plan.csv", "--resume")
        self.assertEqual((result.returncode, result.stdout), (0, "3 done.\n"), result)
        self.assertEqual(len(self.lost.log("end")), 3)

    @staticmethod
    def running_engines(plans):
        folder = str(plans.folder)
        return [entry for entry in pathlib.Path("/proc").glob("[0-9]*/cwd") if folder in where(entry)]

    def test_z_a_job_that_takes_too_long_is_named(self):
        out, errors = self.late_call.communicate(timeout=180)
        self.assertEqual(self.late_call.returncode, 1)
        self.assertRegex(out, r"^2 (stopped|failed)\.\n$", errors)
        self.assertEqual(self.late.log("end"), [])
        result = self.late.run("runs", "plan.csv", "--resume")
        self.assertEqual((result.returncode, result.stdout), (0, "2 done.\n"), result)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])

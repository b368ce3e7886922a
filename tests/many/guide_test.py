"""The commands of docs/guide/many-runs.md, run as printed, in a copy of the samples.

guide_test.py PROGRAM SOURCE
"""
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

import private_slurm
from plans import Plans

PROGRAM, SOURCE = sys.argv[1:3]
BLOCK = re.compile(r"^```(sh[ a-z]*)\n(.*?)^```$", re.M | re.S)


def blocks():
    text = (pathlib.Path(SOURCE) / "docs/guide/many-runs.md").read_text()
    return [(kind.split()[1:], commands) for kind, commands in BLOCK.findall(text)]


class Guide(unittest.TestCase):
    def setUp(self):
        self.plans = Plans(PROGRAM)
        self.addCleanup(self.plans.remove)
        for sample in (pathlib.Path(SOURCE) / "samples").glob("*.DAT"):
            # What is tried here does not depend on the number of shots.
            self.plans.put(sample.name, re.sub(r"^(shots *= *)\d+", r"\g<1>50", sample.read_text(), flags=re.M))
        tools = self.plans.folder / "bin"
        tools.mkdir()
        (tools / "korvel").symlink_to(PROGRAM)
        self.plans.environment["PATH"] = f"{tools}:{self.plans.environment['PATH']}"

    def do(self, commands):
        result = subprocess.run(["sh", "-e", "-c", commands], cwd=self.plans.folder, capture_output=True, text=True,
                                timeout=120, env=self.plans.environment)
        self.assertEqual(result.returncode, 0, f"{commands}{result}")
        return result.stdout

    def printed(self, kind, part):
        found = [commands for kinds, commands in blocks() if kinds == kind and part in commands]
        self.assertEqual(len(found), 1, part)
        return found[0]

    def make_and_run(self):
        self.do(self.printed([], "STEP$bod"))
        return self.do(self.printed([], "korvel runs holcombe.csv\n"))

    def test_every_block_is_tried_here(self):
        self.assertEqual(len(blocks()), 9)

    def test_ten_steps_are_run_and_read_as_one_table(self):
        self.assertEqual(len(self.printed([], "STEP$bod").splitlines()), 5)
        self.assertEqual(self.make_and_run(), "10 done.\n")
        sums = {sorted(self.plans.folder.glob(f"STEP{k}.SGR"))[0].read_bytes() for k in range(1, 11)}
        self.assertEqual(len(sums), 10, "the steps don't differ")
        self.do(self.printed([], "korvel table"))
        rows = (self.plans.folder / "holcombe-table.csv").read_text().splitlines()
        self.assertEqual(len({row.split(",")[0] for row in rows[1:]}), 10)
        self.assertIn("BOD", self.do(self.printed([], "korvel compliance")))
        self.do(self.printed([], "korvel publish"))
        page = (self.plans.folder / "holcombe.html").read_text()
        self.assertIn("Holcombe STW in ten steps", page)
        self.assertIn("STEP10", page)
        self.assertEqual(self.do(self.printed([], "--resume\n")), "10 kept.\n")

    def test_the_same_goes_to_a_cluster(self):
        reason = private_slurm.missing()
        if reason:
            self.skipTest(reason)
        cluster = private_slurm.PrivateSlurm()
        self.addCleanup(cluster.remove)
        self.plans.environment["SLURM_CONF"] = cluster.environment["SLURM_CONF"]
        self.do(self.printed([], "STEP$bod"))
        self.assertEqual(self.do(self.printed(["cluster"], "--slurm\n")), "10 done.\n")
        (self.plans.folder / "STEP4.SGR").unlink()
        self.assertEqual(self.do(self.printed(["cluster"], "--sbatch")), "1 done, 9 kept.\n")

    def test_a_trial_of_an_optimiser_hands_back_figures_and_a_status(self):
        figures = self.do(self.printed([], "trial.sh")).splitlines()
        self.assertTrue(figures[0].startswith("run,series,statistic,n,"), figures)
        self.assertEqual(len(figures), 2)
        bad = subprocess.run(["sh", "trial.sh", "rubbish", "trial-2"], cwd=self.plans.folder, capture_output=True,
                             text=True, env=self.plans.environment)
        self.assertEqual((bad.returncode, bad.stdout), (1, ""), bad)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])

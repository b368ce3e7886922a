"""A Slurm cluster of one node, this machine, with configuration, keys and state in a folder of its own."""
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import tempfile
import time

NEEDED = ["munged", "slurmctld", "slurmd", "sbatch", "squeue", "scancel", "scontrol"]


def missing():
    """Why this machine can't have one, or ""."""
    if os.geteuid() != 0:
        return "only root can start the daemons of Slurm"
    absent = [program for program in NEEDED if not shutil.which(program)]
    return f"there is no {absent[0]}" if absent else ""


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def until(holds, seconds, what):
    end = time.monotonic() + seconds
    while not holds():
        if time.monotonic() > end:
            raise RuntimeError(f"{what} within {seconds} s")
        time.sleep(0.1)


class PrivateSlurm:
    def __init__(self, **settings):
        """`settings`: lines of slurm.conf besides the usual ones, such as MaxArraySize=5."""
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="korvel-slurm-"))
        self.folder.chmod(0o755)
        self.host = socket.gethostname().split(".")[0]
        self.processes = {}
        self.configuration = self.folder / "slurm.conf"
        self.environment = {**os.environ, "SLURM_CONF": str(self.configuration)}
        self.write_configuration(settings)
        self.start_munge()
        self.start("slurmctld", ["slurmctld", "-D", "-f", str(self.configuration)])
        until(lambda: self.ask("sinfo", "--noheader").returncode == 0, 20, "slurmctld did not answer")
        self.start_node()

    def write_configuration(self, settings):
        for name in ["state", "spool", "munge"]:
            (self.folder / name).mkdir()
        usual = {
            "ClusterName": "private", "SlurmctldHost": f"{self.host}(127.0.0.1)", "SlurmUser": "root", "SlurmdUser": "root",
            "AuthType": "auth/munge", "AuthInfo": f"socket={self.folder}/munge/socket", "CredType": "cred/munge",
            "StateSaveLocation": self.folder / "state", "SlurmdSpoolDir": self.folder / "spool",
            "SlurmctldPidFile": self.folder / "slurmctld.pid", "SlurmdPidFile": self.folder / "slurmd.pid",
            "SlurmctldPort": free_port(), "SlurmdPort": free_port(), "ProctrackType": "proctrack/linuxproc",
            "TaskPlugin": "task/none", "SelectType": "select/cons_tres", "SelectTypeParameters": "CR_CPU",
            "AccountingStorageType": "accounting_storage/none", "JobAcctGatherType": "jobacct_gather/none",
            "MpiDefault": "none", "ReturnToService": 2, "SlurmdTimeout": 5, "KillWait": 5, "SchedulerType": "sched/backfill",
            "SlurmdParameters": "config_overrides", "SchedulerParameters": "sched_min_interval=0,batch_sched_delay=0",
            "NodeName": f"{self.host} NodeAddr=127.0.0.1 CPUs=4 State=UNKNOWN",
            "PartitionName": "all Nodes=ALL Default=YES MaxTime=INFINITE State=UP OverTimeLimit=0",
        }
        lines = {**usual, **settings}
        self.configuration.write_text("".join(f"{name}={value}\n" for name, value in lines.items()))

    def start(self, name, words):
        with open(self.folder / f"{name}.log", "ab") as log:
            self.processes[name] = subprocess.Popen(words, stdout=log, stderr=log, stdin=subprocess.DEVNULL,
                                                    env=self.environment, start_new_session=True)

    def start_munge(self):
        place = self.folder / "munge"
        (place / "key").write_bytes(os.urandom(1024))
        (place / "key").chmod(0o600)
        for path in [place, place / "key"]:
            shutil.chown(path, "munge", "munge")
        self.start("munged", ["setpriv", "--reuid=munge", "--regid=munge", "--clear-groups", "munged", "--foreground",
                              "--force", f"--key-file={place}/key", f"--socket={place}/socket",
                              f"--pid-file={place}/pid", f"--log-file={place}/log", f"--seed-file={place}/seed"])
        until((place / "socket").exists, 10, "munged did not start")

    def start_node(self):
        self.start("slurmd", ["slurmd", "-D", "-f", str(self.configuration), "-N", self.host])
        until(lambda: "idle" in self.ask("sinfo", "--noheader", "--format=%t").stdout, 30, "no node came up")

    def kill_node(self):
        """The node dies: its daemon, and everything that runs on it."""
        self.kill_daemon()
        mine = f"SLURM_CONF={self.configuration}".encode()
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                environment = (process / "environ").read_bytes().split(b"\0")
                is_step = (process / "comm").read_text().startswith("slurmstepd")
            except OSError:
                continue
            if mine in environment and (is_step or any(word.startswith(b"SLURM_JOB_ID=") for word in environment)):
                os.kill(int(process.name), signal.SIGKILL)

    def kill_daemon(self):
        """The node is lost for Slurm, while its jobs go on."""
        self.end("slurmd", signal.SIGKILL)

    def end(self, name, with_signal=signal.SIGTERM):
        process = self.processes.pop(name, None)
        if process is None:
            return
        process.send_signal(with_signal)
        try:
            process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()

    def ask(self, *words):
        return subprocess.run(words, capture_output=True, text=True, env=self.environment, timeout=30)

    def remove(self):
        if "slurmctld" in self.processes:
            self.ask("scancel", "--user=root")
        for name in ["slurmd", "slurmctld", "munged"]:
            self.end(name)
        shutil.rmtree(self.folder, ignore_errors=True)

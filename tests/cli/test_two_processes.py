"""Two processes add, edit and remove many events each on one home at the same time, and are killed at
random. Nothing that was confirmed is lost, nothing comes back, nothing is half there.

DAYWARD_EVENTS=1000 is the full size, DAYWARD_SEED repeats the choices of a run."""
import collections
import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import threading
import time

WORKER, PROGRAM = sys.argv[1:3]
EVENTS = int(os.environ.get("DAYWARD_EVENTS", "400"))
SEED = int(os.environ.get("DAYWARD_SEED", random.randrange(1 << 30)))
KINDS = ("add", "edit", "remove")
ABSENT = None

# A state that a key was to get: confirmed or not, and when that began and ended at the latest.
Step = collections.namedtuple("Step", "state begin end confirmed")


class Worker:
    """A process that is started again after each of its deaths until all its work is confirmed."""

    def __init__(self, home, name, chance, count):
        self.home, self.name, self.chance = home, name, chance
        self.left = dict.fromkeys(KINDS, count)
        self.next = 0
        self.steps = collections.defaultdict(list)
        self.faults, self.events = [], {}
        self.refused = 0
        self.start()

    def start(self):
        arguments = [self.chance.randrange(1 << 30), self.next, *(self.left[kind] for kind in KINDS)]
        self.process = subprocess.Popen([WORKER, self.home, self.name, *map(str, arguments)], text=True,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.busy, self.done = threading.Event(), threading.Event()
        self.begun = None
        self.ending = False
        self.reader = threading.Thread(target=self.read)
        self.reader.start()

    def read(self):
        for line in self.process.stdout:
            if not line.endswith("\n"):
                break
            word, _, rest = line.strip().partition(" ")
            if word == "begin":
                self.busy.set()
                time_, kind, *pairs = rest.split(" ")
                pairs = [pair.split("=") for pair in pairs]
                self.begun = int(time_), kind, pairs
                if kind != "remove":
                    self.next = int(pairs[-1][1].split(".")[1]) + 1
            elif word == "end":
                time_, outcome, *reason = rest.split(" ", 2)
                self.finish(int(time_), outcome == "ok")
                self.left[self.last] = max(0, self.left[self.last] - len(pairs))
                if outcome != "ok":
                    self.refused += 1
                    # Only a removal may fail: when the other process was first.
                    if "No such file" not in reason[0] or self.last != "remove":
                        self.faults.append(f"{self.last}: {reason[0]}")
            elif word == "event":
                pair, state = rest.split(" ")
                key, value = pair.split("=")
                self.events[key] = value if state == "whole" else "mixed"
            elif word == "left-out":
                self.faults.append(line.strip())
            elif word == "done":
                self.busy.set()
                self.done.set()
        if not self.ending:
            self.faults.append(f"{self.name} ended by itself with {self.process.wait()}")
            self.busy.set()
            self.done.set()

    def finish(self, end, confirmed):
        begin, self.last, pairs = self.begun
        self.begun = None
        for key, value in pairs:
            self.steps[key].append(Step(ABSENT if self.last == "remove" else value, begin, end, confirmed))

    def kill(self):
        self.ending = True
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()
        self.reader.join()
        if self.begun:
            self.finish(time.monotonic_ns(), False)
        self.start()

    def leave(self):
        """Its events, as it sees them when all is over."""
        self.done.wait()
        self.ending = True
        self.process.stdin.close()
        self.reader.join()
        if self.process.wait() != 0:
            self.faults.append(f"{self.name} ended with {self.process.returncode}")
        return self.events


def allowed(steps):
    """The states that a key may be in: no confirmed step began after theirs ended."""
    latest = max((step.begin for step in steps if step.confirmed), default=None)
    states = {step.state for step in steps if latest is None or step.end >= latest}
    return states | {ABSENT} if latest is None else states


def work(home, chance):
    """The two workers after all of their work, and how many of them were killed."""
    workers = [Worker(home, name, chance, EVENTS) for name in ("one", "other")]
    kills = 0
    while kills < EVENTS // 10 and not all(worker.done.wait(chance.uniform(0, 0.15)) for worker in workers):
        victim = chance.choice(workers)
        # Often not before it gets to its work, so that there is progress on a busy machine too.
        victim.busy.wait(chance.choice((0, 1, 5)))
        if not victim.done.is_set():
            victim.kill()
            kills += 1
    for worker in workers:
        worker.done.wait()
    # Killed once more when everything is confirmed, they end with undisturbed work, after which both must
    # see the same.
    for worker in workers:
        worker.left = dict.fromkeys(KINDS, EVENTS // 10)
        worker.kill()
    return workers, kills + len(workers)


def check(home, workers):
    """Every fault, as a line."""
    for worker in workers:
        worker.done.wait()
    views = [worker.leave() for worker in workers]
    last = Worker(home, "last", random, 0)
    found = last.leave()
    faults = [fault for worker in [*workers, last] for fault in worker.faults]
    faults += ["a process sees other events than the next one" for view in views if view != found]
    steps = collections.defaultdict(list)
    for worker in workers:
        for key, own in worker.steps.items():
            steps[key] += own
    for key in steps.keys() | found.keys():
        if found.get(key, ABSENT) not in allowed(steps[key]):
            faults.append(f"{key} is {found.get(key)}, not one of {allowed(steps[key])}")
    faults += [f"left behind: {path}" for path in pathlib.Path(home).rglob(".*")]
    doctor = subprocess.run([PROGRAM, "--home", home, "--locale", "en_US", "doctor"], capture_output=True, text=True)
    if (doctor.returncode, doctor.stdout.splitlines()[:1]) != (0, ["No problems found"]):
        faults.append("doctor: " + doctor.stdout + doctor.stderr)
    return faults


def main():
    print(f"seed {SEED}, {EVENTS} events each", flush=True)
    with tempfile.TemporaryDirectory(prefix="dayward-test-") as directory:
        home = str(pathlib.Path(directory) / "home")
        workers, kills = work(home, random.Random(SEED))
        faults = check(home, workers)
    confirmed = sum(step.confirmed for worker in workers for own in worker.steps.values() for step in own)
    refused = sum(worker.refused for worker in workers)
    print(f"{confirmed} changes confirmed, {refused} batches of removals partly refused, {kills} kills")
    print(*faults, sep="\n")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

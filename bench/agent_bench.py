"""The agent as the session carries it: its memory, and how often it wakes while nothing is due.

Use: agent_bench.py ROUNDS ROW…; prints {"row/side": {"unit": …, "values": [a number a round]}}. Starts its own session
bus with a notification service. Each round is a new agent of a home with 64 alerts, of which it has shown those of
yesterday.
"""
import datetime
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
BUILD = os.path.join(HERE, "..", "build", "bench")
INSIDE = "DAYWARD_BENCH_BUS"
EVENTS = 4
MEGABYTE = 1 << 20
LIMIT = 15 * MEGABYTE
QUIET, WATCHED = 1.0, 5.0  # seconds without a wake before it counts as idle, and seconds of counting
PATIENCE = 60


def program(name):
    return os.path.join(BUILD, "bin", name)


def status_number(text, name):
    return int(next(line.split()[1] for line in text.splitlines() if line.startswith(name + ":")))


def wakes(process):
    """Of all threads since they began."""
    total = 0
    for task in pathlib.Path(f"/proc/{process.pid}/task").iterdir():
        text = (task / "status").read_text()
        total += status_number(text, "voluntary_ctxt_switches") + status_number(text, "nonvoluntary_ctxt_switches")
    return total


def wait_until_idle(process):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        before = wakes(process)
        time.sleep(QUIET)
        if process.poll() is not None:
            sys.exit("dayward-agent has ended")
        if wakes(process) == before:
            return
    sys.exit(f"dayward-agent was not idle within {PATIENCE} s")


def make_home(home):
    """Events of each day whose alerts were scheduled the day before yesterday."""
    begin = datetime.date.today() - datetime.timedelta(days=2)
    for number in range(EVENTS):
        subprocess.run([program("dayward"), "--home", home, "--now", f"{begin}T12:00:00", "add", f"Event {number}",
                        "--date", str(begin), "--time", "18:00", "--repeat", "daily", "--alert", "on event"],
                       check=True, stdout=subprocess.DEVNULL)


def measure_once(figures, home):
    make_home(home)
    process = subprocess.Popen([program("dayward-agent"), "--home", home])
    try:
        wait_until_idle(process)
        resident = status_number(pathlib.Path(f"/proc/{process.pid}/status").read_text(), "VmRSS") * 1024
        before = wakes(process)
        time.sleep(WATCHED)
        count = wakes(process) - before
    finally:
        process.kill()
        process.wait()
    for name, value, unit in (("agent_memory/ours", resident, "B"), ("agent_memory/limit", LIMIT, "B"),
                              ("agent_wakes/ours", count, "times"), ("agent_wakes/limit", 1, "times")):
        figures.setdefault(name, {"unit": unit, "values": []})["values"].append(value)


def measure(rounds, rows):
    figures = {}
    service = subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--session", "--template", "notification_daemon"],
                               stdout=subprocess.DEVNULL)
    try:
        for _ in range(rounds):
            with tempfile.TemporaryDirectory(dir=BUILD) as directory:
                measure_once(figures, os.path.join(directory, "home"))
    finally:
        service.kill()
        service.wait()
    print(json.dumps({name: figure for name, figure in figures.items() if name.split("/")[0] in rows}))


if not any(row.startswith("agent_") for row in sys.argv[2:]):
    print("{}")
elif INSIDE in os.environ:
    measure(int(sys.argv[1]), sys.argv[2:])
else:
    os.environ[INSIDE] = "1"
    os.execvp("dbus-run-session", ["dbus-run-session", "--", sys.executable, *sys.argv])

"""The application as its user waits for it: its start, a second of the list, a fling, its memory; beside it the
least that Qt Quick can do.

Use: shell_bench.py ROUNDS ROW…; prints {"row/side": {"unit": …, "values": [a number a round]}}. Starts its own
display and session bus. The programs print moments of the monotonic clock or the processor's time of a frame, in
nanoseconds, and bytes.
"""
import json
import os
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
BUILD = os.path.join(HERE, "..", "build", "bench")
INSIDE = "DAYWARD_BENCH_DISPLAY"
COUNTS = (7, 1000, 10000)
TICKS = 120
# Three flicks after each other are Qt Quick's fastest: 12,500 pixels a second, at 60 frames a second.
PIXELS_A_FRAME = 208
# Each fling does the same work, frame by frame. What a machine takes for itself is charged to the program as well, some
# milliseconds at a time, so that a frame's figure is the middle one of the flings.
FLINGS = 3
PAUSES_MILLISECONDS = 10000
FRAME, OWN_SHARE = 16.7e6, 4e6


def program(name):
    return os.path.join(BUILD, "bin", name)


def numbers(command, **environment):
    done = subprocess.run(command, capture_output=True, text=True, timeout=300, env={**os.environ, **environment})
    if done.returncode != 0:
        sys.exit(f"{command[0]}: {done.stderr}")
    return [[int(number) for number in line.split()] for line in done.stdout.splitlines()]


def part(values, share):
    return sorted(values)[min(len(values) - 1, int(share * len(values)))]


class Figures(dict):
    def add(self, name, value, unit="ns"):
        self.setdefault(name, {"unit": unit, "values": []})["values"].append(value)


def start(figures, homes):
    """Every program once."""
    resident = {}
    for count, home in homes.items():
        begin = time.monotonic_ns()
        (rows, pictures), (resident[count],) = numbers([program("shell_start"), "--home", home])
        figures.add(f"app_start_{count}/ours", rows - begin)
        figures.add(f"app_pictures_{count}/ours", pictures - begin)
    begin = time.monotonic_ns()
    (shown,), (floor,) = numbers([program("shell_floor"), "start"])
    for count in homes:
        figures.add(f"app_start_{count}/floor", shown - begin)
        figures.add(f"app_pictures_{count}/floor", shown - begin)
    few, some, many = COUNTS
    figures.add(f"app_start_{many}/few", figures[f"app_start_{few}/ours"]["values"][-1])
    figures.add("app_memory/ours", resident[many], "B")
    figures.add("app_memory/floor", floor, "B")
    figures.add("app_memory_event/ours", (resident[many] - resident[some]) / (many - some), "B")
    figures.add("app_memory_event/limit", 2048, "B")


def tick(figures, homes):
    software = {"QT_QUICK_BACKEND": "software"}
    frames = numbers([program("shell_frames"), homes[1000], "tick", str(TICKS)], **software)
    floor = numbers([program("shell_floor"), "tick", str(TICKS)], **software)
    figures.add("app_tick_20/ours", part([whole for _, whole in frames], 0.5))
    figures.add("app_tick_20/floor", part([whole for whole, in floor], 0.5))


def fling(figures, homes):
    command = [program("shell_frames"), homes[10000], "fling", str(PIXELS_A_FRAME)]
    flings = [numbers(command, QT_QUICK_BACKEND="software") for _ in range(FLINGS)]
    frames = [[part(values, 0.5) for values in zip(*same)] for same in zip(*flings, strict=True)]
    own, whole = zip(*frames)
    for name, share in (("app_fling_median", 0.5), ("app_fling", 0.99), ("app_fling_worst", 1)):
        figures.add(f"{name}/ours", part(own, share))
        figures.add(f"{name}/budget", OWN_SHARE)
    figures.add("app_fling_frame/ours", part(whole, 1))
    figures.add("app_fling_frame/budget", FRAME)
    tell_frames_over("of the middle one", frames)
    tell_frames_over(f"of all {FLINGS}", [frame for frames in flings for frame in frames])
    pauses = [pause for pause, in numbers([program("shell_floor"), "pauses", str(PAUSES_MILLISECONDS)])]
    print(f"a thread that only reads its clock for {PAUSES_MILLISECONDS / 1000:.0f} s: steps over 1 ms {len(pauses)}, "
          f"the longest {max(pauses, default=0) / 1e6:.1f} ms", file=sys.stderr)


def tell_frames_over(which, frames):
    own, whole = (sum(frame[side] > limit for frame in frames) for side, limit in enumerate((OWN_SHARE, FRAME)))
    print(f"fling, {len(frames)} frames {which}: {own} over 4 ms of our own, {whole} over 16.7 ms in all", file=sys.stderr)


def measure(rounds, rows):
    figures = Figures()
    with tempfile.TemporaryDirectory(dir=BUILD) as directory:
        homes = {count: os.path.join(directory, str(count)) for count in COUNTS}
        for count, home in homes.items():
            numbers([program("shell_home"), home, str(count)])
        for group, times in ((start, rounds), (tick, rounds), (fling, 1)):
            if any(row.startswith(PREFIXES[group]) for row in rows):
                for _ in range(times):
                    group(figures, homes)
    print(json.dumps({name: figure for name, figure in figures.items() if name.split("/")[0] in rows}))


PREFIXES = {start: ("app_start", "app_pictures", "app_memory"), tick: ("app_tick",), fling: ("app_fling",)}

if not any(row.startswith("app_") for row in sys.argv[2:]):
    print("{}")
elif INSIDE in os.environ:
    measure(int(sys.argv[1]), sys.argv[2:])
else:
    os.environ[INSIDE] = "1"
    os.execvp("xvfb-run", ["xvfb-run", "-a", "-s", "-screen 0 1000x2000x24 -noreset", "dbus-run-session", "--",
                           sys.executable, *sys.argv])

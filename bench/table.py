"""Runs the benchmark programs and prints the table of rows.json.

The sides of a row run in one program, interleaved at random; a figure is the median of the repetitions.
Instructions are counted by valgrind over two numbers of iterations, whose difference leaves out starting.
"""
import argparse
import json
import os
import re
import statistics
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
BUILD = os.path.join(HERE, "..", "build", "bench")
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def arguments():
    parser = argparse.ArgumentParser(prog="bench/run")
    parser.add_argument("--quick", action="store_true", help="three short repetitions")
    parser.add_argument("--no-instructions", action="store_true")
    parser.add_argument("rows", nargs="*", help="only these rows")
    return parser.parse_args()


def programs():
    with open(os.path.join(BUILD, "benchmarks.txt")) as names:
        return [os.path.join(BUILD, "bin", name) for name in names.read().split()]


def scripts():
    return [os.path.join(HERE, name) for name in sorted(os.listdir(HERE)) if name.endswith("_bench.py")]


def side_of(run):
    """(row, side) of one run, or nothing for an aggregate."""
    if run.get("run_type") == "aggregate":
        return None
    return tuple(run["run_name"].split("/")[:2])


def listed(program):
    names = subprocess.run([program, "--benchmark_list_tests"], capture_output=True, text=True, check=True)
    return {tuple(line.split("/")[:2]): line for line in names.stdout.split()}


def of_rows(names, rows):
    return [full for (row, _), full in names.items() if row in rows]


def chosen(full_names):
    return "^(" + "|".join(re.escape(name) for name in full_names) + ")$"


def measured_by(program, rows, options):
    """Every repetition of every side: {(row, side): [(value, unit, label)]}; unit is "ns" or "B"."""
    names = of_rows(listed(program), rows)
    if not names:
        return {}
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        subprocess.run(
            [program, f"--benchmark_filter={chosen(names)}", "--benchmark_enable_random_interleaving=true",
             f"--benchmark_repetitions={3 if options.quick else 9}",
             f"--benchmark_min_time={0.02 if options.quick else 0.1}", f"--benchmark_out={out.name}"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        runs = json.load(out)["benchmarks"]
    found = {}
    for run in runs:
        if run.get("error_occurred"):
            sys.exit(f"bench/run: {run['run_name']}: {run['error_message']}")
        side = side_of(run)
        if side is None:
            continue
        if "bytes" in run:
            figure = (run["bytes"], "B")
        else:
            time = run["real_time"] if run["name"].endswith("real_time") else run["cpu_time"]
            figure = (time * NANOSECONDS[run["time_unit"]] / run.get("items", 1), "ns")
        found.setdefault(side, []).append((*figure, run.get("label", "")))
    return found


def measured_by_script(script, rows, options):
    """A script prints {"row/side": {"unit": "ns", "B" or "times", "values": […]}} for the rows that it is given."""
    command = [sys.executable, script, "3" if options.quick else "9", *sorted(rows)]
    figures = json.loads(subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True).stdout)
    return {tuple(name.split("/")): [(value, figure["unit"], "") for value in figure["values"]]
            for name, figure in figures.items()}


def instructions(program, full_name, iterations):
    with tempfile.NamedTemporaryFile() as out:
        subprocess.run(
            ["valgrind", "--tool=callgrind", f"--callgrind-out-file={out.name}", program,
             f"--benchmark_filter={chosen([full_name])}"],
            env={**os.environ, "DAYWARD_BENCH_ITERATIONS": str(iterations)},
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        text = open(out.name).read()
    return int(re.search(r"^(?:summary|totals): (\d+)", text, re.M).group(1))


def instructions_each(program, rows):
    counted = {}
    for (row, side), full_name in listed(program).items():
        if row in rows:
            few, many = 20, 220
            plain = re.sub(r"/iterations:\d+", "", full_name)
            # Under the variable the name says the number of iterations, so that the filter needs it.
            counted[(row, side)] = (instructions(program, f"{plain}/iterations:{many}", many)
                                    - instructions(program, f"{plain}/iterations:{few}", few)) / (many - few)
    return counted


def shown(value, unit):
    if unit == "B":
        return f"{value:,.0f} B"
    if unit == "times":
        return f"{value:g}"
    for name, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if value >= size:
            return f"{value / size:.3g} {name}"
    return f"{value:.3g} ns"


def compared(entry, found, counted):
    """One line of the table, and whether what must hold does."""
    row, peer = entry["row"], entry["peer"]
    medians = {}
    for side in ("ours", peer):
        figures = found.get((row, side))
        if not figures:
            return [entry["work"], "not measured", entry["peer_is"], "", "", "", "", "no"], False
        medians[side] = (statistics.median(value for value, _, _ in figures), figures[0][1])
    ours, theirs = medians["ours"][0], medians[peer][0]
    steps = counted.get((row, "ours")), counted.get((row, peer))
    ratio = ours / theirs
    factor = f"{steps[0] / steps[1]:.2f} ({steps[0]:,.0f} : {steps[1]:,.0f})" if all(steps) else ""
    must, aim = entry.get("must"), entry.get("aim")
    held = must is None or ratio <= must
    verdict = "yes" if held else "NO"
    if aim is not None:
        verdict += ", aim too" if ratio <= aim else ", aim not"
    label = found[(row, "ours")][0][2]
    work = f"{entry['work']}: {label}" if label else entry["work"]
    return [work, shown(*medians["ours"]), entry["peer_is"], shown(*medians[peer]),
            f"{ratio:.3g}", "" if must is None else f"{must:g}", "" if aim is None else f"{aim:g}", factor,
            verdict], held


def printed(lines):
    heads = ["Work", "Ours", "Floor or peer", "Its time", "Ratio", "Must", "Aim", "Instructions", "Holds"]
    table = [heads] + lines
    widths = [max(len(line[column]) for line in table) for column in range(len(heads))]
    for number, line in enumerate(table):
        print("| " + " | ".join(cell.ljust(width) for cell, width in zip(line, widths)) + " |")
        if number == 0:
            print("|" + "|".join("-" * (width + 2) for width in widths) + "|")


def main():
    options = arguments()
    with open(os.path.join(HERE, "rows.json")) as file:
        entries = [entry for entry in json.load(file) if not options.rows or entry["row"] in options.rows]
    rows = {entry["row"] for entry in entries}
    counted_rows = {entry["row"] for entry in entries if entry.get("instructions")}
    found, counted = {}, {}
    for program in programs():
        found.update(measured_by(program, rows, options))
        if not options.no_instructions:
            counted.update(instructions_each(program, counted_rows))
    for script in scripts():
        found.update(measured_by_script(script, rows, options))
    lines, all_held = [], True
    for entry in entries:
        line, held = compared(entry, found, counted)
        lines.append(line)
        all_held = all_held and held
    printed(lines)
    sys.exit(0 if all_held else 1)


main()

"""Runs the programs of bench on Google Benchmark, and reads what they report."""

import json
import os
import pathlib
import platform
import re
import statistics
import subprocess
import sys

unit_of = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


class Programs:
    """The programs of a build. Keeps what each has reported, as `raw`."""

    def __init__(self, build, quick):
        self.build = pathlib.Path(build).resolve()
        self.quick = quick
        self.core = max(os.sched_getaffinity(0))
        self.raw = {}
        self.context = {}

    def run(self, program, *arguments, pinned=True, repetitions=9, min_time=0.1, **environment):
        """The entries of a program, each with the median of its repetitions. Entries take turns, so
        that a busy moment of the machine does not fall on one of them alone."""
        command = [str(self.build / "bin" / program), *map(str, arguments),
                   "--benchmark_format=json", "--benchmark_enable_random_interleaving=true",
                   f"--benchmark_repetitions={1 if self.quick else repetitions}",
                   f"--benchmark_min_time={0 if self.quick else min_time}"]
        if pinned:
            command = ["taskset", "--cpu-list", str(self.core), *command]
        report = json.loads(output(command, **environment))
        self.context = {**self.context, **report["context"]}
        runs = {}
        for entry in sorted(report["benchmarks"], key=place):
            if entry["run_type"] == "iteration":
                name = re.sub(r"/(process_time|real_time|iterations:\d+)", "", entry["run_name"])
                runs.setdefault(name, []).append(entry)
        found = {name: Entry(entries) for name, entries in runs.items()}
        self.raw[" ".join([program, *environment.values()])] = report["benchmarks"]
        return found

    def memory(self, program, name, *arguments):
        """The bytes of a job's results, and of the rest of its peak, in a fresh process."""
        exactly = f"--benchmark_filter=^{name}(/|$)"
        command = [str(self.build / "bin" / program), *map(str, arguments), exactly,
                   "--benchmark_format=json", "--benchmark_min_time=0", "--benchmark_repetitions=1"]
        entry, = json.loads(output(command, KELPBOX_BENCH_MEMORY="1"))["benchmarks"]
        self.raw.setdefault("memory", []).append(entry)
        return entry["results"], max(0.0, entry["peak"] - entry["results"])

    def machine(self):
        """One line about where this was measured."""
        try:
            lines = pathlib.Path("/proc/cpuinfo").read_text()
            processor = re.search(r"model name\s*: (.*)", lines).group(1)
        except (OSError, AttributeError):
            processor = platform.machine()
        count = len(os.sched_getaffinity(0))
        kind = self.context.get("instruction_set", "?")
        return f"{processor}, {count} processors, instruction set {kind}"


def place(entry):
    """In the order of the program, not that of the turns."""
    return entry["family_index"], entry["per_family_instance_index"]


class Entry:
    """One entry of a program: processor seconds and seconds by the clock."""

    def __init__(self, entries):
        unit = unit_of[entries[0]["time_unit"]]
        self.cpu = unit * statistics.median(entry["cpu_time"] for entry in entries)
        self.clock = unit * statistics.median(entry["real_time"] for entry in entries)


def output(command, **environment):
    """What a program writes. Ends this one if that fails."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                          env={**os.environ, **environment}, check=False)
    if done.returncode != 0 or not done.stdout:
        sys.exit(f"{' '.join(command)} failed:\n{done.stderr}")
    return done.stdout


def print_rows(titles, rows, markdown):
    """The first column to the left, all others to the right."""
    cells = [titles, *rows]
    widths = [max(len(row[i]) for row in cells) for i in range(len(titles))]
    if markdown:
        print("| " + " | ".join(titles) + " |")
        print("|---|" + "---:|" * (len(titles) - 1))
        for row in rows:
            print("| " + " | ".join(row) + " |")
        return
    for row in cells:
        print("  ".join(cell.ljust(width) if i == 0 else cell.rjust(width)
                        for i, (cell, width) in enumerate(zip(row, widths))).rstrip())


def time_text(seconds):
    """Three digits, with the unit that fits."""
    for unit, size in (("s", 1.0), ("ms", 1e-3), ("us", 1e-6)):
        if seconds >= size:
            return f"{digits(seconds / size)} {unit}"
    return f"{digits(seconds / 1e-9)} ns"


def digits(value):
    return f"{value:.0f}" if value >= 99.5 else f"{value:.1f}" if value >= 9.95 else f"{value:.2f}"


def ratio_text(value):
    return "" if value is None else f"{value:.1f}" if value >= 9.95 else f"{value:.2f}"


def size_text(size):
    return f"{size / 2**20:.0f}" if size >= 9.5 * 2**20 else f"{size / 2**20:.1f}"

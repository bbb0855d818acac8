"""Times the command against direct calls of the library, side by side.

usage: command.py BUILD_FOLDER [--quick]

Each row is the processor time of one program, relative to that of another: the median of the ratios
of rounds in which both ran one after the other. Absolute times depend on the machine.
"""

import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

rounds = 1 if "--quick" in sys.argv[2:] else 15
build = pathlib.Path(sys.argv[1]).resolve()
root = pathlib.Path(__file__).resolve().parent.parent
kelpbox = build / "bin/kelpbox"
job = root / "bench/basin.toml"
site = root / "examples/basin.site"


def spent(*command):
    """Processor seconds and seconds on the clock of a program."""
    start = time.perf_counter()
    process = subprocess.Popen([str(word) for word in command], stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    clock = time.perf_counter() - start
    if os.waitstatus_to_exitcode(status) != 0:
        sys.exit(f"{command} failed")
    return usage.ru_utime + usage.ru_stime, clock, usage.ru_maxrss / 1024


def row(name, command, floor_name, floor):
    first = [(spent(*command), spent(*floor)) for _ in range(rounds)]
    ratio = statistics.median(a[0] / b[0] for a, b in first)
    seconds = statistics.median(a[1] for a, _ in first)
    memory = max(a[2] for a, _ in first)
    print(f"{name:34} {1000 * seconds:8.1f} ms {memory:7.0f} MiB   {ratio:6.2f} x {floor_name}")


with tempfile.TemporaryDirectory() as folder:
    out = pathlib.Path(folder) / "out"
    bare = [build / "bin/bench_bare_run", site]
    print(f"{'program':34} {'clock':>11} {'peak':>11}   {'processor time'}")
    row("kelpbox --version", [kelpbox, "--version"], "true", ["/bin/true"])
    row("kelpbox units '3 ft/s' m/s", [kelpbox, "units", "3 ft/s", "m/s"], "true", ["/bin/true"])
    row("direct calls of the library", bare, "themselves", bare)
    row("kelpbox check", [kelpbox, "check", job], "direct calls", bare)
    row("kelpbox run, all outputs", [kelpbox, "run", job, "--out", out], "check",
        [kelpbox, "check", job])
    size = sum(file.stat().st_size for file in out.rglob("*") if file.is_file())
    print(f"{'':34} {size / 1e6:.1f} MB are written")
    shutil.rmtree(out)

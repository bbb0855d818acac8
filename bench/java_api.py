"""Times the Java API against calls without it, side by side.

usage: java_api.py BUILD_FOLDER [--quick]

Processor times of the calling thread. The JVM's start is excluded; so is a first run, which makes
the plans of the transforms, and the first third of the calls, in which the JVM compiles them. Runs
of Java and of C++ take turns, each in a process of its own.
"""

import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import tempfile

quick = "--quick" in sys.argv[2:]
rounds, repetitions = (1, 1) if quick else (5, 5)
build = pathlib.Path(sys.argv[1]).resolve()
root = pathlib.Path(__file__).resolve().parent.parent
jar = build / "lib/kelpbox.jar"
core = max(os.sched_getaffinity(0))
paddles, samples = 128, 32768


def large_site(folder):
    """The basin of the examples, with 128 narrower paddles."""
    shutil.copytree(root / "examples", folder / "examples")
    width = 20 / paddles
    lines = [f"pad_pos[{paddles}..1] {{ x = 0; y = 0; angle = 0; }}"]
    lines += [f"pad_pos[{i + 1}] {{ y = {(i + 0.5) * width:.8f}; }}" for i in range(paddles)]
    (folder / "examples/common/basin_paddles.site").write_text("\n".join(lines) + "\n")
    return folder / "examples/basin.site"


def output(*command):
    words = ["taskset", "--cpu-list", str(core), *map(str, command)]
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout


def times(text):
    """The seconds by name, and the number of samples of the runs."""
    found, sizes = {}, set()
    for line in text.splitlines():
        match = re.fullmatch(r"([\w/-]+) (\d+\.\d+)(?: (\d+))?", line)
        if match:
            found.setdefault(match[1], []).append(float(match[2]))
            sizes |= {int(match[3])} if match[3] else set()
    if sizes != {paddles * samples}:
        sys.exit(f"the runs have {sizes} samples, not {paddles * samples}")
    return found


def row(name, library, floor_name, floor, target):
    ratio = library / floor
    verdict = "" if ratio <= target else "  missed"
    print(f"{name:42} {1e6 * library:12.2f} us {ratio:7.2f} x {floor_name}, at most {target}"
          f"{verdict}")


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    site = large_site(folder)
    subprocess.run(["javac", "-encoding", "UTF-8", "-Xlint:all", "-Werror", "-cp", jar, "-d",
                    folder / "classes", root / "bench/java/JavaApi.java"], check=True)
    java, bare = {}, []
    for _ in range(rounds):
        bare += times(output(build / "bin/bench_java_run", site, repetitions))["run"]
        # The transforms of both take one thread, and the collector has a thread of its own.
        text = output("java", "-Xms1g", "-Xmx1g", "-XX:+UseSerialGC", "-cp",
                      f"{jar}{os.pathsep}{folder / 'classes'}", "JavaApi", site, repetitions)
        for key, values in times(text).items():
            java.setdefault(key, []).extend(values)
    middle = {key: statistics.median(values) for key, values in java.items()}
    row("name of the site", middle["name/api"], "bare call", middle["name/bare"], 2)
    row("name of the site, lines to a consumer", middle["name/silent"], "bare call",
        middle["name/bare"], 2)
    row("set of a component", middle["set/api"], "bare calls", middle["set/bare"], 2)
    read = f"{paddles} signals of {samples} samples"
    row(read, middle["read/api"], "copies into old arrays", middle["read/copied"], 3)
    row(read, middle["read/api"], "copies into new arrays", middle["read/cloned"], 3)
    row(read, middle["read/api"], "the transforms", middle["build"], 1)
    row("run, from the site to the signals", middle["run"], "C++", statistics.median(bare), 1.1)

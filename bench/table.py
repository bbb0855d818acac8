"""Measures how close to the hardware the library runs, and prints tables.

usage: table.py BUILD_FOLDER [--markdown] [--quick] [--json FILE]

    --markdown   rows as in docs/performance.md
    --quick      one short repetition: checks that all can be measured
    --json FILE  also writes the raw numbers

Times of the first table are processor times of one worker on one processor: medians of repetitions
in which library and floor took turns. Memory is that of a fresh process.
"""

import argparse
import json
import os
import pathlib
import subprocess
import sys

from measure import Programs, print_rows, ratio_text, size_text, time_text

bench = pathlib.Path(__file__).resolve().parent
root = bench.parent
flume = root / "examples/flume.site"
basin = root / "examples/basin.site"

# Program, its arguments, and the jobs, which have an entry "/library" and an entry "/floor".
jobs = [
    ("bench_drive", [], [
        "drive, 128 paddles, 1 front",
        "drive, 128 paddles, 31 directions",
        "drive, circle, 1 front",
        "drive, circle, 31 directions"]),
    ("bench_columns", [], [
        "animation, 31 directions, whole",
        "animation, 31 directions, slices",
        "animation, uniform, whole",
        "animation, uniform, slices",
        "animation, 31 directions on a slope, whole",
        "animation, 31 directions on a slope, slices",
        "animation, uniform on a slope, whole",
        "animation, uniform on a slope, slices",
        "point, 31 directions",
        "point, 1 front",
        "point, 31 directions on a slope",
        "point, 1 front on a slope"]),
    ("bench_analysis", [flume], [
        "zero crossings, 16 million samples",
        "zero crossings, 4 x 4 million samples",
        "separation, 5 x 1 million samples",
        "separation, 4 x 5 million samples"]),
]


class Tables:
    def __init__(self, programs, markdown):
        self.programs = programs
        self.markdown = markdown
        self.transforms = None  # whose transforms numpy was measured with

    def print(self, title, titles, rows):
        print(f"\n{title}\n")
        print_rows(titles, rows, self.markdown)
        sys.stdout.flush()

    def main(self):
        numpy = self.numpy()
        rows = []
        for program, arguments, names in jobs:
            # An analysis keeps all that it was given, so it is repeated less often.
            repetitions = 5 if program == "bench_analysis" else 9
            found = self.programs.run(program, *arguments, repetitions=repetitions)
            if program == "bench_drive":
                prime = self.prime_row(found)
            for name in names:
                library, floor = found[name + "/library"].cpu, found[name + "/floor"].cpu
                results, working = self.programs.memory(program, name + "/library", *arguments)
                rows.append([name, time_text(library), time_text(floor),
                             ratio_text(library / floor), *numpy.get(name, ["", ""]),
                             f"{size_text(results)} + {size_text(working)}"])
        print(self.programs.machine())
        if self.transforms:
            print(f"The transforms beside numpy are those of {self.transforms}.")
        self.print("Against the floor",
                   ["job", "time", "floor", "ratio", "numpy", "ratio", "peak MiB"], rows)
        self.print("Awkward lengths", ["job", "time", "32,768 samples", "ratio"], [prime])

    @staticmethod
    def prime_row(found):
        prime, plain = (found[f"drive, {name}, 1 front/library"].cpu
                        for name in ("prime length", "128 paddles"))
        return ["drive, 128 paddles, 1 front, 32,771 samples", time_text(prime), time_text(plain),
                ratio_text(prime / plain)]

    def numpy(self):
        """Time of numpy, and how many times longer than the library it takes, by job."""
        found = subprocess.run(["/usr/bin/python3", "-c", "import numpy"], check=False,
                               stderr=subprocess.DEVNULL)
        if found.returncode != 0:
            print("Without numpy: /usr/bin/python3 does not find it.")
            return {}
        command = ["/usr/bin/python3", bench / "numpy_jobs.py", self.programs.build]
        command += ["--quick"] if self.programs.quick else []
        # One thread, like the library.
        done = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True,
                              env={**os.environ, "OPENBLAS_NUM_THREADS": "1"})
        entries = json.loads(done.stdout)
        self.programs.raw["numpy"] = entries
        self.transforms = entries[0]["transforms"]
        return {entry["name"]: [time_text(entry["numpy"]),
                                ratio_text(entry["numpy"] / entry["library"])]
                for entry in entries}

    def formulas(self):
        found = self.programs.run("bench_formulas", min_time=0.05)
        rows = []
        for name in dict.fromkeys(entry.partition("/")[0] for entry in found):
            curve = found[name + "/curve"].cpu
            row = [name, time_text(curve)]
            if name + "/muparser" in found:
                muparser = found[name + "/muparser"].cpu
                row += [time_text(muparser), ratio_text(curve / muparser)]
            else:
                row += ["", ""]
            rows.append(row)
        self.print("One value of a formula", ["formula", "time", "muParser", "ratio"], rows)

    def growth(self):
        """How the time grows with the number of items."""
        found = self.programs.run("bench_run_build", repetitions=3, min_time=0.05)
        found.update(self.programs.run("bench_growth", repetitions=3, min_time=0.05))
        series = {}
        for name, entry in found.items():
            title, _, size = name.rpartition("/")
            title = title.replace("run_build/", "run build, harmonics, ").replace("_", " ")
            title = title.replace("initialise", "initialise, paddles")
            series.setdefault(title, []).append((int(size), entry.cpu))
        rows = []
        for title, sizes in series.items():
            (first, least), *others = sizes
            more = "   ".join(f"{ratio_text(time / least)} at {size:,}" for size, time in others)
            rows.append([title, f"{first:,}", time_text(least), more])
        self.print("Growth", ["job, items", "items", "time", "times as long"], rows)

    def workers(self):
        rows = []
        for program, arguments in (("bench_drive", []), ("bench_columns", []),
                                   ("bench_experiments", [basin])):
            found = self.programs.run(program, *arguments, "--benchmark_filter=workers: [12]",
                                      pinned=False, repetitions=7)
            for name in found:
                if not name.endswith("workers: 1"):
                    continue
                one, two = found[name], found[name[:-1] + "2"]
                rows.append([name.replace(", workers: 1", ""), time_text(one.clock),
                             time_text(two.clock), ratio_text(one.clock / two.clock),
                             ratio_text(two.cpu / one.cpu)])
        self.print("Two workers, and two experiments on two threads, by the clock",
                   ["job", "one", "two", "times as fast", "processor time"], rows)


def main():
    parser = argparse.ArgumentParser(description="Measures the library against its floors.")
    parser.add_argument("build")
    parser.add_argument("--markdown", action="store_true", help="rows as in docs/performance.md")
    parser.add_argument("--quick", action="store_true", help="one short repetition")
    parser.add_argument("--json", metavar="FILE", help="also write the raw numbers")
    arguments = parser.parse_args()
    programs = Programs(arguments.build, arguments.quick)
    tables = Tables(programs, arguments.markdown)
    tables.main()
    tables.formulas()
    tables.growth()
    tables.workers()
    if arguments.json:
        raw = {"machine": programs.machine(), "context": programs.context, "raw": programs.raw}
        pathlib.Path(arguments.json).write_text(json.dumps(raw, indent=1), encoding="utf-8")


if __name__ == "__main__":
    main()
